#include "installation.h"
#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"

#include <vxsettings/dbsettingshelper.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QSpinBox>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>

using namespace db::database;
using installation::Page;

Q_DECLARE_METATYPE(QAccessible::Role)

namespace {

bool showActive(QWidget &window)
{
    window.show();
    QApplication::setActiveWindow(&window);
    return QTest::qWaitForWindowActive(&window);
}

QAccessibleInterface *accessible(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}

QString accessibleText(const DBParamWidget *editor, QAccessible::Text text)
{
    return accessible(editor->centralWidget())->text(text);
}

/// The captions that say they belong to @p input.
QStringList labelsOf(const DBParamWidget *editor)
{
    QStringList names;
    for (QLabel *label : editor->findChildren<QLabel *>()) {
        for (const auto &relation : accessible(label)->relations(QAccessible::Labelled)) {
            if (relation.first->object() == editor->centralWidget())
                names << label->objectName();
        }
    }
    return names;
}

void turnWheelDown(QWidget *widget)
{
    const QPointF centre = widget->rect().center();
    QWheelEvent event(centre, widget->mapToGlobal(centre.toPoint()), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::instance()->notify(widget, &event);
}
} // namespace

class TestPageAccessibility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyInputIsNamedByItsCaption_data() { installation::addPageRows(); }
    void everyInputIsNamedByItsCaption();
    void shownCaptionIsTheBuddy_data() { installation::addPageRows(); }
    void shownCaptionIsTheBuddy();
    void captionWithAnAmpersandIsShownAsItIs();
    void nameFollowsTheCaption();
    void roles_data();
    void roles();
    void groupsAreNamedByTheirTitles();
    void toolTipIsToldInPlainText();
    void descriptionFollowsToolTipMarkAndProblem();
    void passwordsAreNotTold_data();
    void passwordsAreNotTold();
    void comboBoxTellsItsChoice_data();
    void comboBoxTellsItsChoice();
    void comboBoxIsChangedByActions_data();
    void comboBoxIsChangedByActions();
    void disabledComboBoxTakesNoAction();

    void focusOfTheFrameIsTheInputs_data() { installation::addPageRows(); }
    void focusOfTheFrameIsTheInputs();
    void focusSetBeforeThePageIsShown();
    void tabGoesRowByRow_data() { installation::addPageRows(); }
    void tabGoesRowByRow();
    void tabReachesTheFoldingButtonBeforeItsMembers();
    void noTwoMnemonics_data() { installation::addPageRows(); }
    void noTwoMnemonics();
    void wheelDoesNotTakeTheFocus_data();
    void wheelDoesNotTakeTheFocus();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
    installation::Stored m_installation;
};

void TestPageAccessibility::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestPageAccessibility::everyInputIsNamedByItsCaption()
{
    QFETCH(int, group);
    Page page(group);
    QVERIFY(showActive(page.window));
    for (const DBParamWidget *editor : page.editors()) {
        const QString caption = DBSettingsHelper::paramName(editor->key());
        QVERIFY(!caption.isEmpty());
        QCOMPARE(accessibleText(editor, QAccessible::Name), caption);
    }
}

void TestPageAccessibility::shownCaptionIsTheBuddy()
{
    QFETCH(int, group);
    Page page(group);
    QVERIFY(showActive(page.window));
    for (const DBParamWidget *editor : page.editors())
        QCOMPARE(labelsOf(editor), inspect::shownCaptions(editor));
}

void TestPageAccessibility::captionWithAnAmpersandIsShownAsItIs()
{
    Page page(8);
    QVERIFY(showActive(page.window));
    DBParamWidget *editor = inspect::editor(&page.window, MOBILE_HOST);
    editor->setName("Host && &port");
    QCOMPARE(labelsOf(editor), QStringList());
    QCOMPARE(editor->findChild<QLabel *>("bottomLabel")->text(), QString("Host && &port"));

    editor->setName("Host");
    QCOMPARE(labelsOf(editor), QStringList("bottomLabel"));
}

