#include <vxwidgets/vxtreebox.h>

#include "messages.h"

#include <vxwidgets/vxtreeviewdelegate.h>

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QProxyStyle>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>
#include <QToolTip>
#include <QTreeView>
#include <QWheelEvent>

#include <memory>

Q_DECLARE_METATYPE(Qt::MouseButton)

class TestVXTreeBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void freshBox();
    void itemsOfItsOwnWorkToo();
    void settingAModelChoosesTheFirstRow();

    void setCurrentModelIndex_data();
    void setCurrentModelIndex();
    void eachChangeOfNodeSignalsOnce();
    void listenersFindTheBoxInOrder();
    void silentChoiceIsKnownToo();
    void choosingFromAHandler();
    void rowChosenTheUsualWay();
    void chosenNodeMovesWithTheModel_data();
    void chosenNodeMovesWithTheModel();
    void sameRowNumberAtTheTopIsAnotherNode();

    void popupOpensWithTheChosenNode();
    void popupOpensTheDefaultRoot_data();
    void popupOpensTheDefaultRoot();
    void popupHasASensibleSize_data();
    void popupHasASensibleSize();
    void longPopupHasAScrollBar_data();
    void longPopupHasAScrollBar();
    void popupStaysOnTheScreen_data();
    void popupStaysOnTheScreen();
    void popupShowsTheTextOfDeepNodes();
    void popupDoesNotMoveSidewaysWithoutNeed();
    void emptyBoxHasNoPopup();

    void clickChooses_data();
    void clickChooses();
    void clickThatIsNoChoice_data();
    void clickThatIsNoChoice();
    void clickOnAnArrowOpensAndCloses_data();
    void clickOnAnArrowOpensAndCloses();
    void clickBesideThePopupClosesIt();
    void pressOnTheBoxDragAndReleaseChooses();
    void openingClickIsNoChoice();
    void enterChooses_data();
    void enterChooses();
    void arrowsOpenBranchesInThePopup();
    void escapeChangesNothing();
    void boxMayBeDeletedByAChoice();
    void boxMayBeDeletedWithItsPopupOpen();

    void keysOnTheClosedBox_data();
    void keysOnTheClosedBox();
    void keysOpenThePopup_data();
    void keysOpenThePopup();
    void keysForTheDialogAreLeftToIt_data();
    void keysForTheDialogAreLeftToIt();
    void typedLettersFindNames_data();
    void typedLettersFindNames();
    void spaceBelongsToARunningSearch();
    void wheelScrollsThePageInstead_data();
    void wheelScrollsThePageInstead();

    void closedBoxPaintsTheName_data();
    void closedBoxPaintsTheName();
    void cutOffNameHasAToolTip_data();
    void cutOffNameHasAToolTip();
    void longPathIsShortenedAtItsBeginning();
    void hostileNamesArePainted_data();
    void hostileNamesArePainted();
    void viewHasAnAccessibleName();
};

namespace {

QStandardItem *item(const QString &name, const QList<QStandardItem *> &children = {})
{
    auto *item = new QStandardItem(name);
    item->appendRows(children);
    return item;
}

QStandardItem *notToBeChosen(QStandardItem *item)
{
    item->setFlags(Qt::ItemIsEnabled);
    return item;
}

/// A box over a small company. The group "Contractors" cannot be chosen.
struct CompanyBox
{
    CompanyBox()
    {
        model.appendRow(item("Company", {item("North", {item("Accounts"), item("Stores", {item("Shelf")})}),
                                         notToBeChosen(item("Contractors", {item("Builders")})), item("South")}));
        model.appendRow(item("Museum", {item("Attic")}));
        box.setModel(&model);
        box.setCurrentIndex(-1);
        box.setDefaultRootIndex(node("Company"));
        box.resize(400, 100);
        box.move(20, 20);
    }

    QModelIndex node(const QString &name) const
    {
        return name.isEmpty() ? QModelIndex()
                              : model
                                    .match(model.index(0, 0), Qt::DisplayRole, name, 1,
                                           Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchCaseSensitive)
                                    .value(0);
    }
    QString chosen() const { return box.currentModelIndex().data().toString(); }
    void choose(const QString &name) { box.setCurrentModelIndex(node(name)); }

    QTreeView *tree() const { return qobject_cast<QTreeView *>(box.view()); }
    QWidget *popup() const { return tree()->window(); }
    bool show()
    {
        box.show();
        box.activateWindow();
        box.setFocus();
        return QTest::qWaitForWindowActive(&box);
    }
    bool openPopup()
    {
        if (!show())
            return false;
        box.showPopup();
        return QTest::qWaitForWindowExposed(popup());
    }
    void click(const QPoint &pos) { QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, pos); }
    QPoint middleOf(const QString &name) const { return tree()->visualRect(node(name)).center(); }
    QPoint arrowOf(const QString &name) const
    {
        const QRect text = tree()->visualRect(node(name));
        const int half = tree()->indentation() / 2;
        return {box.isRightToLeft() ? text.right() + half : text.left() - half, text.center().y()};
    }

    QStandardItemModel model;
    VXTreeBox box;
};

/// The last of @p depth nodes, each below the one before.
QStandardItem *appendBranch(QStandardItem *node, int depth)
{
    for (; depth > 0; --depth) {
        node->appendRow(item("Level"));
        node = node->child(node->rowCount() - 1);
    }
    return node;
}

/// Every signal of a box that tells of a choice, as "row text".
struct Heard
{
    explicit Heard(const VXTreeBox &box)
    {
        QObject::connect(&box, qOverload<int>(&QComboBox::currentIndexChanged), &context, [this, &box](int row) {
            log << QString("%1 %2").arg(row).arg(box.currentModelIndex().data().toString());
        });
    }
    QStringList take() { return std::exchange(log, {}); }

