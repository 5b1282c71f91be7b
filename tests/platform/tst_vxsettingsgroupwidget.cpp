#include <vxwidgets/vxsettingsgroupwidget.h>

#include "brackettranslator.h"
#include "messages.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTest>
#include <QToolButton>

/// Where the frame is when something is done to it.
enum class Stage { NeverShown, OnScreen, HiddenAgain };
Q_DECLARE_METATYPE(Stage)

class TestVXSettingsGroupWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void newFrameIsExpandedWithALine();
    void readersAnswerWhatWasSet();
    void headerTakesSpaceOnlyIfItShowsSomething_data();
    void headerTakesSpaceOnlyIfItShowsSomething();
    void headerComesAndGoesOnScreen();
    void marginsSurroundEverything();

    void collapsingHidesTheBodyAndGivesItsSpaceBack_data() { stages(); }
    void collapsingHidesTheBodyAndGivesItsSpaceBack();
    void ancestorsNoticeFoldingBeforeTheFirstShow();
    void foldingTwiceChangesNothing_data() { stages(); }
    void foldingTwiceChangesNothing();
    void widgetAddedWhileCollapsedComesWithTheBody_data() { stages(); }
    void widgetAddedWhileCollapsedComesWithTheBody();
    void widgetsStandOneUnderTheOther();
    void buildingPolishesAndMeasuresNothing();
    void ownerMayHideAnAddedWidget();

    void buttonFoldsTheBody_data();
    void buttonFoldsTheBody();
    void buttonSaysWhatItWillDo();
    void buttonComesAndGoes_data() { stages(); }
    void buttonComesAndGoes();
    void buttonIsReachedByTab();
    void textsFollowTheLanguage();

    void splitterTakesTheSpareHeight();
    void bodyTakesAllTheHeightThatTheFrameGets();
    void collapsedFrameKeepsItsHeaderAtTheTop();
    void scrolledPageShowsEverything_data();
    void scrolledPageShowsEverything();
    void scrolledPageFollowsFolding();

    void iconIsDrawnInTheTextColour();
    void lineIsDrawnOnlyIfAskedFor();
    void rightToLeftIsMirrored();

    void addedWidgetMayGoFirst();
    void frameMayGoFirst();

private:
    static void stages();
};

namespace {

const QSize probeSize(300, 40); // wider than any header here

/// A widget of fixed size that counts what is done to it.
class Probe : public QWidget
{
public:
    using QWidget::QWidget;

    QSize sizeHint() const override
    {
        ++measured;
        return probeSize;
    }

    mutable int measured = 0;
    int polished = 0;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::Polish)
            ++polished;
        return QWidget::event(event);
    }
};

QIcon blackIcon()
{
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::black);
    return pixmap;
}

/// A frame with icon and title and a probe in it, brought to a stage.
struct StagedFrame
{
    explicit StagedFrame(Stage stage = Stage::NeverShown)
    {
        frame.setTitle("Пароли");
        frame.setIcon(blackIcon()); // higher than the button
        frame.addWidget(probe);
        if (stage == Stage::NeverShown)
            return;

        frame.show();
        ready = QTest::qWaitForWindowExposed(&frame);
        if (stage == Stage::HiddenAgain)
            frame.hide();
    }

    /// Makes sure that the frame is on screen with its layout done.
    bool show()
    {
        frame.show();
        const bool exposed = QTest::qWaitForWindowExposed(&frame);
        QCoreApplication::processEvents();
        return exposed;
    }

    VXSettingsGroupWidget frame{nullptr};
    Probe *probe = new Probe;
    bool ready = true;
};

QToolButton *foldButton(const QWidget &frame)
{
    return frame.findChild<QToolButton *>();
}

/// Caption on the left, editor on the right, as on a settings page.
QWidget *createRow(QWidget *parent)
{
    auto *row = new QWidget(parent);
    auto *grid = new QGridLayout(row);
    grid->setContentsMargins(25, 0, 0, 0);
    auto *caption = new QLabel("Максимальное количество карт, которое может быть выдано одному сотруднику", row);
    caption->setWordWrap(true);
    grid->addWidget(caption, 0, 0);
    grid->addWidget(new QLineEdit(row), 0, 1);
    return row;
}

