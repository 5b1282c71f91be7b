#include <vxsettings/dbbuttonwidget.h>

#include "doublingtranslator.h"
#include "editorprobe.h"
#include "messages.h"
#include "translation.h"

#include <vxwidgets/passwordedit.h>
#include <vxwidgets/smartcardkeydialog.h>
#include <vxwidgets/userdatabutton.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QTimer>

#include <functional>

Q_DECLARE_METATYPE(std::function<void(SmartCardKeyDialog *)>)

class TestDBButtonWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void metaObjectAddsOnlyTheName() { compareMetaObject(DBButtonWidget::staticMetaObject, "DBButtonWidget"); }
    void freshEditor();
    void buttonTextIsTranslated();
    void captionIsOnTheFrame();

    void setValueKeepsWhatItGets_data();
    void setValueKeepsWhatItGets();
    void setValueIsSilent();
    void revertIsSilent();

    void clickOpensAModalDialog();
    void dialogShowsTheValueAsText_data();
    void dialogShowsTheValueAsText();
    void acceptingTakesTheKey_data();
    void acceptingTakesTheKey();
    void acceptingTheSameKeySignalsAgain();
    void anythingElseChangesNothing_data();
    void anythingElseChangesNothing();
    void keyboardOpensTheDialog();
    void keyIsSetBeforeTheSignals();
    void dialogLivesThroughTheSignals();
    void dialogIsGoneAfterwards();
    void nextDialogShowsTheAcceptedKey();

    void pageMayGoWhileTheDialogIsOpen();
    void buttonMayGoWhileTheDialogIsOpen();
    void dialogMayGoByItself();
    void handlerMayDeleteTheEditor();

    void disabledButtonOpensNothing();
    void readOnlyIsOnlyAFlag();
    void otherOperationsDoNothing();
    void brokenSlotDoesNothing_data() { addBrokenSlotRows(); }
    void brokenSlotDoesNothing();
    void renamedButtonStillEditsItsKey();
};

namespace {

using DialogAction = std::function<void(SmartCardKeyDialog *)>;

UserDataButton *button(const DBParamWidget &editor)
{
    return qobject_cast<UserDataButton *>(editor.centralWidget());
}

PasswordEdit *keyEdit(const SmartCardKeyDialog *dialog)
{
    return dialog->findChild<PasswordEdit *>();
}

QPushButton *dialogButton(const SmartCardKeyDialog *dialog, QDialogButtonBox::StandardButton which)
{
    return dialog->findChild<QDialogButtonBox *>()->button(which);
}

bool show(DBParamWidget &editor)
{
    editor.setKey("PT_SMARTCARD_KEY");
    editor.show();
    return QTest::qWaitForWindowExposed(&editor);
}

/// Does for the user what is to be done in the key dialog: runs @p action as soon as the dialog is open, and cancels it
/// if it is open still.
class DialogUser
{
public:
    explicit DialogUser(const DialogAction &action)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, action] {
            const QPointer<SmartCardKeyDialog> dialog =
                qobject_cast<SmartCardKeyDialog *>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            m_timer.stop();
            m_wasOpened = true;
            action(dialog);
            if (dialog && dialog->isVisible())
                dialog->reject();
        });
        m_timer.start(0);
    }
    bool wasOpened() const { return m_wasOpened; }

private:
    QTimer m_timer;
    bool m_wasOpened = false;
};

/// Clicks the button; answers whether the dialog came up. It is closed again when this returns.
bool editKey(const DBParamWidget &editor, const DialogAction &action)
{
    const DialogUser user(action);
    QTest::mouseClick(editor.centralWidget(), Qt::LeftButton);
    return user.wasOpened();
}

void typeKeyAndAccept(SmartCardKeyDialog *dialog, const QString &key)
{
    keyEdit(dialog)->selectAll();
    QTest::keyClicks(keyEdit(dialog), key);
    QTest::keyClick(keyEdit(dialog), Qt::Key_Return);
}
} // namespace

void TestDBButtonWidget::freshEditor()
{
    QWidget page;
    const Bared<DBButtonWidget> editor(&page);
    QCOMPARE(editor.parentWidget(), &page);
    QCOMPARE(editor.centralWidget()->metaObject()->className(), "UserDataButton");
    QCOMPARE(button(editor)->text(), QString("Изменить"));
    QVERIFY(!editor.value().isValid());
    QVERIFY(!editor.storedValue().isValid());
}

void TestDBButtonWidget::buttonTextIsTranslated()
{
    const InstalledTranslation english({{"DBButtonWidget", "Изменить", "Change"}});
    const DBButtonWidget editor(nullptr);
    QCOMPARE(button(editor)->text(), QString("Change"));
}

