#include <vxsettings/dbpasswordwidget.h>

#include "editorprobe.h"
#include "messages.h"

#include <vxwidgets/passwordedit.h>

#include <QLabel>

class TestDBPasswordWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void metaObjectAddsOnlyTheName() { compareMetaObject(DBPasswordWidget::staticMetaObject, "DBPasswordWidget"); }
    void freshEditor();
    void editTakesTheWidthThereIs();
    void captionIsOnTheFrame();

    void setValueFillsTheEdit_data();
    void setValueFillsTheEdit();
    void setValueIsSilent();
    void setValueShowsBeforeItStores();
    void typingAnnouncesEachKey();
    void revertIsSilent();
    void commitCanBeDisconnectedByText();

    void readOnlyPasswordCannotBeTyped();
    void disabledEditCannotBeTyped();
    void otherOperationsDoNothing();
    void brokenSlotDoesNothing_data() { addBrokenSlotRows(); }
    void brokenSlotDoesNothing();
};

namespace {

PasswordEdit *passwordEdit(const DBParamWidget &editor)
{
    return qobject_cast<PasswordEdit *>(editor.centralWidget());
}

bool show(DBParamWidget &editor)
{
    editor.setKey("PT_TOKEN");
    editor.show();
    return QTest::qWaitForWindowExposed(&editor);
}
} // namespace

void TestDBPasswordWidget::freshEditor()
{
    QWidget page;
    const Bared<DBPasswordWidget> editor(&page);
    QCOMPARE(editor.parentWidget(), &page);
    QCOMPARE(editor.centralWidget()->metaObject()->className(), "PasswordEdit");
    QCOMPARE(passwordEdit(editor)->echoMode(), QLineEdit::Password);
    QVERIFY(!passwordEdit(editor)->isReadOnly());
    QCOMPARE(described(editor.value()), QString("QString "));
    QVERIFY(!editor.storedValue().isValid());
}

void TestDBPasswordWidget::editTakesTheWidthThereIs()
{
    const DBPasswordWidget editor(nullptr);
    QCOMPARE(passwordEdit(editor)->minimumWidth(), 300);
    QCOMPARE(passwordEdit(editor)->minimumHeight(), 0);
    const QSizePolicy policy = passwordEdit(editor)->sizePolicy();
    QCOMPARE(policy.horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(policy.verticalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(policy.horizontalStretch(), 0);
    QCOMPARE(policy.verticalStretch(), 0);
}

void TestDBPasswordWidget::captionIsOnTheFrame()
{
    DBPasswordWidget editor(nullptr);
    QVERIFY(editor.canChangeLabelPosition());
    editor.setName("Токен");
    QCOMPARE(editor.findChild<QLabel *>("leftLabel")->text(), QString("Токен"));
    QVERIFY(!editor.findChild<QLabel *>("leftLabel")->isHidden());
}

void TestDBPasswordWidget::setValueFillsTheEdit_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << QVariant("s3cret Ж") << "s3cret Ж";
    QTest::newRow("empty text") << QVariant("") << "";
    QTest::newRow("number") << QVariant(1234) << "1234";
    QTest::newRow("invalid") << QVariant() << "";
    QTest::newRow("list of texts") << QVariant(QStringList({"a", "b"})) << "";
}

void TestDBPasswordWidget::setValueFillsTheEdit()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    Bared<DBPasswordWidget> editor(nullptr);
    editor.setValue("before");
    editor.setValue(value);
    QCOMPARE(passwordEdit(editor)->text(), text);
    QCOMPARE(described(editor.value()), "QString " + text);
    QCOMPARE(described(editor.storedValue()), described(value));
}

void TestDBPasswordWidget::setValueIsSilent()
{
    DBPasswordWidget editor(nullptr);
    HeardSignals heard(editor);
    editor.setValue("a");
    editor.setValue("b");
    QCOMPARE(heard.take(), QStringList());
}

void TestDBPasswordWidget::setValueShowsBeforeItStores()
{
    Bared<DBPasswordWidget> editor(nullptr);
    editor.setValue("old");
    QString storedMeanwhile;
    connect(passwordEdit(editor), &QLineEdit::textChanged, this,
            [&] { storedMeanwhile = described(editor.storedValue()); });
    editor.setValue("new");
    QCOMPARE(storedMeanwhile, QString("QString old"));
    QCOMPARE(described(editor.storedValue()), QString("QString new"));
}

