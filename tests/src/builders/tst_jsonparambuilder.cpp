#include "builders/jsonparambuilder.h"
#include "debuglines.h"
#include "localencoding.h"
#include "loggingrules.h"
#include "messages.h"
#include "probeeditor.h"
#include "storedsettings.h"

#include <vxsettings/dbkeys.h>

#include <QPointer>

using namespace db::database;

namespace {

/// What an editor is given for "min_len" of the PIN complexity.
QVariant valueOfMinLen()
{
    QWidget page;
    JsonParamBuilder builder(DBGroups::PinStrength, json::MIN_LEN, &page, &page);
    auto *editor = new ProbeEditor;
    editor->setValue("nothing was given");
    builder.setParamWidget(editor).createWidget().createValue();
    return editor->value();
}

/// An object of that many levels, itself included.
QString nested(int levels)
{
    return "{\"min_len\": " + QString(levels - 1, '[') + QString(levels - 1, ']') + '}';
}
} // namespace

class TestJsonParamBuilder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void memberIsHandedOverInItsType_data();
    void memberIsHandedOverInItsType();
    void unreadableMemberIsInvalid_data();
    void unreadableMemberIsInvalid();
    void missingTextIsInvalid();
    void localEncodingDecides_data();
    void localEncodingDecides();
    void memberIsNoStoredKey();
    void objectBelongsToTheGroup_data();
    void objectBelongsToTheGroup();
    void valueBeforeTheWidgetDoesNothing();
    void nothingIsCachedBetweenBuilders();
    void nothingIsCachedWithinABuilder();
    void valueIsLogged();
    void valueOfAMissingMemberIsLogged();
    void nothingIsLoggedWithDebugOff();
    void inversionIsCleared();
    void inversionBeforeTheWidgetDoesNothing();
    void otherStepsAreThoseOfAPlainParameter();
    void boundEditorDiesWithTheBuilder();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

void TestJsonParamBuilder::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestJsonParamBuilder::memberIsHandedOverInItsType_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("whole number") << "{\"min_len\": 8}" << QVariant(qlonglong(8));
    QTest::newRow("negative number") << "{\"min_len\": -8}" << QVariant(qlonglong(-8));
    QTest::newRow("larger than an int") << "{\"min_len\": 2147483648}" << QVariant(qlonglong(2147483648));
    QTest::newRow("fraction") << "{\"min_len\": 8.5}" << QVariant(8.5);
    QTest::newRow("very large number") << "{\"min_len\": 1e300}" << QVariant(1e300);
    QTest::newRow("true") << "{\"min_len\": true}" << QVariant(true);
    QTest::newRow("false") << "{\"min_len\": false}" << QVariant(false);
    QTest::newRow("digits as text") << "{\"min_len\": \"8\"}" << QVariant("8");
    QTest::newRow("empty text") << "{\"min_len\": \"\"}" << QVariant("");
    QTest::newRow("text beyond ASCII") << "{\"min_len\": \"восемь\"}" << QVariant("восемь");
    QTest::newRow("escaped text") << "{\"min_len\": \"\\u0432\\u043e\\n\"}" << QVariant("во\n");
    QTest::newRow("null") << "{\"min_len\": null}" << QVariant::fromValue(nullptr);
    QTest::newRow("array") << "{\"min_len\": [1, \"2\"]}" << QVariant(QVariantList{qlonglong(1), "2"});
    QTest::newRow("object") << "{\"min_len\": {\"a\": 1}}" << QVariant(QVariantMap{{"a", qlonglong(1)}});
    QTest::newRow("the last of two") << "{\"min_len\": 8, \"min_len\": 9}" << QVariant(qlonglong(9));
    QTest::newRow("among others") << "{\"max_len\": 1, \"min_len\": 8, \"nobody\": 2}" << QVariant(qlonglong(8));
    QTest::newRow("blanks around") << " \n{ \"min_len\" :\t8 }\r\n" << QVariant(qlonglong(8));
    QTest::newRow("after a megabyte") << "{\"a\": \"" + QString(1 << 20, 'x') + "\", \"min_len\": 8}"
                                      << QVariant(qlonglong(8));
}