    QStringList log;
    QObject context;
};

/// One notch, as the window system delivers it: only a spontaneous event goes on to the widgets around.
void turnWheelDown(QWidget *widget)
{
    const QPointF place = widget->rect().center();
    QWheelEvent event(place, widget->mapToGlobal(place.toPoint()), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget, &event);
}

QString toolTipAt(QWidget *widget)
{
    QToolTip::hideText();
    const QPoint pos = widget->rect().center();
    QHelpEvent event(QEvent::ToolTip, pos, widget->mapToGlobal(pos));
    QApplication::sendEvent(widget, &event);
    return QToolTip::text();
}
} // namespace

void TestVXTreeBox::freshBox()
{
    VXTreeBox box;
    const auto *tree = qobject_cast<QTreeView *>(box.view());
    QVERIFY(tree);
    QVERIFY(tree->uniformRowHeights());
    QCOMPARE(box.currentIndex(), -1);
    QVERIFY(!box.currentModelIndex().isValid());
    QVERIFY(!box.defaultRootIndex().isValid());
    box.setDefaultRootIndex({});
    box.setCurrentModelIndex({});
    QCOMPARE(box.currentIndex(), -1);
    QVERIFY(!box.isEditable());
}

void TestVXTreeBox::itemsOfItsOwnWorkToo()
{
    VXTreeBox box;
    box.addItems({"one", "two"});
    QCOMPARE(box.view()->model(), box.model());
    QCOMPARE(box.currentModelIndex().data().toString(), QString("one"));
    box.setCurrentText("two");
    QCOMPARE(box.currentModelIndex(), box.model()->index(1, 0));
}

void TestVXTreeBox::settingAModelChoosesTheFirstRow()
{
    CompanyBox company;
    QStandardItemModel other;
    other.appendRow(item("Other", {item("Below")}));
    company.choose("Shelf");
    company.box.setModel(&other);
    QCOMPARE(company.box.view()->model(), &other);
    QCOMPARE(company.box.currentModelIndex(), other.index(0, 0));
}

void TestVXTreeBox::setCurrentModelIndex_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QStringList>("heard");
    QTest::newRow("top") << ""
                         << "Company" << QStringList{"0 Company"};
    QTest::newRow("nested") << ""
                            << "Shelf" << QStringList{"0 Shelf"};
    QTest::newRow("nested to another parent") << "North"
                                              << "South" << QStringList{"2 South"};
    QTest::newRow("same row below another parent") << "Accounts"
                                                   << "Attic" << QStringList{"0 Attic"};
    QTest::newRow("same row further up") << "Shelf"
                                         << "Company" << QStringList{"0 Company"};
    QTest::newRow("same row further down") << "Company"
                                           << "Shelf" << QStringList{"0 Shelf"};
    QTest::newRow("none") << "Shelf"
                          << "" << QStringList{"-1 "};
    QTest::newRow("the same") << "Shelf"
                              << "Shelf" << QStringList();
    QTest::newRow("none again") << ""
                                << "" << QStringList();
    QTest::newRow("by program also what a user cannot choose") << ""
                                                               << "Contractors" << QStringList{"1 Contractors"};
}

void TestVXTreeBox::setCurrentModelIndex()
{
    QFETCH(QString, before);
    QFETCH(QString, chosen);
    CompanyBox company;
    company.choose(before);
    Heard heard(company.box);
    const QSignalSpy texts(&company.box, &QComboBox::currentTextChanged);
    company.choose(chosen);
    QTEST(heard.take(), "heard");
    QCOMPARE(texts.count(), before == chosen ? 0 : 1);
    QCOMPARE(company.box.currentModelIndex(), company.node(chosen));
    QCOMPARE(company.box.currentText(), chosen);
    QCOMPARE(company.box.rootModelIndex(), QModelIndex());
    QCOMPARE(company.tree()->rootIndex(), QModelIndex());
}

void TestVXTreeBox::eachChangeOfNodeSignalsOnce()
{
    CompanyBox company;
    Heard heard(company.box);
    for (const char *name : {"Accounts", "Shelf", "Shelf", "Attic", "Company", "", "", "Accounts"})
        company.choose(name);
    QCOMPARE(heard.take(), QStringList({"0 Accounts", "0 Shelf", "0 Attic", "0 Company", "-1 ", "0 Accounts"}));
}

void TestVXTreeBox::listenersFindTheBoxInOrder()
{
    CompanyBox company;
    bool inOrder = false;
    connect(&company.box, qOverload<int>(&QComboBox::currentIndexChanged), &company.box, [&] {
        inOrder = !company.box.rootModelIndex().isValid() && company.box.count() == 2 &&
                  company.box.currentText() == "Shelf" && company.chosen() == "Shelf";
    });
    company.choose("Shelf");
    QVERIFY(inOrder);
}

void TestVXTreeBox::silentChoiceIsKnownToo()
{
    CompanyBox company;
    Heard heard(company.box);
    {
        const QSignalBlocker blocker(&company.box);
        company.choose("Shelf");
    }
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(company.chosen(), QString("Shelf"));
    QCOMPARE(company.box.rootModelIndex(), QModelIndex());
    {
        const QSignalBlocker blocker(&company.box);
        company.box.setCurrentIndex(-1);
    }
    QCOMPARE(company.chosen(), QString());
}

void TestVXTreeBox::choosingFromAHandler()
{
    CompanyBox company;
    Heard heard(company.box);
    connect(&company.box, qOverload<int>(&QComboBox::currentIndexChanged), &company.box, [&] {
        if (company.chosen() == "Shelf")
            company.choose("South");
    });
    company.choose("Shelf");
    QCOMPARE(heard.take(), QStringList({"0 Shelf", "2 South"}));
    QCOMPARE(company.box.currentModelIndex(), company.node("South"));
    QCOMPARE(company.box.currentText(), QString("South"));
    QCOMPARE(company.box.rootModelIndex(), QModelIndex());
}