/// A content widget with a grid of @p rows rows, and an empty splitter below.
QGridLayout *fill(VXSettingsGroupWidget *frame, int rows)
{
    auto *content = new QWidget(frame);
    auto *grid = new QGridLayout(content);
    for (int row = 0; row < rows; ++row)
        grid->addWidget(createRow(frame), row, 0);
    frame->addWidget(content);
    frame->addWidget(new QSplitter(Qt::Vertical, frame));
    return grid;
}

/// A page as it is built for a group: rows, a nested group and a row below that.
struct Page
{
    Page()
    {
        frame->collapse();
        frame->setContentMargins({10, 6, 10, 6});
        QGridLayout *grid = fill(frame, 3);
        nested->setTitle("Сложность пароля");
        nested->setShowHideButton(true);
        nested->setShowLineHorizontal(false);
        fill(nested, 2);
        grid->addWidget(nested, 3, 0);
        last = createRow(frame);
        grid->addWidget(last, 4, 0);
        frame->expand();
        frame->setTitle("Пользователи");
        frame->setIcon(blackIcon());
    }

    VXSettingsGroupWidget *frame = new VXSettingsGroupWidget(nullptr);
    VXSettingsGroupWidget *nested = new VXSettingsGroupWidget(frame);
    QWidget *last = nullptr;
};

/// The rectangle of @p widget in the coordinates of its ancestor @p frame.
QRect rectIn(const QWidget *frame, const QWidget *widget)
{
    return {widget->mapTo(frame, QPoint()), widget->size()};
}
} // namespace

void TestVXSettingsGroupWidget::stages()
{
    QTest::addColumn<Stage>("stage");
    QTest::newRow("before the first show") << Stage::NeverShown;
    QTest::newRow("on screen") << Stage::OnScreen;
    QTest::newRow("while hidden again") << Stage::HiddenAgain;
}

void TestVXSettingsGroupWidget::newFrameIsExpandedWithALine()
{
    QWidget parent;
    const auto *frame = new VXSettingsGroupWidget(&parent);
    QCOMPARE(frame->parentWidget(), &parent);
    QVERIFY(frame->isExpanded());
    QVERIFY(!frame->isShowHideButton());
    QVERIFY(frame->isShowLineHorizontal());
    QCOMPARE(frame->contentMargins(), QMargins());
    QVERIFY(frame->title().isEmpty());
    QVERIFY(frame->icon().isNull());
}

void TestVXSettingsGroupWidget::readersAnswerWhatWasSet()
{
    VXSettingsGroupWidget frame(nullptr);
    const QIcon icon = blackIcon();
    frame.setTitle("Права && пароли");
    frame.setIcon(icon);
    frame.setContentMargins({10, 6, 11, 7});
    frame.setShowHideButton(true);
    frame.setShowLineHorizontal(false);
    frame.collapse();

    QCOMPARE(frame.title(), QStringLiteral("Права && пароли"));
    QCOMPARE(frame.accessibleName(), QStringLiteral("Права && пароли"));
    QCOMPARE(frame.icon().cacheKey(), icon.cacheKey());
    QCOMPARE(frame.contentMargins(), QMargins(10, 6, 11, 7));
    QVERIFY(frame.isShowHideButton());
    QVERIFY(!frame.isShowLineHorizontal());
    QVERIFY(!frame.isExpanded());
}

void TestVXSettingsGroupWidget::headerTakesSpaceOnlyIfItShowsSomething_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("icon");
    QTest::addColumn<bool>("button");
    QTest::addColumn<bool>("header");
    QTest::newRow("nothing but the line") << "" << false << false << false;
    QTest::newRow("title") << "Пароли" << false << false << true;
    QTest::newRow("icon") << "" << true << false << true;
    QTest::newRow("button") << "" << false << true << true;
}

void TestVXSettingsGroupWidget::headerTakesSpaceOnlyIfItShowsSomething()
{
    QFETCH(QString, title);
    QFETCH(bool, icon);
    QFETCH(bool, button);
    QFETCH(bool, header);
    VXSettingsGroupWidget frame(nullptr);
    frame.addWidget(new Probe);
    frame.setTitle(title);
    frame.setIcon(icon ? blackIcon() : QIcon());
    frame.setShowHideButton(button);
    QCOMPARE(frame.sizeHint().height() > probeSize.height(), header);

    frame.setTitle({});
    frame.setIcon({});
    frame.setShowHideButton(false);
    QCOMPARE(frame.sizeHint().height(), probeSize.height());
}