void TestDBButtonWidget::captionIsOnTheFrame()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(editor.canChangeLabelPosition());
    editor.setName("Ключ");
    QCOMPARE(editor.findChild<QLabel *>("leftLabel")->text(), QString("Ключ"));
    QVERIFY(!editor.findChild<QLabel *>("leftLabel")->isHidden());
    QCOMPARE(button(editor)->text(), QString("Изменить"));
}

void TestDBButtonWidget::setValueKeepsWhatItGets_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("description");
    QTest::newRow("key") << QVariant("A0A1A2A3A4A5") << "QString A0A1A2A3A4A5";
    QTest::newRow("no key") << QVariant("zzz") << "QString zzz";
    QTest::newRow("number") << QVariant(42) << "int 42";
    QTest::newRow("truth") << QVariant(true) << "bool true";
    QTest::newRow("invalid") << QVariant() << "invalid";
}

void TestDBButtonWidget::setValueKeepsWhatItGets()
{
    QFETCH(QVariant, value);
    QFETCH(QString, description);
    Bared<DBButtonWidget> editor(nullptr);
    editor.setValue("before");
    editor.setValue(value);
    QCOMPARE(described(button(editor)->property("userData")), description);
    QCOMPARE(described(editor.value()), description);
    QCOMPARE(described(editor.storedValue()), description);
}

void TestDBButtonWidget::setValueIsSilent()
{
    DBButtonWidget editor(nullptr);
    HeardSignals heard(editor);
    editor.setValue("a");
    editor.setValue("b");
    QCOMPARE(heard.take(), QStringList());
}

void TestDBButtonWidget::revertIsSilent()
{
    Bared<DBButtonWidget> editor(nullptr);
    editor.setValue("stored");
    button(editor)->setProperty("userData", "edited");
    QCOMPARE(described(editor.value()), QString("QString edited"));
    QCOMPARE(described(editor.storedValue()), QString("QString stored"));

    HeardSignals heard(editor);
    QVERIFY(QMetaObject::invokeMethod(&editor, "setDefaultValue"));
    QCOMPARE(described(editor.value()), QString("QString stored"));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBButtonWidget::clickOpensAModalDialog()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    QVERIFY(editKey(editor, [&](SmartCardKeyDialog *dialog) {
        QVERIFY(dialog->isVisible());
        QVERIFY(dialog->isModal());
        QCOMPARE(dialog->parentWidget(), button(editor));
    }));
}

void TestDBButtonWidget::dialogShowsTheValueAsText_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("key") << QVariant("A0A1A2A3A4A5") << "A0A1A2A3A4A5";
    QTest::newRow("no key") << QVariant("zzz") << "zzz";
    QTest::newRow("number") << QVariant(42) << "42";
    QTest::newRow("invalid") << QVariant() << "";
}

void TestDBButtonWidget::dialogShowsTheValueAsText()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue(value);
    QVERIFY(editKey(editor, [&](SmartCardKeyDialog *dialog) { QCOMPARE(keyEdit(dialog)->text(), text); }));
}

void TestDBButtonWidget::acceptingTakesTheKey_data()
{
    QTest::addColumn<DialogAction>("action");
    QTest::newRow("Return") << DialogAction([](auto *dialog) { typeKeyAndAccept(dialog, "B0B1B2B3B4B5"); });
    QTest::newRow("small letters") << DialogAction([](auto *dialog) { typeKeyAndAccept(dialog, "b0b1b2b3b4b5"); });
    QTest::newRow("click on OK") << DialogAction([](auto *dialog) {
        keyEdit(dialog)->selectAll();
        QTest::keyClicks(keyEdit(dialog), "B0B1B2B3B4B5");
        QTest::mouseClick(dialogButton(dialog, QDialogButtonBox::Ok), Qt::LeftButton);
    });
    QTest::newRow("by program") << DialogAction([](auto *dialog) {
        dialog->setKey("B0B1B2B3B4B5");
        dialog->done(1);
    });
}

