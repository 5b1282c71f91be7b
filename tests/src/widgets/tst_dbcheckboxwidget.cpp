#include <vxsettings/dbcheckboxwidget.h>

#include "editorprobe.h"
#include "messages.h"

#include <QLabel>
#include <QRadioButton>

class TestDBCheckBoxWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void metaObjectAddsOnlyTheName() { compareMetaObject(DBCheckBoxWidget::staticMetaObject, "DBCheckBoxWidget"); }
    void freshEditor();
    void captionIsOnTheBox();

    void setValueShowsTheTruth_data();
    void setValueShowsTheTruth();
    void setValueAnnouncesAndCommits();
    void setValueStoresBeforeItShows();
    void sameValueIsStoredSilently();
    void clicksAnnounceAndCommit();
    void spaceToggles();
    void invertedClickCarriesWhatIsShown();

    void revertAnnouncesWithoutACommit();
    void revertLeavesOneCommit();
    void revertOfAFreshEditorUnchecks();
    void invertedRevert();
    void commitCanBeDisconnectedByText();

    void disabledBoxCannotBeClicked();
    void readOnlyIsOnlyAFlag();
    void otherOperationsDoNothing();
    void brokenSlotDoesNothing_data() { addBrokenSlotRows(); }
    void brokenSlotDoesNothing();
};

namespace {

constexpr char key[] = "PT_ENABLE_FACE_SCANNING";

QCheckBox *checkBox(const DBParamWidget &editor)
{
    return qobject_cast<QCheckBox *>(editor.centralWidget());
}

QStringList labelTexts(const DBParamWidget &editor)
{
    QStringList texts;
    for (const char *name : {"leftLabel", "topLabel", "rightLabel", "bottomLabel"})
        texts << editor.findChild<QLabel *>(name)->text();
    return texts;
}

bool areLabelsHidden(const DBParamWidget &editor)
{
    for (const char *name : {"leftLabel", "topLabel", "rightLabel", "bottomLabel"}) {
        if (!editor.findChild<QLabel *>(name)->isHidden())
            return false;
    }
    return true;
}

bool show(DBParamWidget &editor)
{
    editor.setKey(key);
    editor.show();
    return QTest::qWaitForWindowExposed(&editor);
}
} // namespace

void TestDBCheckBoxWidget::freshEditor()
{
    QWidget page;
    const Bared<DBCheckBoxWidget> editor(&page);
    QCOMPARE(editor.parentWidget(), &page);
    QCOMPARE(editor.centralWidget()->metaObject()->className(), "QCheckBox");
    QVERIFY(!checkBox(editor)->isTristate());
    QCOMPARE(described(editor.value()), QString("bool false"));
    QVERIFY(!editor.storedValue().isValid());
    QVERIFY(!editor.inverted);
}

void TestDBCheckBoxWidget::captionIsOnTheBox()
{
    DBCheckBoxWidget editor(nullptr);
    QVERIFY(areLabelsHidden(editor));
    QVERIFY(!editor.canChangeLabelPosition());
    QVERIFY(!static_cast<DBParamWidget &>(editor).canChangeLabelPosition());

    static_cast<DBParamWidget &>(editor).setName("Проверять лицо");
    QCOMPARE(checkBox(editor)->text(), QString("Проверять лицо"));
    QCOMPARE(labelTexts(editor), QStringList({"TextLabel", "TextLabel", "TextLabel", "TextLabel"}));
    QVERIFY(areLabelsHidden(editor));
}

void TestDBCheckBoxWidget::setValueShowsTheTruth_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("truth");
    QTest::newRow("true") << QVariant(true) << true;
    QTest::newRow("false") << QVariant(false) << false;
    QTest::newRow("text 1") << QVariant("1") << true;
    QTest::newRow("text 0") << QVariant("0") << false;
    QTest::newRow("text true") << QVariant("true") << true;
    QTest::newRow("text false") << QVariant("false") << false;
    QTest::newRow("text False") << QVariant("False") << false;
    QTest::newRow("empty text") << QVariant("") << false;
    QTest::newRow("null text") << QVariant(QString()) << false;
    QTest::newRow("any other text") << QVariant("abc") << true;
    QTest::newRow("negative text") << QVariant("-1") << true;
    QTest::newRow("number 0") << QVariant(0) << false;
    QTest::newRow("number 2") << QVariant(2) << true;
    QTest::newRow("negative number") << QVariant(-1) << true;
    QTest::newRow("huge number") << QVariant(Q_INT64_C(4294967296)) << true;
    QTest::newRow("invalid") << QVariant() << false;
    QTest::newRow("list") << QVariant(QStringList("true")) << false;
}

