#include <vxsettings/dbsettingsgroup.h>

#include "localencoding.h"
#include "loggingrules.h"
#include "messages.h"
#include "testtree.h"

#include <vxsettings/dbcheckboxwidget.h>
#include <vxsettings/dbspinboxwidget.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QSpinBox>
#include <QTest>

using testtree::addJsonGroup;
using testtree::addLeaf;
using testtree::newEditor;
using vantorix::OBJECT_PARAMETERS;

Q_DECLARE_METATYPE(OBJECT_PARAMETERS)

namespace {

void checkMessage(const CapturedMessage &message, int line, const QString &function, const QString &text)
{
    QCOMPARE(message.type, QtDebugMsg);
    QCOMPARE(message.category, QString("gui.lib.dbsettings"));
    QCOMPARE(message.file, QString("src/dbsettingsgroup"));
    QCOMPARE(message.line, line);
    QCOMPARE(message.function, function);
    QCOMPARE(message.text, text);
}

const QString groupFunction = "virtual vantorix::OBJECT_PARAMETERS DBSettingsGroup::parameters() const";
const QString jsonFunction = "virtual vantorix::OBJECT_PARAMETERS JsonGroup::parameters() const";
} // namespace

class TestJsonGroup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void newGroup();
    void idIsKept();
    void isAGroup();
    void keyIsReplaced();
    void text_data();
    void text();
    void textOfRealEditors();
    void textIsReadBack();
    void textGoesThroughTheLocalCodec();
    void laterMemberWins();
    void nodesWithoutEditorAreLeftOut();
    void textOfADeletedPageIsEmpty();
    void groupInAGroupIsAText();
    void revertAndUpdateReachTheMembers();
    void twoMessages();
    void messagesOfAPage();
    void silentWithoutDebugLevel();
};

void TestJsonGroup::newGroup()
{
    JsonGroup group;
    QCOMPARE(group.id(), -1);
    QCOMPARE(int(group.type()), 6);
    QVERIFY(group.isGroup());
    QVERIFY(!group.widget());
    QVERIFY(group.settings().empty());
    QCOMPARE(group.paramKeys(), QStringList());
    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"", "{\n}\n"}}));
}

void TestJsonGroup::idIsKept()
{
    QCOMPARE(JsonGroup(15).id(), 15);
}

void TestJsonGroup::isAGroup()
{
    JsonGroup group;
    DBSettings &node = group;
    QCOMPARE(node.toGroup(), static_cast<DBSettingsGroup *>(&group));
    QCOMPARE(int(node.toGroup()->type()), 6);
}

void TestJsonGroup::keyIsReplaced()
{
    JsonGroup group;
    group.setKey("PT_PIN_STRENGTH");
    QCOMPARE(group.parameters().keys(), QStringList("PT_PIN_STRENGTH"));
    group.setKey("PT_PASSWORD_STRENGTH");
    QCOMPARE(group.parameters().keys(), QStringList("PT_PASSWORD_STRENGTH"));
}