void TestVXTreeBox::rowChosenTheUsualWay()
{
    CompanyBox company;
    company.choose("Shelf");
    Heard heard(company.box);
    company.box.setCurrentIndex(1);
    company.box.setCurrentText("Company");
    company.box.setCurrentIndex(-1);
    QCOMPARE(heard.take(), QStringList({"1 Museum", "0 Company", "-1 "}));
}

void TestVXTreeBox::chosenNodeMovesWithTheModel_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("top") << "Museum";
    QTest::newRow("nested") << "Accounts";
}

void TestVXTreeBox::chosenNodeMovesWithTheModel()
{
    QFETCH(QString, name);
    CompanyBox company;
    company.choose(name);
    QStandardItem *siblings = company.model.itemFromIndex(company.node(name))->parent();
    if (!siblings)
        siblings = company.model.invisibleRootItem();
    siblings->insertRow(0, item("New"));
    QCOMPARE(company.chosen(), name);
    siblings->removeRow(0);
    QCOMPARE(company.chosen(), name);
    siblings->insertRow(0, item("New"));
    company.choose("New");
    QCOMPARE(company.chosen(), QString("New"));
}

void TestVXTreeBox::sameRowNumberAtTheTopIsAnotherNode()
{
    CompanyBox company;
    company.choose("Accounts");
    Heard heard(company.box);
    company.box.setCurrentIndex(0);
    QCOMPARE(heard.take(), QStringList{"0 Company"});
    QCOMPARE(company.chosen(), QString("Company"));
}

void TestVXTreeBox::popupOpensWithTheChosenNode()
{
    CompanyBox company;
    company.choose("Shelf");
    QVERIFY(company.openPopup());
    QCOMPARE(company.tree()->currentIndex(), company.node("Shelf"));
    QCOMPARE(company.tree()->selectionModel()->selectedIndexes(), QModelIndexList{company.node("Shelf")});
    QVERIFY(company.tree()->viewport()->rect().contains(company.tree()->visualRect(company.node("Shelf")).center()));
    QVERIFY(company.tree()->hasFocus());

    // What was only looked at is forgotten.
    QTest::keyClick(company.tree(), Qt::Key_Home);
    QTest::keyClick(company.tree(), Qt::Key_Escape);
    company.box.showPopup();
    QCOMPARE(company.tree()->currentIndex(), company.node("Shelf"));
}

void TestVXTreeBox::popupOpensTheDefaultRoot_data()
{
    QTest::addColumn<QString>("root");
    QTest::addColumn<QStringList>("visible");
    QTest::newRow("first") << "Company" << QStringList{"Company", "North", "Contractors", "South", "Museum"};
    QTest::newRow("second") << "Museum" << QStringList{"Company", "Museum", "Attic"};
    QTest::newRow("none") << "" << QStringList{"Company", "Museum"};
    QTest::newRow("nested") << "Stores" << QStringList{"Company", "North",       "Accounts", "Stores",
                                                       "Shelf",   "Contractors", "South",    "Museum"};
}

void TestVXTreeBox::popupOpensTheDefaultRoot()
{
    QFETCH(QString, root);
    CompanyBox company;
    company.box.setDefaultRootIndex(company.node(root));
    QCOMPARE(company.box.defaultRootIndex(), company.node(root));
    QVERIFY(company.openPopup());
    QStringList visible;
    for (QModelIndex node = company.node("Company"); node.isValid(); node = company.tree()->indexBelow(node))
        visible << node.data().toString();
    QTEST(visible, "visible");
    QVERIFY(company.tree()->selectionModel()->selectedIndexes().isEmpty());
}

void TestVXTreeBox::popupHasASensibleSize_data()
{
    QTest::addColumn<QString>("longName");
    QTest::addColumn<int>("boxWidth");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    const int half = QApplication::primaryScreen()->availableGeometry().width() / 2;
    QTest::newRow("as wide as the box") << "" << 350 << 350 << 350;
    QTest::newRow("wider than a small box") << "" << 60 << 240 << 240;
    QTest::newRow("wide enough for its names") << QString("W").repeated(26) << 100 << 260 << half;
    QTest::newRow("not as wide as any name") << QString("W").repeated(100) << 100 << half << half;
}

void TestVXTreeBox::popupHasASensibleSize()
{
    QFETCH(QString, longName);
    QFETCH(int, boxWidth);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    CompanyBox company;
    company.box.setFixedSize(boxWidth, 100);
    if (!longName.isEmpty())
        company.model.item(0)->appendRow(item(longName));
    QVERIFY(company.openPopup());
    QVERIFY2(company.popup()->width() >= minimum && company.popup()->width() <= maximum,
             qPrintable(QString::number(company.popup()->width())));
    // Room for the branches that are still closed, and one row does not hide in the frame.
    const int rowHeight = company.tree()->visualRect(company.node("Company")).height();
    QVERIFY(company.tree()->viewport()->height() >= company.box.maxVisibleItems() * rowHeight);
    QVERIFY(rowHeight >= company.box.fontMetrics().height() + 4);
}

void TestVXTreeBox::longPopupHasAScrollBar_data()
{
    QTest::addColumn<QString>("style");
    QTest::newRow("style whose popups look like menus") << "Fusion";
    QTest::newRow("style whose popups look like lists") << "Windows";
}