void TestJsonParamBuilder::memberIsHandedOverInItsType()
{
    QFETCH(QString, text);
    QFETCH(QVariant, value);
    StoredSettings stored({{PIN_STRENGTH, text}});

    const QVariant given = valueOfMinLen();
    QCOMPARE(given.userType(), value.userType());
    QCOMPARE(given, value);
    QVERIFY(given.isValid());
}

void TestJsonParamBuilder::unreadableMemberIsInvalid_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("no such member") << "{\"max_len\": 8}";
    QTest::newRow("case differs") << "{\"MIN_LEN\": 8, \"Min_len\": 9}";
    QTest::newRow("deeper down only") << "{\"pin\": {\"min_len\": 8}}";
    QTest::newRow("no members") << "{}";
    QTest::newRow("empty text") << "";
    QTest::newRow("blanks") << "  \n";
    QTest::newRow("words") << "min_len";
    QTest::newRow("array") << "[{\"min_len\": 8}]";
    QTest::newRow("number") << "8";
    QTest::newRow("text") << "\"min_len\"";
    QTest::newRow("null") << "null";
    QTest::newRow("cut off") << "{\"min_len\": 8";
    QTest::newRow("something behind") << "{\"min_len\": 8} x";
    QTest::newRow("two objects") << "{\"min_len\": 8}{\"min_len\": 9}";
    QTest::newRow("single quotes") << "{'min_len': 8}";
    QTest::newRow("no quotes") << "{min_len: 8}";
    QTest::newRow("comma at the end") << "{\"min_len\": 8,}";
    QTest::newRow("comment") << "{\"min_len\": 8 /* digits */}";
    QTest::newRow("zero character") << QString::fromLatin1("{\"min_len\": 8\0}", 15);
    QTest::newRow("too many levels") << nested(1025);
    QTest::newRow("far too many levels") << nested(100000);
    QTest::newRow("levels that never close") << "{\"min_len\": " + QString(100000, '[');
}

void TestJsonParamBuilder::unreadableMemberIsInvalid()
{
    QFETCH(QString, text);
    StoredSettings stored({{PIN_STRENGTH, text}});
    QVERIFY(!valueOfMinLen().isValid());
}

void TestJsonParamBuilder::missingTextIsInvalid()
{
    StoredSettings stored({{PIN_STRENGTH.toLower(), "{\"min_len\": 8}"}, {PASSWORD_STRENGTH, "{\"min_len\": 9}"}});
    QVERIFY(!valueOfMinLen().isValid());
}

void TestJsonParamBuilder::localEncodingDecides_data()
{
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("UTF-8") << QByteArray("UTF-8") << QVariant("восемь");
    // An encoding without these letters has a question mark for each, one with them has no UTF-8 for the parser.
    QTest::newRow("Latin-1") << QByteArray("ISO-8859-1") << QVariant("??????");
    QTest::newRow("Cyrillic") << QByteArray("KOI8-R") << QVariant();
}

void TestJsonParamBuilder::localEncodingDecides()
{
    QFETCH(QByteArray, encoding);
    if (!LocalEncoding::canBe(encoding))
        QSKIP("Local texts are UTF-8, whatever the host says");
    StoredSettings stored({{PIN_STRENGTH, "{\"min_len\": \"восемь\"}"}});
    const LocalEncoding local(encoding);
    QTEST(valueOfMinLen(), "value");
}

void TestJsonParamBuilder::memberIsNoStoredKey()
{
    StoredSettings stored({{"min_len", "8"}});
    QVERIFY(!valueOfMinLen().isValid());
}

void TestJsonParamBuilder::objectBelongsToTheGroup_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("PIN") << 14 << QVariant("of the PIN");
    QTest::newRow("password") << 15 << QVariant("of the password");
    QTest::newRow("palms") << 16 << QVariant("of the palms");
    QTest::newRow("page") << 1 << QVariant();
    QTest::newRow("unassigned group") << 13 << QVariant();
    QTest::newRow("unknown group") << 99 << QVariant();
    QTest::newRow("negative group") << -1 << QVariant();
}