void TestDBCheckBoxWidget::setValueShowsTheTruth()
{
    QFETCH(QVariant, value);
    QFETCH(bool, truth);
    for (const bool before : {false, true}) {
        Bared<DBCheckBoxWidget> plain(nullptr);
        checkBox(plain)->setChecked(before);
        plain.setValue(value);
        QCOMPARE(checkBox(plain)->isChecked(), truth);
        QCOMPARE(described(plain.value()), truth ? QString("bool true") : QString("bool false"));
        QCOMPARE(described(plain.storedValue()), described(value));

        Bared<DBCheckBoxWidget> inverted(nullptr);
        inverted.inverted = true;
        checkBox(inverted)->setChecked(before);
        inverted.setValue(value);
        QCOMPARE(checkBox(inverted)->isChecked(), !truth);
        QCOMPARE(described(inverted.value()), truth ? QString("bool true") : QString("bool false"));
        QCOMPARE(described(inverted.storedValue()), described(value));
    }
}

/// A change by program reaches stateChanged() before toggled(), a click the other way round.
void TestDBCheckBoxWidget::setValueAnnouncesAndCommits()
{
    DBCheckBoxWidget editor(nullptr);
    editor.setKey(key);
    HeardSignals heard(editor);
    editor.setValue("1");
    QCOMPARE(heard.take(), QStringList({"commit", "PT_ENABLE_FACE_SCANNING: bool true"}));
    editor.setValue("0");
    QCOMPARE(heard.take(), QStringList({"commit", "PT_ENABLE_FACE_SCANNING: bool false"}));
}

void TestDBCheckBoxWidget::setValueStoresBeforeItShows()
{
    Bared<DBCheckBoxWidget> editor(nullptr);
    QString storedMeanwhile;
    connect(&editor, &DBParamWidget::paramChanged, this, [&] { storedMeanwhile = described(editor.storedValue()); });
    editor.setValue("1");
    QCOMPARE(storedMeanwhile, QString("QString 1"));
}

void TestDBCheckBoxWidget::sameValueIsStoredSilently()
{
    Bared<DBCheckBoxWidget> editor(nullptr);
    editor.setValue("1");
    HeardSignals heard(editor);
    editor.setValue(true);
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(described(editor.storedValue()), QString("bool true"));
}