void TestVXTreeBox::longPopupHasAScrollBar()
{
    QFETCH(QString, style);
    /// Puts the previous style back.
    struct StyledApplication
    {
        explicit StyledApplication(const QString &style)
            : before(QApplication::style()->objectName())
        {
            QApplication::setStyle(style);
        }
        ~StyledApplication() { QApplication::setStyle(before); }
        QString before;
    } const application(style);
    CompanyBox company;
    for (int i = 0; i < 100; ++i)
        company.model.appendRow(item(QString("Museum %1").arg(i)));
    company.box.setDefaultRootIndex(company.node("Museum 50"));
    QVERIFY(company.openPopup());

    // Nothing is chosen, but the default root is in sight.
    const QRect root = company.tree()->visualRect(company.node("Museum 50"));
    QVERIFY(company.tree()->viewport()->rect().contains(root.center()));
    QVERIFY(company.tree()->verticalScrollBar()->isVisible());
    const int frame = qobject_cast<QFrame *>(company.popup())->frameWidth();
    QCOMPARE(company.tree()->geometry(), company.popup()->rect().adjusted(frame, frame, -frame, -frame));
    QTest::keyClick(company.tree(), Qt::Key_End);
    QCOMPARE(company.tree()->geometry(), company.popup()->rect().adjusted(frame, frame, -frame, -frame));
}

void TestVXTreeBox::popupStaysOnTheScreen_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<bool>("below");
    const QRect screen = QApplication::primaryScreen()->availableGeometry();
    QTest::newRow("top left") << screen.topLeft() << true;
    QTest::newRow("top right") << screen.topRight() - QPoint(100, 0) << true;
    QTest::newRow("bottom left") << screen.bottomLeft() - QPoint(0, 110) << false;
    QTest::newRow("bottom right") << screen.bottomRight() - QPoint(100, 110) << false;
}

void TestVXTreeBox::popupStaysOnTheScreen()
{
    QFETCH(QPoint, place);
    QFETCH(bool, below);
    CompanyBox company;
    company.box.setFixedSize(90, 100);
    company.box.move(place);
    QVERIFY(company.openPopup());
    const QRect popup = company.popup()->geometry();
    const QRect box(company.box.mapToGlobal(QPoint(0, 0)), company.box.size());
    QVERIFY(QApplication::primaryScreen()->availableGeometry().contains(popup));
    QVERIFY(!popup.intersects(box));
    QCOMPARE(popup.top() > box.top(), below);
}

void TestVXTreeBox::popupShowsTheTextOfDeepNodes()
{
    CompanyBox company;
    const QStandardItem *deepest = appendBranch(company.model.item(0), 100);
    company.box.setCurrentModelIndex(deepest->index());
    QVERIFY(company.openPopup());
    const QRect text = company.tree()->visualRect(deepest->index());
    const QRect visible = company.tree()->viewport()->rect();
    QVERIFY(visible.contains(text.left() + 10, text.center().y()));
    QVERIFY(visible.right() - text.left() >= company.box.fontMetrics().horizontalAdvance("Level"));
}

void TestVXTreeBox::popupDoesNotMoveSidewaysWithoutNeed()
{
    CompanyBox company;
    const QStandardItem *deepest = appendBranch(company.model.item(0), 100);
    company.box.setCurrentModelIndex(deepest->index());
    QVERIFY(company.openPopup());
    const QScrollBar *sideways = company.tree()->horizontalScrollBar();
    const int shift = sideways->value();
    QVERIFY(shift > 0);
    QTest::keyClick(company.tree(), Qt::Key_Up);
    QCOMPARE(sideways->value(), shift);
    QTest::keyClick(company.tree(), Qt::Key_Home);
    QCOMPARE(sideways->value(), 0);
    QTest::keyClick(company.tree(), Qt::Key_Down);
    QCOMPARE(sideways->value(), 0);
}

void TestVXTreeBox::emptyBoxHasNoPopup()
{
    VXTreeBox box;
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    box.showPopup();
    QVERIFY(!box.view()->isVisible());
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End, Qt::Key_A, Qt::Key_F4})
        QTest::keyClick(&box, key);
    QCOMPARE(box.currentIndex(), -1);
}

void TestVXTreeBox::clickChooses_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("clicked");
    QTest::addColumn<QStringList>("heard");
    QTest::newRow("default root") << ""
                                  << "Company" << QStringList{"0 Company"};
    QTest::newRow("nested") << ""
                            << "North" << QStringList{"0 North"};
    QTest::newRow("same row number") << "Accounts"
                                     << "North" << QStringList{"0 North"};
    QTest::newRow("deep") << "Shelf"
                          << "Stores" << QStringList{"1 Stores"};
    QTest::newRow("the chosen one") << "Shelf"
                                    << "Shelf" << QStringList();
}

void TestVXTreeBox::clickChooses()
{
    QFETCH(QString, before);
    QFETCH(QString, clicked);
    CompanyBox company;
    company.choose(before);
    QVERIFY(company.openPopup());
    Heard heard(company.box);
    const QSignalSpy activated(&company.box, qOverload<int>(&QComboBox::activated));
    company.click(company.middleOf(clicked));
    QTEST(heard.take(), "heard");
    QCOMPARE(activated.count(), 1);
    QCOMPARE(company.box.currentModelIndex(), company.node(clicked));
    QCOMPARE(company.box.currentText(), clicked);
    QVERIFY(!company.popup()->isVisible());
}

void TestVXTreeBox::clickThatIsNoChoice_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<QString>("row");
    QTest::newRow("on a row that cannot be chosen") << Qt::LeftButton << "Contractors";
    QTest::newRow("right button") << Qt::RightButton << "North";
    QTest::newRow("middle button") << Qt::MiddleButton << "North";
    QTest::newRow("below the rows") << Qt::LeftButton << "";
}