void TestDBPasswordWidget::typingAnnouncesEachKey()
{
    Bared<DBPasswordWidget> editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue("a");
    HeardSignals heard(editor);
    QTest::keyClicks(passwordEdit(editor), "bc");
    QCOMPARE(heard.take(), QStringList({"PT_TOKEN: QString ab", "commit", "PT_TOKEN: QString abc", "commit"}));
    QCOMPARE(described(editor.value()), QString("QString abc"));
    QCOMPARE(described(editor.storedValue()), QString("QString a"));
    QVERIFY(!passwordEdit(editor)->displayText().contains('a'));
}

void TestDBPasswordWidget::revertIsSilent()
{
    DBPasswordWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue("a");
    QTest::keyClicks(passwordEdit(editor), "b");
    HeardSignals heard(editor);
    QVERIFY(QMetaObject::invokeMethod(&editor, "setDefaultValue"));
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(described(editor.value()), QString("QString a"));
    QTest::keyClicks(passwordEdit(editor), "c");
    QCOMPARE(heard.take(), QStringList({"PT_TOKEN: QString ac", "commit"}));
}

void TestDBPasswordWidget::commitCanBeDisconnectedByText()
{
    DBPasswordWidget editor(nullptr);
    QVERIFY(show(editor));
    QVERIFY(disconnect(passwordEdit(editor), SIGNAL(textEdited(QString)), &editor, SIGNAL(commitData())));
    QVERIFY(!disconnect(passwordEdit(editor), SIGNAL(textEdited(QString)), &editor, SIGNAL(commitData())));
    HeardSignals heard(editor);
    QTest::keyClicks(passwordEdit(editor), "a");
    QCOMPARE(heard.take(), QStringList("PT_TOKEN: QString a"));
}

void TestDBPasswordWidget::readOnlyPasswordCannotBeTyped()
{
    DBPasswordWidget editor(nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    static_cast<DBParamWidget &>(editor).setReadOnly(true);
    QVERIFY(editor.isReadOnly());
    QVERIFY(passwordEdit(editor)->isReadOnly());
    QTest::keyClicks(passwordEdit(editor), "a");
    QCOMPARE(heard.take(), QStringList());

    editor.setReadOnly(false);
    QVERIFY(!editor.isReadOnly());
    QTest::keyClicks(passwordEdit(editor), "a");
    QCOMPARE(heard.take(), QStringList({"PT_TOKEN: QString a", "commit"}));
}

void TestDBPasswordWidget::disabledEditCannotBeTyped()
{
    DBPasswordWidget editor(nullptr);
    QVERIFY(show(editor));
    static_cast<DBParamWidget &>(editor).setEnabled(false);
    QVERIFY(!editor.isEnabled());
    QVERIFY(!passwordEdit(editor)->isEnabled());
    QVERIFY(editor.QWidget::isEnabled());
    QTest::keyClicks(passwordEdit(editor), "a");
    QCOMPARE(passwordEdit(editor)->text(), QString(""));

    editor.setEnabled(true);
    QVERIFY(editor.isEnabled());
    QVERIFY(passwordEdit(editor)->isEnabled());
}

void TestDBPasswordWidget::otherOperationsDoNothing()
{
    DBPasswordWidget editor(nullptr);
    editor.setValue("text");
    HeardSignals heard(editor);
    editor.inverted = true;
    editor.setParamValues({{1, "one"}});
    editor.setParamRange({0, 1});
    editor.setSpecialValue("special");
    QCOMPARE(described(editor.value()), QString("QString text"));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBPasswordWidget::brokenSlotDoesNothing()
{
    QFETCH(BrokenSlot, brokenSlot);
    Bared<DBPasswordWidget> editor(nullptr);
    editor.setValue("before");
    auto *input = static_cast<QLineEdit *>(breakSlot<QLineEdit>(editor, brokenSlot));
    const QString text = input ? input->text() : QString();
    HeardSignals heard(editor);

    editor.setValue("after");
    QCOMPARE(described(editor.storedValue()), QString("QString before"));
    QVERIFY(!editor.value().isValid());
    editor.setDefaultValue();
    editor.setReadOnly(true);
    QVERIFY(editor.isReadOnly());
    editor.setEnabled(false);
    QVERIFY(!editor.isEnabled());

    QCOMPARE(heard.take(), QStringList());
    if (input) {
        QVERIFY(input->isEnabled());
        QVERIFY(!input->isReadOnly());
        QCOMPARE(input->text(), text);
    }
}

QTEST_MAIN(TestDBPasswordWidget)
#include "tst_dbpasswordwidget.moc"