void TestJsonParamBuilder::objectBelongsToTheGroup()
{
    QFETCH(int, group);
    StoredSettings stored({{PIN_STRENGTH, "{\"min_len\": \"of the PIN\"}"},
                           {PASSWORD_STRENGTH, "{\"min_len\": \"of the password\"}"},
                           {PALM_TEMPLATES_AMOUNT_SETTINGS, "{\"min_len\": \"of the palms\"}"},
                           {"min_len", "of nobody"}});
    QWidget page;
    JsonParamBuilder builder(DBGroups(group), json::MIN_LEN, &page, &page);
    auto *editor = new ProbeEditor;
    editor->setValue("nothing was given");

    builder.setParamWidget(editor).createWidget().createValue();
    QTEST(editor->value(), "value");
}

void TestJsonParamBuilder::valueBeforeTheWidgetDoesNothing()
{
    StoredSettings stored({{PIN_STRENGTH, "{\"min_len\": 8}"}});
    QWidget page;
    JsonParamBuilder builder(DBGroups::PinStrength, json::MIN_LEN, &page, &page);
    auto *editor = new ProbeEditor;

    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    QCOMPARE(&builder.createValue(), &builder);
    QCOMPARE(&builder.setParamWidget(editor).createValue(), &builder);
    QCOMPARE(editor->traces(), QStringList());
    QCOMPARE(log.texts(), QStringList());
}

void TestJsonParamBuilder::nothingIsCachedBetweenBuilders()
{
    QWidget page;
    auto *first = new ProbeEditor;
    auto *second = new ProbeEditor;
    JsonParamBuilder firstBuilder(DBGroups::PinStrength, json::MIN_LEN, &page, &page);
    JsonParamBuilder secondBuilder(DBGroups::PinStrength, json::MAX_LEN, &page, &page);
    firstBuilder.setParamWidget(first).createWidget();
    secondBuilder.setParamWidget(second).createWidget();

    StoredSettings stored({{PIN_STRENGTH, "{\"min_len\": 1, \"max_len\": 2}"}});
    firstBuilder.createValue();
    StoredSettings changed({{PIN_STRENGTH, "{\"min_len\": 3, \"max_len\": 4}"}});
    secondBuilder.createValue();
    QCOMPARE(first->value(), QVariant(qlonglong(1)));
    QCOMPARE(second->value(), QVariant(qlonglong(4)));
}