void TestVXTreeBox::clickThatIsNoChoice()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(QString, row);
    CompanyBox company;
    company.choose("South");
    QVERIFY(company.openPopup());
    Heard heard(company.box);
    QWidget *viewport = company.tree()->viewport();
    const QPoint pos = row.isEmpty() ? viewport->rect().bottomRight() - QPoint(5, 5) : company.middleOf(row);
    QTest::mouseMove(viewport, pos);
    QTest::mouseClick(viewport, button, {}, pos);
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(company.chosen(), QString("South"));
    QVERIFY(company.popup()->isVisible());
}

void TestVXTreeBox::clickOnAnArrowOpensAndCloses_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<int>("reactsTo");
    QTest::newRow("nested") << "North" << Qt::LeftToRight << int(QEvent::MouseButtonPress);
    QTest::newRow("top") << "Museum" << Qt::LeftToRight << int(QEvent::MouseButtonPress);
    QTest::newRow("of a row that cannot be chosen")
        << "Contractors" << Qt::LeftToRight << int(QEvent::MouseButtonPress);
    QTest::newRow("from right to left") << "North" << Qt::RightToLeft << int(QEvent::MouseButtonPress);
    QTest::newRow("in a style that waits for the release")
        << "North" << Qt::LeftToRight << int(QEvent::MouseButtonRelease);
}

void TestVXTreeBox::clickOnAnArrowOpensAndCloses()
{
    QFETCH(QString, row);
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(int, reactsTo);
    /// Says which part of a click moves an arrow.
    class ArrowStyle : public QProxyStyle
    {
    public:
        int reactsTo;
        int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                      QStyleHintReturn *data) const override
        {
            return hint == SH_ListViewExpand_SelectMouseType ? reactsTo
                                                             : QProxyStyle::styleHint(hint, option, widget, data);
        }
    } style;
    style.reactsTo = reactsTo;
    CompanyBox company;
    company.box.setLayoutDirection(direction);
    company.tree()->setStyle(&style);
    QVERIFY(company.openPopup());
    Heard heard(company.box);
    company.click(company.arrowOf(row));
    QVERIFY(company.tree()->isExpanded(company.node(row)));
    company.click(company.arrowOf(row));
    QVERIFY(!company.tree()->isExpanded(company.node(row)));

    // Neither is a press on the arrow that ends on a row.
    QTest::mousePress(company.tree()->viewport(), Qt::LeftButton, {}, company.arrowOf(row));
    QTest::mouseMove(company.tree()->viewport(), company.middleOf("Company"));
    QTest::mouseRelease(company.tree()->viewport(), Qt::LeftButton, {}, company.middleOf("Company"));
    QCOMPARE(heard.take(), QStringList());
    QVERIFY(company.popup()->isVisible());
    company.click(company.middleOf("Company"));
    QCOMPARE(heard.take(), QStringList{"0 Company"});
}

void TestVXTreeBox::clickBesideThePopupClosesIt()
{
    CompanyBox company;
    QVERIFY(company.openPopup());
    QTest::mouseClick(company.popup(), Qt::LeftButton, {}, QPoint(-30, -30));
    QVERIFY(!company.popup()->isVisible());
    QCOMPARE(company.chosen(), QString());
}

void TestVXTreeBox::pressOnTheBoxDragAndReleaseChooses()
{
    CompanyBox company;
    QVERIFY(company.show());
    QTest::mousePress(&company.box, Qt::LeftButton);
    QVERIFY(company.popup()->isVisible());
    QTest::mouseMove(company.tree()->viewport(), company.middleOf("South"));
    QTest::mouseRelease(company.tree()->viewport(), Qt::LeftButton, {}, company.middleOf("South"));
    QCOMPARE(company.chosen(), QString("South"));
}

void TestVXTreeBox::openingClickIsNoChoice()
{
    CompanyBox company;
    QVERIFY(company.show());
    QTest::mousePress(&company.box, Qt::LeftButton);
    QVERIFY(company.popup()->isVisible());
    // As where the popup had to be put over the box: the button is released on a row.
    QTest::mouseRelease(company.tree()->viewport(), Qt::LeftButton, {}, company.middleOf("South"));
    QVERIFY(company.popup()->isVisible());
    QCOMPARE(company.chosen(), QString());
}

void TestVXTreeBox::enterChooses_data()
{
    QTest::addColumn<QVector<Qt::Key>>("keys");
    QTest::addColumn<QStringList>("heard");
    using Keys = QVector<Qt::Key>;
    QTest::newRow("first row") << Keys{Qt::Key_Down, Qt::Key_Return} << QStringList{"0 Company"};
    QTest::newRow("on the keypad") << Keys{Qt::Key_Down, Qt::Key_Enter} << QStringList{"0 Company"};
    QTest::newRow("nested") << Keys{Qt::Key_Down, Qt::Key_Down, Qt::Key_Return} << QStringList{"0 North"};
    QTest::newRow("opened") << Keys{Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Down, Qt::Key_Return}
                            << QStringList{"0 Accounts"};
    QTest::newRow("nothing") << Keys{Qt::Key_Return} << QStringList();
    QTest::newRow("row that cannot be chosen")
        << Keys{Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return} << QStringList();
    QTest::newRow("below a row that cannot be chosen")
        << Keys{Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Down, Qt::Key_Return}
        << QStringList{"0 Builders"};
    QTest::newRow("last") << Keys{Qt::Key_Down, Qt::Key_End, Qt::Key_Return} << QStringList{"1 Museum"};
    QTest::newRow("by its letter") << Keys{Qt::Key_M, Qt::Key_Return} << QStringList{"1 Museum"};
}