void TestPageAccessibility::nameFollowsTheCaption()
{
    Page page(8);
    QVERIFY(showActive(page.window));
    DBParamWidget *editor = inspect::editor(&page.window, MOBILE_PORT);
    editor->setName("Port");
    QCOMPARE(accessibleText(editor, QAccessible::Name), QString("Port"));
    editor->setLabelPosition(LabelPosition::Left);
    QCOMPARE(labelsOf(editor), QStringList("leftLabel"));
    editor->setLabelPosition(LabelPosition::None);
    QCOMPARE(labelsOf(editor), QStringList());
    QCOMPARE(accessibleText(editor, QAccessible::Name), QString("Port"));
}

void TestPageAccessibility::roles_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QAccessible::Role>("role");

    QTest::newRow("spin box") << 1 << MAX_CARD_COUNT << QAccessible::SpinBox;
    QTest::newRow("combo box") << 1 << CARD_VIEW_FORMAT << QAccessible::ComboBox;
    QTest::newRow("check box") << 1 << json::DENY_EQUAL << QAccessible::CheckBox;
    QTest::newRow("line edit") << 8 << MOBILE_HOST << QAccessible::EditableText;
    QTest::newRow("password") << 8 << LOCKER_ACCESS_TOKEN << QAccessible::EditableText;
    QTest::newRow("read-only") << 0 << VERSION << QAccessible::EditableText;
    QTest::newRow("department") << 7 << DEFAULT_DEPARTMENT << QAccessible::ComboBox;
}

void TestPageAccessibility::roles()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QFETCH(QAccessible::Role, role);
    Page page(group);
    QVERIFY(showActive(page.window));
    DBParamWidget *editor = inspect::editor(&page.window, key);
    QAccessibleInterface *input = accessible(editor->centralWidget());
    QCOMPARE(input->role(), role);
    QCOMPARE(bool(input->state().passwordEdit), key == LOCKER_ACCESS_TOKEN);
    QCOMPARE(bool(input->state().disabled), false);
    editor->setEnabled(false);
    QCOMPARE(bool(input->state().disabled), true);
}

void TestPageAccessibility::groupsAreNamedByTheirTitles()
{
    Page page(1);
    QVERIFY(showActive(page.window));
    QStringList names;
    for (auto *frame : page.window.findChildren<VXSettingsGroupWidget *>()) {
        QCOMPARE(accessible(frame)->role(), QAccessible::Grouping);
        names << accessible(frame)->text(QAccessible::Name);
    }
    QCOMPARE(names, QStringList({"Сотрудники", "Сложность пин-кода"}));
}

void TestPageAccessibility::toolTipIsToldInPlainText()
{
    Page page(7);
    QVERIFY(showActive(page.window));
    const DBParamWidget *editor = inspect::editor(&page.window, PASS_REQUEST_SEQUENCE);
    const QString told = accessibleText(editor, QAccessible::Description);
    QVERIFY2(told.contains("${year} - текущий год"), qPrintable(told));
    QVERIFY2(!told.contains('<'), qPrintable(told));
}

void TestPageAccessibility::descriptionFollowsToolTipMarkAndProblem()
{
    Page page(8);
    DBParamWidget *editor = inspect::editor(&page.window, MOBILE_PORT);
    editor->setMark(DBParamWidget::Mark::Changed, "Stored: 8443"); // not on screen yet
    QVERIFY(showActive(page.window));
    QCOMPARE(accessibleText(editor, QAccessible::Description), QString("Stored: 8443"));

    editor->setToolTip("1 < 2");
    editor->setProblem("Port 0 is no port");
    QCOMPARE(accessibleText(editor, QAccessible::Description), QString("1 < 2\nStored: 8443\nPort 0 is no port"));
    editor->setMark(DBParamWidget::Mark::None);
    QCOMPARE(accessibleText(editor, QAccessible::Description), QString("1 < 2\nPort 0 is no port"));
    editor->setProblem({});
    editor->setToolTip({});
    QCOMPARE(accessibleText(editor, QAccessible::Description), QString());
}

void TestPageAccessibility::passwordsAreNotTold_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::newRow("default password") << 2 << PASSWORD_DEF;
    QTest::newRow("token") << 8 << LOCKER_ACCESS_TOKEN;
}