void TestJsonGroup::text_data()
{
    using Members = QVector<QPair<QString, QVariant>>;
    QTest::addColumn<QVariantList>("names");
    QTest::addColumn<QVariantList>("values");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const Members &members, const QString &expected) {
        QVariantList names;
        QVariantList values;
        for (const auto &member : members) {
            names << member.first;
            values << member.second;
        }
        QTest::newRow(name) << names << values << expected;
    };
    row("no members", {}, "{\n}\n");
    row("one", {{"min_len", "8"}}, "{\n    \"min_len\": \"8\"\n}\n");
    row("three in another order", {{"min_len", "8"}, {"max_len", "32"}, {"min_amount_numbers", "1"}},
        "{\n"
        "    \"max_len\": \"32\",\n"
        "    \"min_amount_numbers\": \"1\",\n"
        "    \"min_len\": \"8\"\n"
        "}\n");
    row("order of character codes", {{"b", ""}, {"a_b", ""}, {"B", ""}, {"ab", ""}, {"a", ""}, {"10", ""}, {"9", ""}},
        "{\n"
        "    \"10\": \"\",\n"
        "    \"9\": \"\",\n"
        "    \"B\": \"\",\n"
        "    \"a\": \"\",\n"
        "    \"a_b\": \"\",\n"
        "    \"ab\": \"\",\n"
        "    \"b\": \"\"\n"
        "}\n");
    row("numbers are strings", {{"int", 8}, {"negative", -3}, {"unsigned", 4294967295U}, {"double", 1.5}},
        "{\n"
        "    \"double\": \"1.5\",\n"
        "    \"int\": \"8\",\n"
        "    \"negative\": \"-3\",\n"
        "    \"unsigned\": \"4294967295\"\n"
        "}\n");
    row("flags are strings", {{"on", true}, {"off", false}}, "{\n    \"off\": \"false\",\n    \"on\": \"true\"\n}\n");
    row("no value is an empty string", {{"invalid", QVariant()}, {"null", QString()}, {"empty", ""}},
        "{\n    \"empty\": \"\",\n    \"invalid\": \"\",\n    \"null\": \"\"\n}\n");
    row("not ascii", {{"имя", "Хост ☃ 😀"}}, "{\n    \"имя\": \"Хост ☃ 😀\"\n}\n");
    row("escapes", {{"a\"b", "\\ \" \n \t /"}}, "{\n    \"a\\\"b\": \"\\\\ \\\" \\n \\t /\"\n}\n");
    row("zero character", {{"a", QString(QChar(0)) + "b"}, {"c", "d"}},
        "{\n    \"a\": \"\\u0000b\",\n    \"c\": \"d\"\n}\n");
    row("text that looks like json", {{"a", "{\"b\": 1}"}, {"c", "null"}},
        "{\n    \"a\": \"{\\\"b\\\": 1}\",\n    \"c\": \"null\"\n}\n");
    row("member without a name", {{"", "x"}}, "{\n    \"\": \"x\"\n}\n");
}

void TestJsonGroup::text()
{
    QFETCH(QVariantList, names);
    QFETCH(QVariantList, values);
    QFETCH(QString, expected);

    JsonGroup group;
    group.setKey("PT_JSON");
    for (int i = 0; i < names.count(); ++i)
        addLeaf(group, newEditor(nullptr, names[i].toString(), values[i]));
    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"PT_JSON", expected}}));
}

void TestJsonGroup::textOfRealEditors()
{
    JsonGroup group;
    group.setKey("PT_PASSWORD_STRENGTH");
    auto *frame = new QWidget;
    group.setWidget(frame);
    auto *length = new DBSpinBoxWidget(frame);
    length->setKey("min_len");
    length->setValue(8);
    auto *letters = new DBCheckBoxWidget(frame);
    letters->setKey("min_amount_letters");
    letters->setValue("1");
    addLeaf(group, length);
    addLeaf(group, letters);

    const QString expected = "{\n    \"min_amount_letters\": \"true\",\n    \"min_len\": \"8\"\n}\n";
    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"PT_PASSWORD_STRENGTH", expected}}));
}

void TestJsonGroup::textIsReadBack()
{
    JsonGroup group;
    group.setKey("PT_JSON");
    addLeaf(group, newEditor(nullptr, "number", 8));
    addLeaf(group, newEditor(nullptr, "text", QString("Хост \"☃\"\n") + QChar(0)));

    const QByteArray text = group.parameters().value("PT_JSON").toUtf8();
    const QJsonObject expected{{"number", "8"}, {"text", QString("Хост \"☃\"\n") + QChar(0)}};
    QCOMPARE(QJsonDocument::fromJson(text).object(), expected);
}

void TestJsonGroup::textGoesThroughTheLocalCodec()
{
    if (!LocalEncoding::canBe("ISO-8859-1"))
        QSKIP("Local texts are UTF-8, whatever the host says");
    JsonGroup group;
    group.setKey("PT_JSON");
    addLeaf(group, newEditor(nullptr, "a", "é"));
    const LocalEncoding latin1("ISO-8859-1");
    QCOMPARE(group.parameters().value("PT_JSON"), QString("{\n    \"a\": \"Ã©\"\n}\n"));
}

void TestJsonGroup::laterMemberWins()
{
    JsonGroup group;
    group.setKey("PT_JSON");
    addLeaf(group, newEditor(nullptr, "min_len", 1));
    addLeaf(group, newEditor(nullptr, "min_len", 2));
    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"PT_JSON", "{\n    \"min_len\": \"2\"\n}\n"}}));
}