void TestVXSettingsGroupWidget::headerComesAndGoesOnScreen()
{
    StagedFrame staged(Stage::OnScreen);
    QVERIFY(staged.ready);
    QVERIFY(staged.probe->mapTo(&staged.frame, QPoint()).y() > 0);
    staged.frame.setTitle({});
    staged.frame.setIcon({});
    QTRY_COMPARE(staged.probe->mapTo(&staged.frame, QPoint()).y(), 0);
    staged.frame.setIcon(blackIcon());
    QTRY_VERIFY(staged.probe->mapTo(&staged.frame, QPoint()).y() >= 24);
}

void TestVXSettingsGroupWidget::marginsSurroundEverything()
{
    StagedFrame staged;
    const QSize bare = staged.frame.sizeHint();
    staged.frame.setContentMargins({10, 6, 20, 8});
    QCOMPARE(staged.frame.sizeHint(), bare + QSize(30, 14));
    QVERIFY(staged.show());
    QCOMPARE(staged.probe->mapTo(&staged.frame, QPoint()).x(), 10);
}

void TestVXSettingsGroupWidget::collapsingHidesTheBodyAndGivesItsSpaceBack()
{
    QFETCH(Stage, stage);
    StagedFrame staged(stage);
    QVERIFY(staged.ready);
    const QWidget *body = staged.probe->parentWidget();
    const int expandedHeight = staged.frame.sizeHint().height();

    staged.frame.collapse();
    QVERIFY(!staged.frame.isExpanded());
    QVERIFY(body->isHidden());
    QVERIFY(!staged.probe->isVisibleTo(&staged.frame));
    QVERIFY(staged.frame.sizeHint().height() <= expandedHeight - probeSize.height());
    QVERIFY(staged.frame.sizeHint().height() > 0);
    QVERIFY(staged.show());
    QVERIFY(!staged.probe->isVisible());

    if (stage != Stage::OnScreen)
        staged.frame.hide();
    staged.frame.expand();
    QVERIFY(staged.frame.isExpanded());
    QVERIFY(!body->isHidden());
    QVERIFY(staged.probe->isVisibleTo(&staged.frame));
    QCOMPARE(staged.frame.sizeHint().height(), expandedHeight);
    QVERIFY(staged.show());
    QVERIFY(staged.probe->isVisible());
    QVERIFY(staged.probe->height() >= probeSize.height());
}

void TestVXSettingsGroupWidget::ancestorsNoticeFoldingBeforeTheFirstShow()
{
    QWidget page;
    auto *grid = new QGridLayout(&page);
    auto *frame = new VXSettingsGroupWidget(&page);
    frame->addWidget(new Probe);
    grid->addWidget(frame);
    const int expandedHeight = page.sizeHint().height();

    frame->collapse();
    QCOMPARE(page.sizeHint().height(), expandedHeight - probeSize.height());
    frame->expand();
    QCOMPARE(page.sizeHint().height(), expandedHeight);
}

void TestVXSettingsGroupWidget::foldingTwiceChangesNothing()
{
    QFETCH(Stage, stage);
    StagedFrame staged(stage);
    QVERIFY(staged.ready);
    staged.frame.expand();
    QVERIFY(staged.probe->isVisibleTo(&staged.frame));
    staged.frame.collapse();
    staged.frame.collapse();
    QVERIFY(!staged.probe->isVisibleTo(&staged.frame));
    staged.frame.expand();
    QVERIFY(staged.show());
    QVERIFY(staged.probe->isVisible());
}

void TestVXSettingsGroupWidget::widgetAddedWhileCollapsedComesWithTheBody()
{
    QFETCH(Stage, stage);
    StagedFrame staged(stage);
    QVERIFY(staged.ready);
    staged.frame.collapse();
    auto *added = new Probe(&staged.frame);
    staged.frame.addWidget(added);
    QCOMPARE(added->parentWidget(), staged.probe->parentWidget());
    QVERIFY(staged.show());
    QVERIFY(!added->isVisible());

    staged.frame.expand();
    QVERIFY(staged.show());
    QVERIFY(added->isVisible());
    QVERIFY(added->y() >= staged.probe->geometry().bottom());
}