void TestVXTreeBox::enterChooses()
{
    QFETCH(QVector<Qt::Key>, keys);
    QFETCH(QStringList, heard);
    CompanyBox company;
    QVERIFY(company.openPopup());
    Heard log(company.box);
    for (const Qt::Key key : keys)
        QTest::keyClick(company.tree(), key);
    QCOMPARE(log.take(), heard);
    QCOMPARE(company.popup()->isVisible(), heard.isEmpty());
}

void TestVXTreeBox::arrowsOpenBranchesInThePopup()
{
    CompanyBox company;
    QVERIFY(company.openPopup());
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Right})
        QTest::keyClick(company.tree(), key);
    QVERIFY(company.tree()->isExpanded(company.node("Contractors")));
    QTest::keyClick(company.tree(), Qt::Key_Left);
    QVERIFY(!company.tree()->isExpanded(company.node("Contractors")));
    QVERIFY(company.tree()->selectionModel()->selectedIndexes().isEmpty());
}

void TestVXTreeBox::escapeChangesNothing()
{
    CompanyBox company;
    company.choose("North");
    QVERIFY(company.openPopup());
    Heard heard(company.box);
    QTest::keyClick(company.tree(), Qt::Key_End);
    QTest::keyClick(company.tree(), Qt::Key_Escape);
    QVERIFY(!company.popup()->isVisible());
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(company.chosen(), QString("North"));
    QCOMPARE(company.box.currentText(), QString("North"));
}

void TestVXTreeBox::boxMayBeDeletedByAChoice()
{
    QStandardItemModel model;
    model.appendRow(item("Company", {item("North")}));
    QPointer<VXTreeBox> box = new VXTreeBox;
    box->setModel(&model);
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box));
    box->showPopup();
    connect(box, qOverload<int>(&QComboBox::activated), [&box] { delete box; });
    QTest::keyClick(box->view(), Qt::Key_Right);
    QTest::keyClick(box->view(), Qt::Key_Down);
    QTest::keyPress(box->view(), Qt::Key_Return);
    QVERIFY(!box);
}

void TestVXTreeBox::boxMayBeDeletedWithItsPopupOpen()
{
    auto company = std::make_unique<CompanyBox>();
    QVERIFY(company->openPopup());
    company.reset();
    QVERIFY(!QApplication::activePopupWidget());
}

void TestVXTreeBox::keysOnTheClosedBox_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("after");
    QTest::newRow("down from nothing") << "" << Qt::Key_Down << "Company";
    QTest::newRow("up from nothing") << "" << Qt::Key_Up << "";
    QTest::newRow("down into the default root") << "Company" << Qt::Key_Down << "North";
    QTest::newRow("down past a closed branch and a row that cannot be chosen") << "North" << Qt::Key_Down << "South";
    QTest::newRow("down out of a branch") << "South" << Qt::Key_Down << "Museum";
    QTest::newRow("down within an open branch") << "Accounts" << Qt::Key_Down << "Stores";
    QTest::newRow("down from the last of a branch") << "Stores" << Qt::Key_Down << "South";
    QTest::newRow("down at the end") << "Museum" << Qt::Key_Down << "Museum";
    QTest::newRow("up to the parent") << "Accounts" << Qt::Key_Up << "North";
    QTest::newRow("up into the default root") << "Museum" << Qt::Key_Up << "South";
    QTest::newRow("up past a row that cannot be chosen") << "South" << Qt::Key_Up << "North";
    QTest::newRow("up from below a row that cannot be chosen") << "Builders" << Qt::Key_Up << "North";
    QTest::newRow("up at the beginning") << "Company" << Qt::Key_Up << "Company";
    QTest::newRow("page down") << "Company" << Qt::Key_PageDown << "North";
    QTest::newRow("page up") << "North" << Qt::Key_PageUp << "Company";
    QTest::newRow("home") << "Attic" << Qt::Key_Home << "Company";
    QTest::newRow("end") << "Company" << Qt::Key_End << "Museum";
    QTest::newRow("end in an open branch") << "Attic" << Qt::Key_End << "Attic";
    QTest::newRow("left") << "North" << Qt::Key_Left << "North";
    QTest::newRow("right") << "North" << Qt::Key_Right << "North";
}

void TestVXTreeBox::keysOnTheClosedBox()
{
    QFETCH(QString, before);
    QFETCH(Qt::Key, key);
    QFETCH(QString, after);
    CompanyBox company;
    company.choose(before);
    QVERIFY(company.show());
    Heard heard(company.box);
    QTest::keyClick(&company.box, key);
    QCOMPARE(company.chosen(), after);
    QCOMPARE(company.box.currentText(), after);
    QCOMPARE(heard.take().count(), before == after ? 0 : 1);
    QVERIFY(!company.popup()->isVisible());
}

void TestVXTreeBox::keysOpenThePopup_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("opens");
    QTest::newRow("F4") << Qt::Key_F4 << Qt::KeyboardModifiers() << true;
    QTest::newRow("Alt+Down") << Qt::Key_Down << Qt::KeyboardModifiers(Qt::AltModifier) << true;
    QTest::newRow("Alt+Up") << Qt::Key_Up << Qt::KeyboardModifiers(Qt::AltModifier) << true;
    QTest::newRow("space") << Qt::Key_Space << Qt::KeyboardModifiers() << true;
    QTest::newRow("Ctrl+Down") << Qt::Key_Down << Qt::KeyboardModifiers(Qt::ControlModifier) << false;
    QTest::newRow("Ctrl+End") << Qt::Key_End << Qt::KeyboardModifiers(Qt::ControlModifier) << false;
    QTest::newRow("Alt+M") << Qt::Key_M << Qt::KeyboardModifiers(Qt::AltModifier) << false;
    QTest::newRow("Ctrl+M") << Qt::Key_M << Qt::KeyboardModifiers(Qt::ControlModifier) << false;
}

