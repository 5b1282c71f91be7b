#include <vxsettings/dblineeditwidget.h>

#include "editorprobe.h"
#include "messages.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

class TestDBLineEditWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void metaObjectAddsOnlyTheName() { compareMetaObject(DBLineEditWidget::staticMetaObject, "DBLineEditWidget"); }
    void freshEditor();
    void captionIsOnTheFrame();

    void setValueShowsTheText_data();
    void setValueShowsTheText();
    void setValueIsSilent();
    void setValueShowsBeforeItStores();
    void typingAnnouncesEachKey();
    void pastingAnnouncesOnce();
    void deletingToNothing();
    void revertShowsTheStoredText();
    void revertIsSilent();
    void commitCanBeDisconnectedByText();

    void readOnlyTextCannotBeTyped();
    void disabledEditCannotBeTyped();
    void otherOperationsDoNothing();
    void brokenSlotDoesNothing_data() { addBrokenSlotRows(); }
    void brokenSlotDoesNothing();
};

namespace {

QLineEdit *lineEdit(const DBParamWidget &editor)
{
    return qobject_cast<QLineEdit *>(editor.centralWidget());
}

bool show(DBParamWidget &editor)
{
    editor.setKey("PT_SERVER");
    editor.show();
    return QTest::qWaitForWindowExposed(&editor);
}
} // namespace

void TestDBLineEditWidget::freshEditor()
{
    QWidget page;
    const Bared<DBLineEditWidget> editor(&page);
    QCOMPARE(editor.parentWidget(), &page);
    QCOMPARE(editor.centralWidget()->metaObject()->className(), "QLineEdit");
    QCOMPARE(lineEdit(editor)->echoMode(), QLineEdit::Normal);
    QVERIFY(!lineEdit(editor)->isReadOnly());
    QCOMPARE(described(editor.value()), QString("QString "));
    QVERIFY(!editor.storedValue().isValid());
}

void TestDBLineEditWidget::captionIsOnTheFrame()
{
    DBLineEditWidget editor(nullptr);
    QVERIFY(editor.canChangeLabelPosition());
    editor.setName("Сервер");
    QCOMPARE(editor.findChild<QLabel *>("leftLabel")->text(), QString("Сервер"));
    QVERIFY(!editor.findChild<QLabel *>("leftLabel")->isHidden());
    QCOMPARE(lineEdit(editor)->text(), QString(""));
}

void TestDBLineEditWidget::setValueShowsTheText_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << QVariant("https://example.org") << "https://example.org";
    QTest::newRow("blanks stay") << QVariant("  a b ") << "  a b ";
    QTest::newRow("empty text") << QVariant("") << "";
    QTest::newRow("null text") << QVariant(QString()) << "";
    QTest::newRow("number") << QVariant(-8) << "-8";
    QTest::newRow("huge number") << QVariant(Q_UINT64_C(18446744073709551615)) << "18446744073709551615";
    QTest::newRow("truth") << QVariant(true) << "true";
    QTest::newRow("bytes") << QVariant(QByteArray("bytes")) << "bytes";
    QTest::newRow("invalid") << QVariant() << "";
    QTest::newRow("map") << QVariant(QVariantMap{{"a", 1}}) << "";
}

void TestDBLineEditWidget::setValueShowsTheText()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    Bared<DBLineEditWidget> editor(nullptr);
    editor.setValue("before");
    editor.setValue(value);
    QCOMPARE(lineEdit(editor)->text(), text);
    QCOMPARE(described(editor.value()), "QString " + text);
    QCOMPARE(described(editor.storedValue()), described(value));
}

void TestDBLineEditWidget::setValueIsSilent()
{
    DBLineEditWidget editor(nullptr);
    HeardSignals heard(editor);
    editor.setValue("a");
    editor.setValue("b");
    QCOMPARE(heard.take(), QStringList());
}

void TestDBLineEditWidget::setValueShowsBeforeItStores()
{
    Bared<DBLineEditWidget> editor(nullptr);
    editor.setValue("old");
    QString storedMeanwhile;
    connect(lineEdit(editor), &QLineEdit::textChanged, this,
            [&] { storedMeanwhile = described(editor.storedValue()); });
    editor.setValue("new");
    QCOMPARE(storedMeanwhile, QString("QString old"));
    QCOMPARE(described(editor.storedValue()), QString("QString new"));
}

void TestDBLineEditWidget::typingAnnouncesEachKey()
{
    Bared<DBLineEditWidget> editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue("a");
    HeardSignals heard(editor);
    QTest::keyClicks(lineEdit(editor), "bc");
    QCOMPARE(heard.take(), QStringList({"PT_SERVER: QString ab", "commit", "PT_SERVER: QString abc", "commit"}));
    QCOMPARE(described(editor.value()), QString("QString abc"));
    QCOMPARE(described(editor.storedValue()), QString("QString a"));
}