void TestVXSettingsGroupWidget::widgetsStandOneUnderTheOther()
{
    StagedFrame staged(Stage::OnScreen);
    QVERIFY(staged.ready);
    auto *second = new Probe;
    auto *third = new Probe;
    staged.frame.addWidget(second);
    staged.frame.addWidget(third);
    QTRY_VERIFY(third->isVisible());
    QCOMPARE(second->parentWidget(), staged.probe->parentWidget());
    QVERIFY(second->y() > staged.probe->geometry().bottom());
    QVERIFY(third->y() > second->geometry().bottom());
    QCOMPARE(second->x(), staged.probe->x());
    QCOMPARE(second->width(), staged.probe->width());
}

void TestVXSettingsGroupWidget::buildingPolishesAndMeasuresNothing()
{
    QWidget page;
    auto *frame = new VXSettingsGroupWidget(&page);
    frame->collapse();
    auto *probe = new Probe(frame);
    frame->addWidget(probe);
    auto *nested = new VXSettingsGroupWidget(frame);
    frame->addWidget(nested);
    nested->setShowHideButton(true);
    nested->collapse();
    auto *nestedProbe = new Probe(nested);
    nested->addWidget(nestedProbe);
    nested->expand();
    frame->expand();
    frame->setTitle("Пароли");
    frame->setIcon(blackIcon());

    for (const QWidget *widget : page.findChildren<QWidget *>())
        QVERIFY2(!widget->testAttribute(Qt::WA_WState_Polished), widget->metaObject()->className());
    QCOMPARE(probe->polished + nestedProbe->polished, 0);
    QCOMPARE(probe->measured + nestedProbe->measured, 0);

    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QCOMPARE(probe->polished, 1);
    QCOMPARE(nestedProbe->polished, 1);
    QVERIFY(nestedProbe->measured > 0);
}

void TestVXSettingsGroupWidget::ownerMayHideAnAddedWidget()
{
    StagedFrame staged;
    staged.probe->hide();
    staged.frame.collapse();
    staged.frame.expand();
    QVERIFY(staged.show());
    QVERIFY(!staged.probe->isVisible());
    staged.probe->show();
    QVERIFY(staged.probe->isVisible());
}

using Press = void (*)(QToolButton *);
Q_DECLARE_METATYPE(Press)

void TestVXSettingsGroupWidget::buttonFoldsTheBody_data()
{
    QTest::addColumn<Press>("press");
    QTest::newRow("mouse") << Press([](QToolButton *button) { QTest::mouseClick(button, Qt::LeftButton); });
    QTest::newRow("space bar") << Press([](QToolButton *button) { QTest::keyClick(button, Qt::Key_Space); });
}

void TestVXSettingsGroupWidget::buttonFoldsTheBody()
{
    QFETCH(Press, press);
    StagedFrame staged(Stage::OnScreen);
    QVERIFY(staged.ready);
    staged.frame.setShowHideButton(true);
    QToolButton *button = foldButton(staged.frame);
    QTRY_VERIFY(button->isVisible());

    press(button);
    QVERIFY(!staged.frame.isExpanded());
    QVERIFY(!staged.probe->isVisible());
    press(button);
    QVERIFY(staged.frame.isExpanded());
    QVERIFY(staged.probe->isVisible());
}

void TestVXSettingsGroupWidget::buttonSaysWhatItWillDo()
{
    VXSettingsGroupWidget frame(nullptr);
    frame.setShowHideButton(true);
    const QToolButton *button = foldButton(frame);
    QCOMPARE(button->accessibleName(), QStringLiteral("Свернуть"));
    QCOMPARE(button->toolTip(), QStringLiteral("Свернуть"));
    QCOMPARE(button->arrowType(), Qt::DownArrow);

    frame.collapse();
    QCOMPARE(button->accessibleName(), QStringLiteral("Развернуть"));
    QCOMPARE(button->toolTip(), QStringLiteral("Развернуть"));
    QCOMPARE(button->arrowType(), Qt::RightArrow);
}

void TestVXSettingsGroupWidget::buttonComesAndGoes()
{
    QFETCH(Stage, stage);
    StagedFrame staged(stage);
    QVERIFY(staged.ready);
    QVERIFY(!foldButton(staged.frame));
    staged.frame.setLayoutDirection(Qt::RightToLeft); // only there is the button's place not the origin anyway
    staged.frame.collapse();

    staged.frame.setShowHideButton(true);
    staged.frame.setShowHideButton(true);
    QCOMPARE(staged.frame.findChildren<QToolButton *>().count(), 1);
    QVERIFY(staged.show());
    QToolButton *button = foldButton(staged.frame);
    QVERIFY(button->isVisible());
    QCOMPARE(button->size(), button->sizeHint());
    QCOMPARE(button->geometry().right(), button->parentWidget()->width() - 1);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(staged.frame.isExpanded());

    staged.frame.setShowHideButton(false);
    QVERIFY(!button->isVisible());
    QTRY_VERIFY(!foldButton(staged.frame));
}