void TestVXTreeBox::keysOpenThePopup()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(bool, opens);
    CompanyBox company;
    company.choose("North");
    QVERIFY(company.show());
    QTest::keyClick(&company.box, key, modifiers);
    QCOMPARE(company.popup()->isVisible(), opens);
    QCOMPARE(company.chosen(), QString("North"));
}

void TestVXTreeBox::keysForTheDialogAreLeftToIt_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("left");
    QTest::newRow("return") << Qt::Key_Return << true;
    QTest::newRow("escape") << Qt::Key_Escape << true;
    QTest::newRow("tabulator keys are no letters") << Qt::Key_Delete << true;
    QTest::newRow("down") << Qt::Key_Down << false;
    QTest::newRow("letter") << Qt::Key_M << false;
}

void TestVXTreeBox::keysForTheDialogAreLeftToIt()
{
    QFETCH(Qt::Key, key);
    /// Counts the keys that nobody wanted.
    class Page : public QWidget
    {
    public:
        int keys = 0;

    protected:
        void keyPressEvent(QKeyEvent *) override { ++keys; }
    };
    Page page;
    CompanyBox company;
    company.box.setParent(&page);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QTest::keyClick(&company.box, key);
    QTEST(page.keys == 1, "left");
    company.box.setParent(nullptr);
}

void TestVXTreeBox::typedLettersFindNames_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("after");
    QTest::newRow("from nothing") << ""
                                  << "n"
                                  << "North";
    QTest::newRow("first name") << ""
                                << "c"
                                << "Company";
    QTest::newRow("either case") << ""
                                 << "MU"
                                 << "Museum";
    QTest::newRow("several letters") << "Company"
                                     << "so"
                                     << "South";
    QTest::newRow("letters keep to a fitting name") << "South"
                                                    << "sou"
                                                    << "South";
    QTest::newRow("around the end") << "Museum"
                                    << "n"
                                    << "North";
    QTest::newRow("one letter goes on") << "Stores"
                                        << "s"
                                        << "South";
    QTest::newRow("one letter twice goes on twice") << "Accounts"
                                                    << "ss"
                                                    << "South";
    QTest::newRow("no such name") << "North"
                                  << "x"
                                  << "North";
    QTest::newRow("no longer such a name") << "Company"
                                           << "sox"
                                           << "South";
    QTest::newRow("in an open branch") << "Accounts"
                                       << "st"
                                       << "Stores";
    QTest::newRow("not in a closed branch") << "Company"
                                            << "st"
                                            << "South";
    QTest::newRow("not what cannot be chosen") << "North"
                                               << "con"
                                               << "Company";
}

void TestVXTreeBox::typedLettersFindNames()
{
    QFETCH(QString, before);
    QFETCH(QString, typed);
    CompanyBox company;
    company.choose(before);
    QVERIFY(company.show());
    QTest::keyClicks(&company.box, typed);
    QTEST(company.chosen(), "after");
    QVERIFY(!company.popup()->isVisible());
}

void TestVXTreeBox::spaceBelongsToARunningSearch()
{
    CompanyBox company;
    company.model.item(0)->appendRow(item("South West"));
    QVERIFY(company.show());
    QTest::keyClicks(&company.box, "south w");
    QCOMPARE(company.chosen(), QString("South West"));
    QVERIFY(!company.popup()->isVisible());
}

void TestVXTreeBox::wheelScrollsThePageInstead_data()
{
    QTest::addColumn<bool>("focused");
    QTest::newRow("without focus") << false;
    QTest::newRow("with focus") << true;
}

void TestVXTreeBox::wheelScrollsThePageInstead()
{
    QFETCH(bool, focused);
    CompanyBox company;
    company.choose("North");
    QScrollArea area;
    auto *page = new QWidget;
    page->resize(450, 3000);
    company.box.setParent(page);
    area.setWidget(page);
    area.resize(460, 200);
    area.show();
    area.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&area));
    (focused ? static_cast<QWidget *>(&company.box) : &area)->setFocus();
    QCOMPARE(company.box.hasFocus(), focused);

    turnWheelDown(&company.box);
    QCOMPARE(company.chosen(), QString("North"));
    QCOMPARE(company.box.hasFocus(), focused);
    QVERIFY(area.verticalScrollBar()->value() > 0);
    company.box.setParent(nullptr);
}

void TestVXTreeBox::closedBoxPaintsTheName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("lines"); // of the branch: Company, North, Stores, Shelf
    QTest::newRow("low, dark text") << "Shelf" << 30 << true << QColor(Qt::black) << 1;
    QTest::newRow("two lines high") << "Shelf" << 60 << true << QColor(Qt::black) << 2;
    QTest::newRow("high, dark text") << "Shelf" << 200 << true << QColor(Qt::black) << 4;
    QTest::newRow("high, light text") << "Shelf" << 200 << true << QColor(Qt::white) << 4;
    QTest::newRow("disabled") << "Shelf" << 100 << false << QColor(Qt::blue) << 4;
    QTest::newRow("lines") << "She\nlf" << 100 << true << QColor(Qt::black) << 4;
    QTest::newRow("too long") << QString(500, 'W') << 100 << true << QColor(Qt::black) << 4;
}