void TestPageAccessibility::passwordsAreNotTold()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    Page page(group);
    QVERIFY(showActive(page.window));
    const DBParamWidget *editor = inspect::editor(&page.window, key);
    const QString secret = editor->value().toString();
    QVERIFY(!secret.isEmpty());
    QAccessibleInterface *input = accessible(editor->centralWidget());

    QString told;
    for (int text = QAccessible::Name; text <= QAccessible::Accelerator; ++text)
        told += input->text(QAccessible::Text(text)) + '\n';
    int begin, end;
    QAccessibleTextInterface *text = input->textInterface();
    QVERIFY(text);
    told += text->text(0, secret.size()) + text->textAtOffset(0, QAccessible::LineBoundary, &begin, &end);
    QVERIFY2(!told.contains(secret), qPrintable(told));
    QVERIFY(told.contains(QString(secret.size(), '*')) || !told.contains(secret.left(3)));
}

void TestPageAccessibility::comboBoxTellsItsChoice_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");

    QTest::newRow("combo box") << 1 << CARD_VIEW_FORMAT << "Семейство-код"
                               << "Шестнадцатеричный";
    QTest::newRow("tree") << 7 << DEFAULT_DEPARTMENT << "Отдел кадров"
                          << "Завод";
}

void TestPageAccessibility::comboBoxTellsItsChoice()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QFETCH(QString, before);
    QFETCH(QString, after);
    Page page(group);
    QVERIFY(showActive(page.window));
    QWidget *box = inspect::editor(&page.window, key)->centralWidget();
    QAccessibleInterface *input = accessible(box);
    QCOMPARE(input->text(QAccessible::Value), before);
    QCOMPARE(input->textInterface()->text(0, input->textInterface()->characterCount()), before);
    QCOMPARE(input->textInterface()->text(1, 3), before.mid(1, 2));

    QTest::keyClick(box, Qt::Key_Up);
    QCOMPARE(input->text(QAccessible::Value), after);
}

void TestPageAccessibility::comboBoxIsChangedByActions_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QVariant>("above");

    QTest::newRow("combo box") << 1 << CARD_VIEW_FORMAT << QVariant(2U) << QVariant(1U);
    QTest::newRow("tree") << 7 << DEFAULT_DEPARTMENT << QVariant(42U) << QVariant(7U);
}

void TestPageAccessibility::comboBoxIsChangedByActions()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    Page page(group);
    QVERIFY(showActive(page.window));
    auto *box = inspect::input<QComboBox>(&page.window, key);
    QAccessibleInterface *input = accessible(box);
    QAccessibleActionInterface *actions = input->actionInterface();
    QTEST(page.root().paramValue(key), "before");
    actions->doAction(QAccessibleActionInterface::decreaseAction());
    QTEST(page.root().paramValue(key), "above");
    actions->doAction(QAccessibleActionInterface::increaseAction());
    QTEST(page.root().paramValue(key), "before");

    QVERIFY(input->state().collapsed && !input->state().expanded);
    QCOMPARE(input->childCount(), 1);
    QCOMPARE(input->child(0)->object(), box->view());
    QCOMPARE(input->indexOfChild(input->child(0)), 0);
    for (const QString &action :
         {QAccessibleActionInterface::showMenuAction(), QAccessibleActionInterface::pressAction()}) {
        QVERIFY(actions->actionNames().contains(action));
        actions->doAction(action);
        QTRY_VERIFY(box->view()->isVisible());
        QVERIFY(input->state().expanded && !input->state().collapsed);
        actions->doAction(action);
        QTRY_VERIFY(!box->view()->isVisible());
    }
}

void TestPageAccessibility::disabledComboBoxTakesNoAction()
{
    Page page(1);
    QVERIFY(showActive(page.window));
    page.root().setParamEnabled(CARD_VIEW_FORMAT, false);
    auto *box = inspect::input<QComboBox>(&page.window, CARD_VIEW_FORMAT);
    for (const QString &action : accessible(box)->actionInterface()->actionNames())
        accessible(box)->actionInterface()->doAction(action);
    QVERIFY(!box->view()->isVisible());
    QCOMPARE(page.root().paramValue(CARD_VIEW_FORMAT), QVariant(2U));
}

void TestPageAccessibility::focusOfTheFrameIsTheInputs()
{
    QFETCH(int, group);
    Page page(group);
    QVERIFY(showActive(page.window));
    for (DBParamWidget *editor : page.editors()) {
        editor->setFocus();
        QVERIFY2(editor->centralWidget()->hasFocus(), qPrintable(editor->key()));
    }
}