void TestVXSettingsGroupWidget::buttonIsReachedByTab()
{
    VXSettingsGroupWidget frame(nullptr);
    auto *edit = new QLineEdit;
    frame.addWidget(edit);
    frame.setShowHideButton(true);
    frame.show();
    frame.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    edit->setFocus();

    QTest::keyClick(edit, Qt::Key_Tab);
    QVERIFY(foldButton(frame)->hasFocus());
    QTest::keyClick(foldButton(frame), Qt::Key_Space);
    QVERIFY(!frame.isExpanded());
    QVERIFY(foldButton(frame)->hasFocus());
}

void TestVXSettingsGroupWidget::textsFollowTheLanguage()
{
    VXSettingsGroupWidget frame(nullptr);
    frame.setShowHideButton(true);
    BracketTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QTRY_COMPARE(foldButton(frame)->accessibleName(), QStringLiteral("[Свернуть]"));
    QVERIFY(QCoreApplication::removeTranslator(&translator));
    QTRY_COMPARE(foldButton(frame)->accessibleName(), QStringLiteral("Свернуть"));
}

void TestVXSettingsGroupWidget::splitterTakesTheSpareHeight()
{
    Page page;
    const QScopedPointer<QWidget> owner(page.frame);
    page.frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(page.frame));
    page.frame->resize(900, page.frame->heightForWidth(900));
    QCoreApplication::processEvents();
    const int nestedHeight = page.nested->height();
    const QRect lastRow = rectIn(page.frame, page.last);

    page.frame->resize(900, page.frame->height() + 3000);
    QCoreApplication::processEvents();
    QCOMPARE(page.nested->height(), nestedHeight);
    QCOMPARE(rectIn(page.frame, page.last), lastRow);
    const auto splitters = page.frame->findChildren<QSplitter *>();
    QVERIFY(std::any_of(splitters.begin(), splitters.end(), [](auto *splitter) { return splitter->height() >= 3000; }));
}

void TestVXSettingsGroupWidget::bodyTakesAllTheHeightThatTheFrameGets()
{
    StagedFrame staged;
    const int headerHeight = staged.frame.sizeHint().height() - probeSize.height();
    staged.frame.resize(400, 500);
    QVERIFY(staged.show());
    QCOMPARE(staged.probe->height(), 500 - headerHeight);
}

void TestVXSettingsGroupWidget::collapsedFrameKeepsItsHeaderAtTheTop()
{
    StagedFrame staged;
    staged.frame.setShowHideButton(true);
    staged.frame.resize(400, 500);
    QVERIFY(staged.show());
    const QRect expanded = rectIn(&staged.frame, foldButton(staged.frame));
    QCOMPARE(expanded.top(), 0);
    staged.frame.collapse();
    QCoreApplication::processEvents();
    QCOMPARE(staged.frame.height(), 500);
    QCOMPARE(rectIn(&staged.frame, foldButton(staged.frame)), expanded);
}

void TestVXSettingsGroupWidget::scrolledPageShowsEverything_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("roomy") << QSize(1200, 900);
    QTest::newRow("low") << QSize(1200, 200);
    QTest::newRow("narrow") << QSize(500, 900);
    QTest::newRow("tiny") << QSize(200, 200);
}

void TestVXSettingsGroupWidget::scrolledPageShowsEverything()
{
    QFETCH(QSize, size);
    Page page;
    QScrollArea area;
    area.setWidgetResizable(true);
    area.setWidget(page.frame);
    area.resize(size);
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    QCoreApplication::processEvents();

    for (const QLabel *label : page.frame->findChildren<QLabel *>()) {
        QVERIFY(label->height() >= label->heightForWidth(label->width()));
        QVERIFY(page.frame->rect().contains(rectIn(page.frame, label)));
    }
    for (const QLineEdit *edit : page.frame->findChildren<QLineEdit *>()) {
        QVERIFY(edit->height() >= edit->minimumSizeHint().height());
        QVERIFY(page.frame->rect().contains(rectIn(page.frame, edit)));
    }
    QVERIFY(rectIn(page.frame, page.last).top() > rectIn(page.frame, page.nested).bottom());
}

