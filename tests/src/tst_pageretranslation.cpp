#include "doublingtranslator.h"
#include "installation.h"
#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"
#include "translation.h"

#include <vxsettings/dbbuttonwidget.h>
#include <vxsettings/dbcomboboxwidget.h>
#include <vxsettings/dbsettingshelper.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSpinBox>

using namespace db::database;
using installation::Page;
using vantorix::OBJECT_PARAMETERS;

namespace {

/// Every text that the user sees or hears of a page, its tool tips included.
QStringList texts(const QWidget &window)
{
    QStringList texts;
    for (const auto *frame : window.findChildren<VXSettingsGroupWidget *>())
        texts << frame->title() << frame->accessibleName();
    for (const DBParamWidget *editor : window.findChildren<DBParamWidget *>()) {
        const QWidget *input = editor->centralWidget();
        texts << editor->toolTip() << input->accessibleName() << input->accessibleDescription();
        if (editor->canChangeLabelPosition()) {
            for (const QLabel *label : editor->findChildren<QLabel *>())
                texts << label->text();
        }
        if (const auto *box = qobject_cast<const QCheckBox *>(input))
            texts << box->text();
        if (const auto *box = qobject_cast<const QComboBox *>(input)) {
            for (int i = 0; i < box->count(); ++i)
                texts << box->itemText(i);
        }
        if (const auto *box = qobject_cast<const QSpinBox *>(input))
            texts << box->specialValueText() << box->text();
    }
    return texts;
}

/// What of an editor has less room than it needs; empty if nothing has.
QString cutOff(const DBParamWidget *editor)
{
    QList<const QWidget *> parts{editor->centralWidget()};
    for (const QLabel *label : editor->findChildren<QLabel *>()) {
        if (label->isVisible())
            parts << label;
    }
    for (const QWidget *part : qAsConst(parts)) {
        const QRect place(part->mapTo(editor, QPoint()), part->size());
        const QSize needed = part->sizeHint().boundedTo(part->maximumSize());
        if (!editor->rect().contains(place) || place.width() < needed.width() || place.height() < needed.height())
            return editor->key() + ' ' + part->objectName();
    }
    return {};
}

/// Changes the value as a user would, to another valid one.
void edit(const DBParamWidget *editor)
{
    QWidget *input = editor->centralWidget();
    if (qobject_cast<QCheckBox *>(input))
        QTest::keyClick(input, Qt::Key_Space);
    else if (qobject_cast<QLineEdit *>(input))
        QTest::keyClicks(input, "9");
    else if (auto *box = qobject_cast<QComboBox *>(input))
        QTest::keyClick(input, box->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
    else
        QTest::keyClick(input, Qt::Key_Up);
}
} // namespace

class TestPageRetranslation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void openPageSpeaksAsABuiltOne_data() { installation::addPageRows(); }
    void openPageSpeaksAsABuiltOne();
    void editsStayWithoutASignal_data() { installation::addPageRows(); }
    void editsStayWithoutASignal();
    void storedValuesStay();
    void chosenEntryStays();
    void specialValueIsShown();
    void textsOutsideTheCatalogueStay();
    void singleEditorOfAKey();
    void buttonIsTranslated();
    void treeWithoutWidgets();
    void twiceTheLengthIsNotCutOff_data() { installation::addPageRows(); }
    void twiceTheLengthIsNotCutOff();
    void shorterCaptionGivesItsSpaceBack();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
    installation::Stored m_installation;
};

void TestPageRetranslation::openPageSpeaksAsABuiltOne()
{
    QFETCH(int, group);
    Page open(group);
    open.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&open.window));
    const QStringList russian = texts(open.window);
    {
        const DoublingTranslator other;
        QCoreApplication::processEvents();
        open.root().retranslate();
        Page fresh(group);
        fresh.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fresh.window));
        QCOMPARE(texts(open.window), texts(fresh.window));
        QVERIFY(texts(open.window) != russian);
    }
    QCoreApplication::processEvents();
    open.root().retranslate();
    QCOMPARE(texts(open.window), russian);
}

void TestPageRetranslation::editsStayWithoutASignal()
{
    QFETCH(int, group);
    Page page(group);
    page.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page.window));
    for (const DBParamWidget *editor : page.editors())
        edit(editor);
    const OBJECT_PARAMETERS edited = page.tree->parameters();
    int signalCount = 0;
    for (const DBParamWidget *editor : page.editors()) {
        connect(editor, &DBParamWidget::paramChanged, this, [&] { ++signalCount; });
        connect(editor, &DBParamWidget::commitData, this, [&] { ++signalCount; });
    }

    const DoublingTranslator other;
    QCoreApplication::processEvents();
    page.root().retranslate();
    QCOMPARE(page.tree->parameters(), edited);
    QCOMPARE(signalCount, 0);
}

void TestPageRetranslation::storedValuesStay()
{
    Page page(1);
    const OBJECT_PARAMETERS stored = page.tree->parameters();
    for (const DBParamWidget *editor : page.editors())
        edit(editor);
    QVERIFY(page.tree->parameters() != stored);
    const DoublingTranslator other;
    page.root().retranslate();
    page.tree->setDefaultValue();
    QCOMPARE(page.tree->parameters(), stored);
}