void TestDBCheckBoxWidget::clicksAnnounceAndCommit()
{
    Bared<DBCheckBoxWidget> editor(nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    click(checkBox(editor));
    QCOMPARE(heard.take(), QStringList({"PT_ENABLE_FACE_SCANNING: bool true", "commit"}));
    QCOMPARE(described(editor.value()), QString("bool true"));
    click(checkBox(editor));
    QCOMPARE(heard.take(), QStringList({"PT_ENABLE_FACE_SCANNING: bool false", "commit"}));
    QVERIFY(!editor.storedValue().isValid());
}

void TestDBCheckBoxWidget::spaceToggles()
{
    DBCheckBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    QTest::keyClick(checkBox(editor), Qt::Key_Space);
    QCOMPARE(heard.take(), QStringList({"PT_ENABLE_FACE_SCANNING: bool true", "commit"}));
}

void TestDBCheckBoxWidget::invertedClickCarriesWhatIsShown()
{
    DBCheckBoxWidget editor(nullptr);
    editor.inverted = true;
    QVERIFY(show(editor));
    editor.setValue(true);
    QVERIFY(!checkBox(editor)->isChecked());
    QCOMPARE(described(editor.value()), QString("bool true"));
    HeardSignals heard(editor);

    click(checkBox(editor));
    QCOMPARE(heard.take(), QStringList({"PT_ENABLE_FACE_SCANNING: bool true", "commit"}));
    QCOMPARE(described(editor.value()), QString("bool false"));
}

void TestDBCheckBoxWidget::revertAnnouncesWithoutACommit()
{
    DBCheckBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setValue("1");
    click(checkBox(editor));
    HeardSignals heard(editor);

    editor.setDefaultValue();
    QCOMPARE(heard.take(), QStringList("PT_ENABLE_FACE_SCANNING: bool true"));
    QVERIFY(checkBox(editor)->isChecked());
    editor.setDefaultValue();
    QCOMPARE(heard.take(), QStringList());
}

void TestDBCheckBoxWidget::revertLeavesOneCommit()
{
    DBCheckBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setDefaultValue();
    static_cast<DBParamWidget &>(editor).setDefaultValue();
    QVERIFY(QMetaObject::invokeMethod(&editor, "setDefaultValue"));

    HeardSignals heard(editor);
    click(checkBox(editor));
    QCOMPARE(heard.take(), QStringList({"PT_ENABLE_FACE_SCANNING: bool true", "commit"}));
}

void TestDBCheckBoxWidget::revertOfAFreshEditorUnchecks()
{
    Bared<DBCheckBoxWidget> editor(nullptr);
    QVERIFY(show(editor));
    click(checkBox(editor));
    HeardSignals heard(editor);
    editor.setDefaultValue();
    QCOMPARE(heard.take(), QStringList("PT_ENABLE_FACE_SCANNING: bool false"));
    QVERIFY(!editor.storedValue().isValid());
}

void TestDBCheckBoxWidget::invertedRevert()
{
    DBCheckBoxWidget editor(nullptr);
    editor.setKey(key);
    editor.setValue("1");
    editor.inverted = true;
    HeardSignals heard(editor);
    editor.setDefaultValue();
    QVERIFY(!checkBox(editor)->isChecked());
    QCOMPARE(heard.take(), QStringList("PT_ENABLE_FACE_SCANNING: bool false"));
}

void TestDBCheckBoxWidget::commitCanBeDisconnectedByText()
{
    DBCheckBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    QVERIFY(disconnect(checkBox(editor), SIGNAL(stateChanged(int)), &editor, SIGNAL(commitData())));
    HeardSignals heard(editor);
    click(checkBox(editor));
    QCOMPARE(heard.take(), QStringList("PT_ENABLE_FACE_SCANNING: bool true"));

    editor.setDefaultValue();
    heard.take();
    click(checkBox(editor));
    QCOMPARE(heard.take(), QStringList({"PT_ENABLE_FACE_SCANNING: bool true", "commit"}));
    QVERIFY(disconnect(checkBox(editor), SIGNAL(stateChanged(int)), &editor, SIGNAL(commitData())));
    QVERIFY(!disconnect(checkBox(editor), SIGNAL(stateChanged(int)), &editor, SIGNAL(commitData())));
}

void TestDBCheckBoxWidget::disabledBoxCannotBeClicked()
{
    DBCheckBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    static_cast<DBParamWidget &>(editor).setEnabled(false);
    QVERIFY(!editor.isEnabled());
    QVERIFY(!checkBox(editor)->isEnabled());
    QVERIFY(editor.QWidget::isEnabled());
    click(checkBox(editor));
    QCOMPARE(heard.take(), QStringList());

    editor.setEnabled(true);
    QVERIFY(editor.isEnabled());
    click(checkBox(editor));
    QCOMPARE(heard.take().count(), 2);
}

void TestDBCheckBoxWidget::readOnlyIsOnlyAFlag()
{
    DBCheckBoxWidget editor(nullptr);
    QVERIFY(show(editor));
    editor.setReadOnly(true);
    QVERIFY(editor.isReadOnly());
    click(checkBox(editor));
    QVERIFY(checkBox(editor)->isChecked());
}

void TestDBCheckBoxWidget::otherOperationsDoNothing()
{
    DBCheckBoxWidget editor(nullptr);
    editor.setName("name");
    editor.setValue(true);
    HeardSignals heard(editor);
    editor.setParamValues({{0, "no"}});
    editor.setParamRange({0, 0});
    editor.setSpecialValue("special");
    QVERIFY(checkBox(editor)->isChecked());
    QCOMPARE(checkBox(editor)->text(), QString("name"));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBCheckBoxWidget::brokenSlotDoesNothing()
{
    QFETCH(BrokenSlot, brokenSlot);
    Bared<DBCheckBoxWidget> editor(nullptr);
    editor.setName("before");
    editor.setValue("0");
    auto *button = static_cast<QAbstractButton *>(breakSlot<QRadioButton>(editor, brokenSlot));
    const QString caption = button ? button->text() : QString();
    HeardSignals heard(editor);

    editor.setValue("1");
    QCOMPARE(described(editor.storedValue()), QString("QString 0"));
    QVERIFY(!editor.value().isValid());
    editor.setName("after");
    QCOMPARE(labelTexts(editor), QStringList({"TextLabel", "TextLabel", "TextLabel", "TextLabel"}));
    editor.setDefaultValue();
    editor.setReadOnly(true);
    QVERIFY(editor.isReadOnly());
    editor.setEnabled(false);
    QVERIFY(!editor.isEnabled());

    QCOMPARE(heard.take(), QStringList());
    if (button) {
        QVERIFY(button->isEnabled());
        QVERIFY(!button->isChecked());
        QCOMPARE(button->text(), caption);
    }
}

QTEST_MAIN(TestDBCheckBoxWidget)
#include "tst_dbcheckboxwidget.moc"