void TestVXSettingsGroupWidget::scrolledPageFollowsFolding()
{
    Page page;
    QScrollArea area;
    area.setWidgetResizable(true);
    area.setWidget(page.frame);
    area.resize(900, 200);
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    QCoreApplication::processEvents();
    const int expandedHeight = page.frame->height();
    QVERIFY(area.verticalScrollBar()->maximum() > 0);

    QTest::mouseClick(foldButton(*page.nested), Qt::LeftButton);
    QTRY_VERIFY(page.frame->height() < expandedHeight);
    page.frame->collapse();
    QTRY_COMPARE(area.verticalScrollBar()->maximum(), 0);
    page.frame->expand();
    page.nested->expand();
    QTRY_COMPARE(page.frame->height(), expandedHeight);
}

void TestVXSettingsGroupWidget::iconIsDrawnInTheTextColour()
{
    VXSettingsGroupWidget frame(nullptr);
    frame.setIcon(blackIcon());
    frame.resize(200, 24);
    for (const QColor &color : {QColor(Qt::red), QColor(Qt::white), QColor(Qt::darkBlue)}) {
        QPalette palette;
        palette.setColor(QPalette::WindowText, color);
        palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::darkGreen);
        frame.setPalette(palette);
        QCOMPARE(frame.grab().toImage().pixelColor(12, 12), color);

        frame.setEnabled(false);
        QCOMPARE(frame.grab().toImage().pixelColor(12, 12), QColor(Qt::darkGreen));
        frame.setEnabled(true);
    }
}

void TestVXSettingsGroupWidget::lineIsDrawnOnlyIfAskedFor()
{
    VXSettingsGroupWidget frame(nullptr);
    frame.setTitle("Пароли");
    frame.resize(400, frame.sizeHint().height());
    const auto rightEnd = [&frame] { return frame.grab().toImage().copy(300, 0, 100, frame.height()); };
    QImage blank = rightEnd();
    blank.fill(frame.palette().color(QPalette::Window));

    QVERIFY(rightEnd() != blank);
    frame.setShowLineHorizontal(false);
    QCOMPARE(rightEnd(), blank);
    frame.setShowLineHorizontal(true);
    QVERIFY(rightEnd() != blank);
}

void TestVXSettingsGroupWidget::rightToLeftIsMirrored()
{
    StagedFrame staged;
    staged.frame.setShowHideButton(true);
    staged.frame.resize(400, 200);
    QVERIFY(staged.show());
    const QRect leftToRight = rectIn(&staged.frame, foldButton(staged.frame));
    QCOMPARE(leftToRight.left(), 0);

    staged.frame.setLayoutDirection(Qt::RightToLeft);
    staged.frame.collapse();
    QTRY_COMPARE(rectIn(&staged.frame, foldButton(staged.frame)).right(), staged.frame.width() - 1);
    QCOMPARE(foldButton(staged.frame)->arrowType(), Qt::LeftArrow);

    staged.frame.resize(600, 200);
    QTRY_COMPARE(rectIn(&staged.frame, foldButton(staged.frame)).right(), 599);
}

void TestVXSettingsGroupWidget::addedWidgetMayGoFirst()
{
    StagedFrame staged(Stage::OnScreen);
    QVERIFY(staged.ready);
    const int height = staged.frame.sizeHint().height();
    delete staged.probe;
    QTRY_VERIFY(staged.frame.sizeHint().height() < height);
    staged.frame.collapse();
    staged.frame.expand();
    auto *next = new Probe;
    staged.frame.addWidget(next);
    QTRY_VERIFY(next->isVisible());
}

void TestVXSettingsGroupWidget::frameMayGoFirst()
{
    auto *frame = new VXSettingsGroupWidget(nullptr);
    const QPointer<QWidget> inside = new Probe;
    auto *rescued = new Probe;
    frame->addWidget(inside);
    frame->addWidget(rescued);
    rescued->setParent(nullptr);
    delete frame;
    QVERIFY(inside.isNull());
    QVERIFY(!rescued->parentWidget());
    delete rescued;
}

QTEST_MAIN(TestVXSettingsGroupWidget)
#include "tst_vxsettingsgroupwidget.moc"