void TestDBButtonWidget::acceptingTakesTheKey()
{
    QFETCH(DialogAction, action);
    Bared<DBButtonWidget> editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue("A0A1A2A3A4A5");
    HeardSignals heard(editor);
    QVERIFY(editKey(editor, action));
    QCOMPARE(heard.take(), QStringList({"PT_SMARTCARD_KEY: QString B0B1B2B3B4B5", "commit"}));
    QCOMPARE(described(button(editor)->property("userData")), QString("QString B0B1B2B3B4B5"));
    QCOMPARE(described(editor.value()), QString("QString B0B1B2B3B4B5"));
    QCOMPARE(described(editor.storedValue()), QString("QString A0A1A2A3A4A5"));

    editor.setDefaultValue();
    QCOMPARE(described(editor.value()), QString("QString A0A1A2A3A4A5"));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBButtonWidget::acceptingTheSameKeySignalsAgain()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue("A0A1A2A3A4A5");
    HeardSignals heard(editor);
    for (int round = 0; round < 2; ++round) {
        QVERIFY(editKey(editor, [](auto *dialog) { QTest::keyClick(keyEdit(dialog), Qt::Key_Return); }));
        QCOMPARE(heard.take(), QStringList({"PT_SMARTCARD_KEY: QString A0A1A2A3A4A5", "commit"}));
    }
}

void TestDBButtonWidget::anythingElseChangesNothing_data()
{
    QTest::addColumn<DialogAction>("action");
    QTest::newRow("Escape") << DialogAction([](auto *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    QTest::newRow("click on Cancel") << DialogAction(
        [](auto *dialog) { QTest::mouseClick(dialogButton(dialog, QDialogButtonBox::Cancel), Qt::LeftButton); });
    QTest::newRow("window closed") << DialogAction([](auto *dialog) { dialog->close(); });
    QTest::newRow("a result that is neither") << DialogAction([](auto *dialog) { dialog->done(2); });
    QTest::newRow("hidden") << DialogAction([](auto *dialog) { dialog->hide(); });
}

void TestDBButtonWidget::anythingElseChangesNothing()
{
    QFETCH(DialogAction, action);
    Bared<DBButtonWidget> editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue(42);
    HeardSignals heard(editor);
    QVERIFY(editKey(editor, [action](auto *dialog) {
        keyEdit(dialog)->selectAll();
        QTest::keyClicks(keyEdit(dialog), "B0B1B2B3B4B5");
        action(dialog);
    }));
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(described(editor.value()), QString("int 42"));
    QCOMPARE(described(editor.storedValue()), QString("int 42"));
}

void TestDBButtonWidget::keyboardOpensTheDialog()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    const DialogUser user([](auto *dialog) { typeKeyAndAccept(dialog, "B0B1B2B3B4B5"); });
    QTest::keyClick(button(editor), Qt::Key_Space);
    QVERIFY(user.wasOpened());
    QCOMPARE(heard.take(), QStringList({"PT_SMARTCARD_KEY: QString B0B1B2B3B4B5", "commit"}));
}

void TestDBButtonWidget::keyIsSetBeforeTheSignals()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    QString shownMeanwhile;
    connect(&editor, &DBParamWidget::paramChanged, this, [&] { shownMeanwhile = described(editor.value()); });
    QVERIFY(editKey(editor, [](auto *dialog) { typeKeyAndAccept(dialog, "B0B1B2B3B4B5"); }));
    QCOMPARE(shownMeanwhile, QString("QString B0B1B2B3B4B5"));
}

void TestDBButtonWidget::dialogLivesThroughTheSignals()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    QStringList alive;
    connect(&editor, &DBParamWidget::paramChanged, this, [&] {
        if (button(editor)->findChild<SmartCardKeyDialog *>())
            alive << "changed";
    });
    connect(&editor, &DBParamWidget::commitData, this, [&] {
        if (button(editor)->findChild<SmartCardKeyDialog *>())
            alive << "commit";
    });
    QVERIFY(editKey(editor, [](auto *dialog) { typeKeyAndAccept(dialog, "B0B1B2B3B4B5"); }));
    QCOMPARE(alive, QStringList({"changed", "commit"}));
}

void TestDBButtonWidget::dialogIsGoneAfterwards()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    QPointer<SmartCardKeyDialog> last;
    QVERIFY(editKey(editor, [&](auto *dialog) {
        last = dialog;
        typeKeyAndAccept(dialog, "B0B1B2B3B4B5");
    }));
    QVERIFY(!last);
    QVERIFY(editKey(editor, [&](auto *dialog) {
        last = dialog;
        QTest::keyClick(dialog, Qt::Key_Escape);
    }));
    QVERIFY(!last);
}

void TestDBButtonWidget::nextDialogShowsTheAcceptedKey()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue("A0A1A2A3A4A5");
    QVERIFY(editKey(editor, [](auto *dialog) { typeKeyAndAccept(dialog, "B0B1B2B3B4B5"); }));
    QVERIFY(editKey(editor, [](auto *dialog) { QCOMPARE(keyEdit(dialog)->text(), QString("B0B1B2B3B4B5")); }));
}