void TestPageAccessibility::focusSetBeforeThePageIsShown()
{
    Page page(8);
    DBParamWidget *editor = inspect::editor(&page.window, MOBILE_PORT);
    editor->setFocus();
    QVERIFY(showActive(page.window));
    QTRY_VERIFY(editor->centralWidget()->hasFocus());
}

void TestPageAccessibility::tabGoesRowByRow()
{
    QFETCH(int, group);
    Page page(group);
    QVERIFY(showActive(page.window));
    // findChildren() goes by creation; shown is what the user sees.
    QList<DBParamWidget *> shown = page.editors();
    const auto place = [&](const DBParamWidget *editor) {
        const QPoint centre = editor->mapTo(&page.window, editor->rect().center());
        return std::make_pair(centre.y(), editor->mapTo(&page.window, QPoint()).x());
    };
    std::sort(shown.begin(), shown.end(), [&](auto *a, auto *b) {
        const auto [aY, aX] = place(a);
        const auto [bY, bX] = place(b);
        return qAbs(aY - bY) > 12 ? aY < bY : aX < bX;
    });

    QStringList expected, tabbed;
    for (const DBParamWidget *editor : qAsConst(shown))
        expected << editor->key();
    shown.first()->setFocus();
    for (int presses = shown.count() + 3; presses > 0 && tabbed.count() < expected.count(); --presses) {
        for (const QWidget *widget = QApplication::focusWidget(); widget; widget = widget->parentWidget()) {
            if (const auto *editor = qobject_cast<const DBParamWidget *>(widget))
                tabbed << editor->key();
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(tabbed, expected);
}

void TestPageAccessibility::tabReachesTheFoldingButtonBeforeItsMembers()
{
    Page page(1);
    QVERIFY(showActive(page.window));
    inspect::editor(&page.window, EMPLOYEE_PHOTO_TYPE)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    auto *button = qobject_cast<QToolButton *>(QApplication::focusWidget());
    QVERIFY(button);
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(!inspect::enclosingFrame(button)->isExpanded());
    QTest::keyClick(button, Qt::Key_Space);
    QTest::keyClick(button, Qt::Key_Tab);
    QVERIFY(inspect::editor(&page.window, json::MIN_LEN)->centralWidget()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
    QVERIFY(button->hasFocus());
}

void TestPageAccessibility::noTwoMnemonics()
{
    QFETCH(int, group);
    Page page(group);
    QStringList mnemonics;
    for (const QLabel *label : page.window.findChildren<QLabel *>()) {
        if (!label->isHidden())
            mnemonics << QKeySequence::mnemonic(label->text()).toString();
    }
    for (const QAbstractButton *button : page.window.findChildren<QAbstractButton *>())
        mnemonics << button->shortcut().toString();
    mnemonics.removeAll(QString());
    QCOMPARE(mnemonics.removeDuplicates(), 0);
}

void TestPageAccessibility::wheelDoesNotTakeTheFocus_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");

    QTest::newRow("spin box") << 1 << MAX_CARD_COUNT;
    QTest::newRow("combo box") << 1 << CARD_VIEW_FORMAT;
    QTest::newRow("check box") << 1 << json::DENY_EQUAL;
    QTest::newRow("line edit") << 8 << MOBILE_HOST;
    QTest::newRow("password") << 8 << LOCKER_ACCESS_TOKEN;
    QTest::newRow("department") << 7 << DEFAULT_DEPARTMENT;
    QTest::newRow("smart-card profile") << 11 << MOBILE_SMARTCARD_PROFILE_ID;
}

void TestPageAccessibility::wheelDoesNotTakeTheFocus()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    Page page(group);
    QLineEdit elsewhere;
    page.window.layout()->addWidget(&elsewhere);
    QVERIFY(showActive(page.window));
    elsewhere.setFocus();
    turnWheelDown(inspect::editor(&page.window, key)->centralWidget());
    QVERIFY(elsewhere.hasFocus());
    elsewhere.setParent(nullptr);
}

QTEST_MAIN(TestPageAccessibility)
#include "tst_pageaccessibility.moc"