void TestJsonParamBuilder::nothingIsCachedWithinABuilder()
{
    QWidget page;
    JsonParamBuilder builder(DBGroups::PinStrength, json::MIN_LEN, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget().createValue();
    QVERIFY(!editor->value().isValid());

    StoredSettings stored({{PIN_STRENGTH, "{\"min_len\": 1}"}});
    builder.createValue();
    QCOMPARE(editor->value(), QVariant(qlonglong(1)));
    StoredSettings broken({{PIN_STRENGTH, "{\"min_len\": 1"}});
    builder.createValue();
    QVERIFY(!editor->value().isValid());
}

void TestJsonParamBuilder::valueIsLogged()
{
    StoredSettings stored({{PIN_STRENGTH, "{\"min_len\": 61, \"max_len\": 72}"}});
    QWidget page;
    JsonParamBuilder builder(DBGroups::PinStrength, json::MIN_LEN, &page, &page);
    builder.setParamWidget(new ProbeEditor).createWidget();

    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    builder.createValue();
    const QStringList lines = debugLines(log);
    QCOMPARE(lines.count(), 2);
    QCOMPARE(lines[0], QString("\"PT_PIN_STRENGTH\" \"{\\\"min_len\\\": 61, \\\"max_len\\\": 72}\""));
    // The members of a hash come in any order.
    QVERIFY2(lines[1].startsWith("full json is QHash(("), qPrintable(lines[1]));
    QVERIFY2(lines[1].contains("(\"min_len\", QVariant(qlonglong, 61))"), qPrintable(lines[1]));
    QVERIFY2(lines[1].contains("(\"max_len\", QVariant(qlonglong, 72))"), qPrintable(lines[1]));
    QVERIFY2(lines[1].endsWith(") \"min_len\" QVariant(qlonglong, 61)"), qPrintable(lines[1]));
}

void TestJsonParamBuilder::valueOfAMissingMemberIsLogged()
{
    QWidget page;
    JsonParamBuilder builder(DBGroups::PinStrength, json::MIN_LEN, &page, &page);
    builder.setParamWidget(new ProbeEditor).createWidget();

    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    builder.createValue();
    QCOMPARE(debugLines(log),
             QStringList({"\"PT_PIN_STRENGTH\" \"\"", "full json is QHash() \"min_len\" QVariant(Invalid)"}));
}

void TestJsonParamBuilder::nothingIsLoggedWithDebugOff()
{
    StoredSettings stored({{PIN_STRENGTH, "{\"min_len\": 61"}});
    CapturedMessages log;
    valueOfMinLen();
    QCOMPARE(log.texts(), QStringList());
}

void TestJsonParamBuilder::inversionIsCleared()
{
    QWidget page;
    JsonParamBuilder builder(DBGroups::PasswordStrength, json::ADMIT_EMPTY_PASSWORD, &page, &page);
    auto *editor = new ProbeEditor;
    builder.setParamWidget(editor).createWidget();
    QCOMPARE(editor->inverted, true);
    QCOMPARE(&builder.createInvertedValue(), &builder);
    QCOMPARE(editor->inverted, false);
}

void TestJsonParamBuilder::inversionBeforeTheWidgetDoesNothing()
{
    QWidget page;
    JsonParamBuilder builder(DBGroups::PasswordStrength, json::ADMIT_EMPTY_PASSWORD, &page, &page);
    auto *editor = new ProbeEditor;
    QCOMPARE(&builder.createInvertedValue(), &builder);
    QCOMPARE(&builder.setParamWidget(editor).createInvertedValue(), &builder);
    QCOMPARE(editor->inverted, true);
}

void TestJsonParamBuilder::otherStepsAreThoseOfAPlainParameter()
{
    QWidget root;
    QWidget page;
    JsonParamBuilder builder(DBGroups::PalmTemplatesAmount, json::CONTACT_LEFT_PALM_MIN_AMOUNT, &root, &page);
    auto *editor = new ProbeEditor;
    QCOMPARE(builder.type(), DBSettingsType::SpinBox);
    builder.setParamWidget(editor).createWidget().createTitle().createKey().createParamValues().createParamRange();
    builder.createSpecialValue().setReadonly().createToolTip();

    QCOMPARE(editor->parentWidget(), &page);
    QCOMPARE(editor->name, QString("Минимальное количество левых ладоней"));
    QCOMPARE(editor->key(), QString("left_contact_palm_min"));
    QVERIFY(editor->choices.empty());
    QCOMPARE(editor->range, std::make_pair(2, 8));
    QCOMPARE(editor->specialValue, QString());
    QCOMPARE(editor->isReadOnly(), true);
    QCOMPARE(editor->toolTip(), QString());
    QCOMPARE(builder.getSettings()->widget().get(), editor);
}

void TestJsonParamBuilder::boundEditorDiesWithTheBuilder()
{
    QWidget page;
    QPointer<ProbeEditor> unbound = new ProbeEditor;
    QPointer<ProbeEditor> bound = new ProbeEditor;
    {
        JsonParamBuilder first(DBGroups::PinStrength, json::MIN_LEN, &page, &page);
        first.setParamWidget(unbound);
        JsonParamBuilder second(DBGroups::PinStrength, json::MIN_LEN, &page, &page);
        second.setParamWidget(bound).createWidget();
    }
    QVERIFY(unbound);
    QVERIFY(!bound);
}

QTEST_MAIN(TestJsonParamBuilder)
#include "tst_jsonparambuilder.moc"