void TestDBButtonWidget::pageMayGoWhileTheDialogIsOpen()
{
    const QPointer<QWidget> page = new QWidget;
    auto *editor = new DBButtonWidget(page);
    page->show();
    QVERIFY(QTest::qWaitForWindowExposed(page));
    HeardSignals heard(*editor);
    QPointer<SmartCardKeyDialog> opened;
    QVERIFY(editKey(*editor, [&](auto *dialog) {
        opened = dialog;
        delete page;
    }));
    QVERIFY(!opened);
    QCOMPARE(heard.take(), QStringList());
}

void TestDBButtonWidget::buttonMayGoWhileTheDialogIsOpen()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    QVERIFY(editKey(editor, [&](auto *) { delete button(editor); }));
    QVERIFY(!editor.centralWidget());
    QCOMPARE(heard.take(), QStringList());
}

void TestDBButtonWidget::dialogMayGoByItself()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue("A0A1A2A3A4A5");
    HeardSignals heard(editor);
    QVERIFY(editKey(editor, [](auto *dialog) { delete dialog; }));
    QCOMPARE(described(editor.value()), QString("QString A0A1A2A3A4A5"));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBButtonWidget::handlerMayDeleteTheEditor()
{
    const QPointer<DBButtonWidget> editor = new DBButtonWidget(nullptr);
    QVERIFY(show(*editor));
    connect(editor, &DBParamWidget::paramChanged, this, [&] { delete editor; });
    HeardSignals heard(*editor);
    QVERIFY(editKey(*editor, [](auto *dialog) { typeKeyAndAccept(dialog, "B0B1B2B3B4B5"); }));
    QVERIFY(!editor);
    QVERIFY(!heard.take().contains("commit"));
}

void TestDBButtonWidget::disabledButtonOpensNothing()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    static_cast<DBParamWidget &>(editor).setEnabled(false);
    QVERIFY(!editor.isEnabled());
    QVERIFY(!button(editor)->isEnabled());
    QVERIFY(editor.QWidget::isEnabled());
    QVERIFY(!editKey(editor, [](auto *) {}));

    editor.setEnabled(true);
    QVERIFY(editor.isEnabled());
    QVERIFY(editKey(editor, [](auto *) {}));
}

void TestDBButtonWidget::readOnlyIsOnlyAFlag()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setReadOnly(true);
    QVERIFY(editor.isReadOnly());
    QVERIFY(editKey(editor, [](auto *dialog) { typeKeyAndAccept(dialog, "B0B1B2B3B4B5"); }));
    QCOMPARE(described(editor.value()), QString("QString B0B1B2B3B4B5"));
}

void TestDBButtonWidget::otherOperationsDoNothing()
{
    DBButtonWidget editor(nullptr);
    editor.setValue("text");
    HeardSignals heard(editor);
    editor.inverted = true;
    editor.setParamValues({{1, "one"}});
    editor.setParamRange({0, 1});
    editor.setSpecialValue("special");
    QCOMPARE(described(editor.value()), QString("QString text"));
    QCOMPARE(button(editor)->text(), QString("Изменить"));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBButtonWidget::brokenSlotDoesNothing()
{
    QFETCH(BrokenSlot, brokenSlot);
    Bared<DBButtonWidget> editor(nullptr);
    editor.setValue("before");
    QWidget *input = breakSlot<QPushButton>(editor, brokenSlot);
    const QString description = input ? described(input->property("userData")) : QString();
    const QString caption = input ? input->property("text").toString() : QString();
    HeardSignals heard(editor);

    {
        const DoublingTranslator other;
        editor.retranslate();
    }
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
        QCOMPARE(described(input->property("userData")), description);
        QCOMPARE(input->property("text").toString(), caption);
    }
}

/// The click knows its button without looking for it.
void TestDBButtonWidget::renamedButtonStillEditsItsKey()
{
    DBButtonWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue("A0A1A2A3A4A5");
    UserDataButton *renamed = button(editor);
    renamed->setObjectName("renamed");
    HeardSignals heard(editor);
    const DialogUser user([](auto *dialog) { typeKeyAndAccept(dialog, "B0B1B2B3B4B5"); });
    QTest::mouseClick(renamed, Qt::LeftButton);
    QVERIFY(user.wasOpened());
    QCOMPARE(heard.take(), QStringList({"PT_SMARTCARD_KEY: QString B0B1B2B3B4B5", "commit"}));
    QCOMPARE(described(renamed->property("userData")), QString("QString B0B1B2B3B4B5"));
    QVERIFY(!editor.value().isValid());
}

QTEST_MAIN(TestDBButtonWidget)
#include "tst_dbbuttonwidget.moc"