void TestJsonGroup::nodesWithoutEditorAreLeftOut()
{
    JsonGroup group;
    group.setKey("PT_JSON");
    addLeaf(group, nullptr);
    addLeaf(group, new QLabel("foreign"));
    group.settings().push_back(nullptr);
    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"PT_JSON", "{\n}\n"}}));
}

void TestJsonGroup::textOfADeletedPageIsEmpty()
{
    JsonGroup group;
    group.setKey("PT_JSON");
    auto *frame = new QWidget;
    group.setWidget(frame);
    addLeaf(group, newEditor(frame, "min_len", 8));
    delete frame;
    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"PT_JSON", "{\n}\n"}}));
}

void TestJsonGroup::groupInAGroupIsAText()
{
    JsonGroup group;
    group.setKey("PT_OUTER");
    addLeaf(*addJsonGroup(group, "inner", nullptr), newEditor(nullptr, "a", 1));
    QCOMPARE(group.parameters(),
             (OBJECT_PARAMETERS{{"PT_OUTER", "{\n    \"inner\": \"{\\n    \\\"a\\\": \\\"1\\\"\\n}\\n\"\n}\n"}}));
}

void TestJsonGroup::revertAndUpdateReachTheMembers()
{
    JsonGroup group;
    group.setKey("PT_JSON");
    auto *editor = new DBSpinBoxWidget(nullptr);
    editor->setKey("min_len");
    editor->setValue(5);
    addLeaf(group, editor);
    auto *spinBox = editor->findChild<QSpinBox *>();

    spinBox->setValue(6);
    group.setDefaultValue();
    QCOMPARE(spinBox->value(), 5);
    spinBox->setValue(7);
    group.updateDefaultValue();
    spinBox->setValue(8);
    group.setDefaultValue();
    QCOMPARE(spinBox->value(), 7);
}

void TestJsonGroup::twoMessages()
{
    const LoggingRules debug("gui.lib.dbsettings.debug=true");
    JsonGroup group;
    group.setKey("PT_JSON");
    {
        const CapturedMessages messages;
        group.parameters();
        QCOMPARE(messages.count(), 2);
        checkMessage(messages.all()[0], 36, groupFunction, "QHash()");
        checkMessage(messages.all()[1], 133, jsonFunction, "QHash()");
    }
    addLeaf(group, newEditor(nullptr, "min_len", 8));
    const CapturedMessages messages;
    group.parameters();
    QCOMPARE(messages.count(), 2);
    checkMessage(messages.all()[0], 36, groupFunction, R"(QHash(("min_len", "8")))");
    checkMessage(messages.all()[1], 133, jsonFunction, R"(QHash(("min_len", QVariant(QString, "8"))))");
}

void TestJsonGroup::messagesOfAPage()
{
    const LoggingRules debug("gui.lib.dbsettings.debug=true");
    DBSettingsGroup page(2);
    addLeaf(*addJsonGroup(page, "PT_JSON", nullptr), newEditor(nullptr, "min_len", 8));

    const CapturedMessages messages;
    page.parameters();
    QCOMPARE(messages.count(), 3);
    checkMessage(messages.all()[0], 36, groupFunction, R"(QHash(("min_len", "8")))");
    checkMessage(messages.all()[1], 133, jsonFunction, R"(QHash(("min_len", QVariant(QString, "8"))))");
    checkMessage(messages.all()[2], 36, groupFunction, R"(QHash(("PT_JSON", "{\n    \"min_len\": \"8\"\n}\n")))");
}

void TestJsonGroup::silentWithoutDebugLevel()
{
    const LoggingRules withoutDebug("gui.lib.dbsettings.debug=false");
    JsonGroup group;
    group.setKey("PT_JSON");
    addLeaf(group, newEditor(nullptr, "min_len", 8));

    const CapturedMessages messages;
    QCOMPARE(group.parameters(), (OBJECT_PARAMETERS{{"PT_JSON", "{\n    \"min_len\": \"8\"\n}\n"}}));
    QCOMPARE(messages.texts(), QStringList());
}

QTEST_MAIN(TestJsonGroup)
#include "tst_jsongroup.moc"