void TestVXTreeBox::closedBoxPaintsTheName()
{
    QFETCH(QString, name);
    QFETCH(int, height);
    QFETCH(bool, enabled);
    QFETCH(QColor, color);
    QFETCH(int, lines);
    CompanyBox company;
    const QPersistentModelIndex node = company.node("Shelf");
    company.model.itemFromIndex(node)->setText(name);
    QPixmap square(16, 16);
    square.fill(Qt::red);
    company.model.itemFromIndex(node)->setIcon(square);
    QPalette palette(Qt::gray);
    palette.setColor(enabled ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText, color);
    company.box.setPalette(palette);
    company.box.setEnabled(enabled);
    QFont font;
    font.setPixelSize(17); // as high as the lines that are counted below
    company.box.setFont(font);
    company.box.setFixedSize(400, height);
    company.choose("");
    const QImage without = company.box.grab().toImage();
    company.box.setCurrentModelIndex(node);
    const QImage with = company.box.grab().toImage();

    // What the names and the icon change lies around the middle line.
    QRect changed;
    bool isIconTinted = false;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < 400; ++x) {
            if (with.pixel(x, y) == without.pixel(x, y))
                continue;
            changed |= QRect(x, y, 1, 1);
            isIconTinted = isIconTinted || with.pixelColor(x, y) == color;
            QVERIFY(with.pixelColor(x, y) != QColor(Qt::red));
        }
    }
    QVERIFY(isIconTinted);
    QVERIFY(qAbs(changed.center().y() - height / 2) <= 3);
    QVERIFY(changed.width() > company.box.fontMetrics().horizontalAdvance("Shelf"));
    QVERIFY(changed.width() < 385); // not over the arrow
    QVERIFY2(changed.height() > 20 * (lines - 1), qPrintable(QString::number(changed.height())));
    QVERIFY2(changed.height() < 20 * lines + 10, qPrintable(QString::number(changed.height())));
}

void TestVXTreeBox::cutOffNameHasAToolTip_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("ownToolTip");
    QTest::addColumn<QString>("shown");
    QTest::newRow("short name") << "Stores"
                                << ""
                                << "";
    QTest::newRow("short name, box with a tool tip") << "Stores"
                                                     << "Where to"
                                                     << "Where to";
    QTest::newRow("long name") << "Long name, long name, long name, long name"
                               << ""
                               << "<span>Company › &lt;b&gt;North&lt;/b&gt; › "
                                  "Long name, long name, long name, long name</span>";
    QTest::newRow("long name, box with a tool tip")
        << "Long name, long name, long name, long name"
        << "Where to"
        << "<span>Company › &lt;b&gt;North&lt;/b&gt; › Long name, long name, long name, long name</span>";
}

void TestVXTreeBox::cutOffNameHasAToolTip()
{
    QFETCH(QString, chosen);
    QFETCH(QString, ownToolTip);
    CompanyBox company;
    QStandardItem *north = company.model.itemFromIndex(company.node("North"));
    north->appendRow(item("Long name, long name, long name, long name"));
    north->setText("<b>North</b>");
    company.box.setFixedSize(150, 100);
    company.box.setToolTip(ownToolTip);
    company.choose(chosen);
    QVERIFY(company.show());
    QTEST(toolTipAt(&company.box), "shown");
    QToolTip::hideText();
}

void TestVXTreeBox::longPathIsShortenedAtItsBeginning()
{
    CompanyBox company;
    QStandardItem *deepest = appendBranch(company.model.item(0), 500);
    deepest->setText("The name that counts");
    company.box.setFixedSize(60, 100);
    company.box.setCurrentModelIndex(deepest->index());
    QVERIFY(company.show());
    const QString toolTip = toolTipAt(&company.box);
    QToolTip::hideText();
    QVERIFY(toolTip.startsWith("<span>… › Level › "));
    QVERIFY(toolTip.endsWith(" › Level › The name that counts</span>"));
    QVERIFY(toolTip.size() < 1200);
}

void TestVXTreeBox::hostileNamesArePainted_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("markup") << "<h1>Big</h1><img src='/etc/passwd'>";
    QTest::newRow("lines") << "one\ntwo\r\nthree\u2028four\u2029five\tsix";
    QTest::newRow("a megabyte") << QString(1024 * 1024, 'W');
    QTest::newRow("a megabyte of lines") << QString(1024 * 1024, '\n');
    QTest::newRow("null character") << QString(QChar(QChar::Null));
    QTest::newRow("half a character") << QString(QChar(0xd83d));
    QTest::newRow("right to left") << "\u202eevil\u202c";
    QTest::newRow("ampersands") << "R&D && more";
    QTest::newRow("empty") << "";
}

void TestVXTreeBox::hostileNamesArePainted()
{
    QFETCH(QString, name);
    CompanyBox company;
    const int rowHeight = [] {
        CompanyBox calm;
        return calm.openPopup() ? calm.tree()->visualRect(calm.node("Company")).height() : 0;
    }();
    const QPersistentModelIndex north = company.node("North");
    company.model.itemFromIndex(north)->setText(name);
    company.model.item(0)->setText(name);
    company.box.setCurrentModelIndex(north);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(company.openPopup());
    company.box.grab();
    company.popup()->grab();
    toolTipAt(&company.box);
    QToolTip::hideText();
    QVERIFY(timer.elapsed() < 3000);
    QCOMPARE(company.tree()->visualRect(north).height(), rowHeight);
    QCOMPARE(company.box.currentText(), name);
}

void TestVXTreeBox::viewHasAnAccessibleName()
{
    CompanyBox company;
    QVERIFY(company.openPopup());
    QAccessibleInterface *view = QAccessible::queryAccessibleInterface(company.tree());
    QVERIFY(view);
    QCOMPARE(view->role(), QAccessible::Tree);
    QVERIFY(!view->text(QAccessible::Name).isEmpty());
    company.box.hidePopup();

    company.box.setAccessibleName("Department");
    company.box.showPopup();
    QCOMPARE(view->text(QAccessible::Name), QString("Department"));
    QCOMPARE(QAccessible::queryAccessibleInterface(&company.box)->role(), QAccessible::ComboBox);
}

QTEST_MAIN(TestVXTreeBox)
#include "tst_vxtreebox.moc"