void TestDBLineEditWidget::pastingAnnouncesOnce()
{
    DBLineEditWidget editor(nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    QGuiApplication::clipboard()->setText("pasted");
    QTest::keySequence(lineEdit(editor), QKeySequence::Paste);
    QCOMPARE(heard.take(), QStringList({"PT_SERVER: QString pasted", "commit"}));
}

void TestDBLineEditWidget::deletingToNothing()
{
    DBLineEditWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue("a");
    HeardSignals heard(editor);
    QTest::keyClick(lineEdit(editor), Qt::Key_Backspace);
    QCOMPARE(heard.take(), QStringList({"PT_SERVER: QString ", "commit"}));
    QTest::keyClick(lineEdit(editor), Qt::Key_Backspace);
    QCOMPARE(heard.take(), QStringList());
}

void TestDBLineEditWidget::revertShowsTheStoredText()
{
    Bared<DBLineEditWidget> editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue(25);
    QTest::keyClicks(lineEdit(editor), "7");
    QVERIFY(QMetaObject::invokeMethod(&editor, "setDefaultValue"));
    QCOMPARE(described(editor.value()), QString("QString 25"));
    QCOMPARE(described(editor.storedValue()), QString("int 25"));
}

void TestDBLineEditWidget::revertIsSilent()
{
    DBLineEditWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue("a");
    QTest::keyClicks(lineEdit(editor), "b");
    HeardSignals heard(editor);
    editor.setDefaultValue();
    QCOMPARE(heard.take(), QStringList());
    QTest::keyClicks(lineEdit(editor), "c");
    QCOMPARE(heard.take(), QStringList({"PT_SERVER: QString ac", "commit"}));
}

void TestDBLineEditWidget::commitCanBeDisconnectedByText()
{
    DBLineEditWidget editor(nullptr);
    QVERIFY(show(editor));
    QVERIFY(disconnect(lineEdit(editor), SIGNAL(textEdited(QString)), &editor, SIGNAL(commitData())));
    QVERIFY(!disconnect(lineEdit(editor), SIGNAL(textEdited(QString)), &editor, SIGNAL(commitData())));
    HeardSignals heard(editor);
    QTest::keyClicks(lineEdit(editor), "a");
    QCOMPARE(heard.take(), QStringList("PT_SERVER: QString a"));
}

void TestDBLineEditWidget::readOnlyTextCannotBeTyped()
{
    DBLineEditWidget editor(nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    static_cast<DBParamWidget &>(editor).setReadOnly(true);
    QVERIFY(editor.isReadOnly());
    QVERIFY(lineEdit(editor)->isReadOnly());
    QVERIFY(lineEdit(editor)->isEnabled());
    QTest::keyClicks(lineEdit(editor), "a");
    QCOMPARE(heard.take(), QStringList());
    editor.setValue("set by program");
    QCOMPARE(lineEdit(editor)->text(), QString("set by program"));

    editor.setReadOnly(false);
    QVERIFY(!editor.isReadOnly());
    QTest::keyClicks(lineEdit(editor), "!");
    QCOMPARE(heard.take(), QStringList({"PT_SERVER: QString set by program!", "commit"}));
}

void TestDBLineEditWidget::disabledEditCannotBeTyped()
{
    DBLineEditWidget editor(nullptr);
    QVERIFY(show(editor));
    static_cast<DBParamWidget &>(editor).setEnabled(false);
    QVERIFY(!editor.isEnabled());
    QVERIFY(!lineEdit(editor)->isEnabled());
    QVERIFY(editor.QWidget::isEnabled());
    QVERIFY(!lineEdit(editor)->isReadOnly());
    QTest::keyClicks(lineEdit(editor), "a");
    QCOMPARE(lineEdit(editor)->text(), QString(""));

    editor.setEnabled(true);
    QVERIFY(editor.isEnabled());
    QVERIFY(lineEdit(editor)->isEnabled());
}

void TestDBLineEditWidget::otherOperationsDoNothing()
{
    DBLineEditWidget editor(nullptr);
    editor.setValue("text");
    HeardSignals heard(editor);
    editor.inverted = true;
    editor.setParamValues({{1, "one"}});
    editor.setParamRange({0, 1});
    editor.setSpecialValue("special");
    QCOMPARE(described(editor.value()), QString("QString text"));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBLineEditWidget::brokenSlotDoesNothing()
{
    QFETCH(BrokenSlot, brokenSlot);
    Bared<DBLineEditWidget> editor(nullptr);
    editor.setValue("before");
    QWidget *input = breakSlot<QPlainTextEdit>(editor, brokenSlot);
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
        QCOMPARE(input->property("readOnly"), QVariant(false));
    }
    if (const auto *renamed = qobject_cast<QLineEdit *>(input))
        QCOMPARE(renamed->text(), QString("before"));
}

QTEST_MAIN(TestDBLineEditWidget)
#include "tst_dblineeditwidget.moc"