void TestPageRetranslation::chosenEntryStays()
{
    Page page(2);
    auto *box = inspect::input<QComboBox>(&page.window, IDENT_TYPE);
    QSignalSpy chosen(box, QOverload<int>::of(&QComboBox::currentIndexChanged));
    const InstalledTranslation english(
        {{"QObject", "Логин + пароль + биометрическая информация", "Login, password and biometrics"}});
    page.root().retranslate();
    QCOMPARE(box->currentText(), QString("Login, password and biometrics"));
    QCOMPARE(box->currentData(), QVariant(2U));
    QCOMPARE(chosen.count(), 0);
}

void TestPageRetranslation::specialValueIsShown()
{
    Page page(2);
    const InstalledTranslation english({{"QObject", "Без ограничений", "No limit"}});
    page.root().retranslate();
    QCOMPARE(inspect::input<QSpinBox>(&page.window, USER_SESSION_COUNT)->text(), QString("No limit"));
    QCOMPARE(inspect::input<QSpinBox>(&page.window, USER_SESSION_TIMEOUT)->text(), QString("30"));
}

void TestPageRetranslation::textsOutsideTheCatalogueStay()
{
    DBComboBoxWidget editor(nullptr);
    editor.setKey("PT_OF_THE_HOST");
    editor.setName("Own caption");
    editor.setToolTip("Own tip");
    editor.setParamValues({{7, "seven"}});
    editor.retranslate();
    QCOMPARE(editor.findChild<QLabel *>("leftLabel")->text(), QString("Own caption"));
    QCOMPARE(editor.toolTip(), QString("Own tip"));

    // A key of the catalogue: what the catalogue does not have for it stays all the same.
    editor.setKey(CARD_VIEW_FORMAT);
    editor.setParamValues({{1, "one"}, {7, "seven"}});
    editor.retranslate();
    QCOMPARE(editor.toolTip(), QString("Own tip"));
    QCOMPARE(qobject_cast<QComboBox *>(editor.centralWidget())->itemText(0), QString("Шестнадцатеричный"));
    QCOMPARE(qobject_cast<QComboBox *>(editor.centralWidget())->itemText(1), QString("seven"));
}

void TestPageRetranslation::singleEditorOfAKey()
{
    Page page(7);
    DBParamWidget *editor = inspect::editor(&page.window, PASS_REQUEST_SEQUENCE);
    const InstalledTranslation english({{"QObject", "Формат номера заявки", "Request number"}});
    editor->retranslate();
    QCOMPARE(editor->findChild<QLabel *>("rightLabel")->text(), QString("Request number"));
    QCOMPARE(page.tree->parameters().value(PASS_REQUEST_SEQUENCE), QString("РОГ-${year}${month}-${zero8-num}"));
}

void TestPageRetranslation::buttonIsTranslated()
{
    DBButtonWidget editor(nullptr);
    editor.setValue("A0B1");
    const InstalledTranslation english({{"DBButtonWidget", "Изменить", "Change"}});
    editor.retranslate();
    QCOMPARE(qobject_cast<QPushButton *>(editor.centralWidget())->text(), QString("Change"));
    QCOMPARE(editor.value(), QVariant("A0B1"));
}

void TestPageRetranslation::treeWithoutWidgets()
{
    DBSettingsGroup bare(2);
    bare.settings().push_back(nullptr);
    bare.settings().push_back(std::make_unique<JsonGroup>());
    bare.retranslate();

    auto window = std::make_unique<QWidget>();
    const auto tree = DBSettingsGroupFactory::create(DBGroups::Users, window.get(), nullptr);
    window.reset();
    tree->toGroup()->retranslate();
    QVERIFY(!tree->widget());
}

void TestPageRetranslation::twiceTheLengthIsNotCutOff()
{
    QFETCH(int, group);
    // The room that a list of pages leaves in a window of 1024 x 700.
    QScrollArea area;
    area.setWidgetResizable(true);
    area.resize(740, 640);
    const auto tree = DBSettingsGroupFactory::create(DBGroups(group), &area, nullptr);
    area.setWidget(tree->widget().get());
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));

    const DoublingTranslator other;
    QCoreApplication::processEvents();
    tree->toGroup()->retranslate();
    for (const DBParamWidget *editor : area.findChildren<DBParamWidget *>()) {
        QTRY_COMPARE(cutOff(editor), QString());
        QVERIFY(area.widget()->rect().contains(QRect(editor->mapTo(area.widget(), QPoint()), editor->size())));
    }
}

void TestPageRetranslation::shorterCaptionGivesItsSpaceBack()
{
    Page page(8);
    page.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page.window));
    DBParamWidget *editor = inspect::editor(&page.window, MOBILE_PORT);
    const int before = editor->sizeHint().height();
    editor->setName(QString("many words ").repeated(30));
    QTRY_VERIFY(editor->height() > 2 * before);
    editor->setName(DBSettingsHelper::paramName(MOBILE_PORT));
    QTRY_COMPARE(editor->sizeHint().height(), before);
}

QTEST_MAIN(TestPageRetranslation)
#include "tst_pageretranslation.moc"
