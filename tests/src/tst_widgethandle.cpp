#include "widgethandle.h"

#include "messages.h"
#include "testtree.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <cstdlib>
#include <functional>
#include <new>

using testtree::newEditor;

/// What takes a widget over.
using Owner = std::function<void(QWidget *)>;

Q_DECLARE_METATYPE(Owner)

namespace {

/// Counts allocations through operator new, and lets one of them fail.
struct Allocations
{
    bool counting = false;
    int count = 0;
    int failing = -1; // counted from 0; none if negative
} allocations;

/// Always comes to lie at the same place, one at a time.
class SettledWidget : public QWidget
{
public:
    static void *operator new(std::size_t) { return place; }
    static void operator delete(void *) {}

private:
    alignas(QWidget) inline static char place[sizeof(QWidget)];
};
} // namespace

void *operator new(std::size_t size)
{
    if (allocations.counting && allocations.count++ == allocations.failing)
        throw std::bad_alloc();
    if (void *memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void *operator new(std::size_t size, const std::nothrow_t &) noexcept
{
    return std::malloc(size);
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

class TestWidgetHandle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }
    void init() { m_widgetsBefore = QApplication::allWidgets().count(); }
    void cleanup() { QCOMPARE(QApplication::allWidgets().count(), m_widgetsBefore); }

    void nullGivesNoHandle();
    void widgetDiesWithTheLastCopy();
    void widgetKeepsItsParent();
    void handleOfADeletedWidgetIsNotAlive_data();
    void handleOfADeletedWidgetIsNotAlive();
    void handleOutlivesItsWidget();
    void handleIsNotAliveWhileItsWidgetDies_data();
    void handleIsNotAliveWhileItsWidgetDies();
    void handleDroppedWhileItsWidgetDies_data();
    void handleDroppedWhileItsWidgetDies();
    void handleWhoseConnectionIsCutSurvives();
    void frameSparesWhatIsDying_data();
    void frameSparesWhatIsDying();

    void resetReplaces();
    void resetSparesWhatIsHeld();
    void resetToNullDrops();
    void resetToTheSameChangesNothing();
    void resetTakesANewWidgetAtTheSamePlace();

    void widgetDiesIfThereIsNoMemoryForItsHandle_data();
    void widgetDiesIfThereIsNoMemoryForItsHandle();

private:
    int m_widgetsBefore = 0;
};

void TestWidgetHandle::nullGivesNoHandle()
{
    QVERIFY(!widgethandle::make(nullptr));
    QVERIFY(!widgethandle::alive(nullptr));
}

void TestWidgetHandle::widgetDiesWithTheLastCopy()
{
    const QPointer<QWidget> widget(new QLabel);
    std::shared_ptr<QWidget> first = widgethandle::make(widget);
    QCOMPARE(first.get(), widget.data());
    QCOMPARE(first.use_count(), 1L);

    std::shared_ptr<QWidget> second = widgethandle::alive(first);
    QCOMPARE(second, first);
    QCOMPARE(first.use_count(), 2L);
    first.reset();
    QVERIFY(widget);
    second.reset();
    QVERIFY(!widget);
}

void TestWidgetHandle::widgetKeepsItsParent()
{
    QWidget parent;
    const QPointer<QWidget> widget(new QLabel(&parent));
    std::shared_ptr<QWidget> handle = widgethandle::make(widget);
    QCOMPARE(widget->parentWidget(), &parent);
    handle.reset();
    QVERIFY(!widget);
    QVERIFY(parent.children().isEmpty());
}

void TestWidgetHandle::handleOfADeletedWidgetIsNotAlive_data()
{
    QTest::addColumn<bool>("byParent");
    QTest::newRow("deleted by hand") << false;
    QTest::newRow("deleted by its parent") << true;
}

void TestWidgetHandle::handleOfADeletedWidgetIsNotAlive()
{
    QFETCH(bool, byParent);
    auto parent = std::make_unique<QWidget>();
    auto *widget = new QLabel(parent.get());
    const std::shared_ptr<QWidget> handle = widgethandle::make(widget);
    QVERIFY(widgethandle::alive(handle));

    if (byParent)
        parent.reset();
    else
        delete widget;
    QVERIFY(!widgethandle::alive(handle));
    QVERIFY(handle);
}

void TestWidgetHandle::handleOutlivesItsWidget()
{
    auto *widget = new QLabel;
    std::shared_ptr<QWidget> handle = widgethandle::make(widget);
    std::shared_ptr<QWidget> copy = handle;
    delete widget;
    handle.reset();
    copy.reset();
}

void TestWidgetHandle::handleIsNotAliveWhileItsWidgetDies_data()
{
    QTest::addColumn<bool>("connectedFirst");
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"label on a page", "editor on a page", "editor alone", "last widget of a page"}) {
        QTest::addRow("%s", kind) << false << kind;
        QTest::addRow("%s, connected before", kind) << true << kind;
    }
    // A lone plain widget says so little that nobody can tell before its handle is told.
    QTest::newRow("lone plain widget") << false << "lone plain widget";
}

void TestWidgetHandle::handleIsNotAliveWhileItsWidgetDies()
{
    QFETCH(bool, connectedFirst);
    QFETCH(QString, kind);
    QWidget page;
    QLabel neighbour(&page);
    QWidget *widget = kind == "label on a page"    ? new QLabel(&page)
                      : kind == "editor on a page" ? newEditor(&page, "key")
                      : kind == "editor alone"     ? newEditor(nullptr, "key")
                                                   : new QWidget(kind == "lone plain widget" ? nullptr : &page);
    int asked = 0;
    std::shared_ptr<QWidget> handle;
    const auto ask = [&] {
        ++asked;
        QVERIFY(!widgethandle::alive(handle));
    };
    if (connectedFirst)
        connect(widget, &QObject::destroyed, this, ask);
    handle = widgethandle::make(widget);
    if (!connectedFirst)
        connect(widget, &QObject::destroyed, this, ask);
    QVERIFY(widgethandle::alive(handle));

    delete widget;
    QCOMPARE(asked, 1);
}

void TestWidgetHandle::handleDroppedWhileItsWidgetDies_data()
{
    QTest::addColumn<bool>("connectedFirst");
    QTest::addColumn<QString>("deletedBy");
    for (const char *deletedBy : {"hand", "parent", "handle", "event loop"}) {
        QTest::addRow("deleted by %s", deletedBy) << false << deletedBy;
        QTest::addRow("deleted by %s, connected before", deletedBy) << true << deletedBy;
    }
}

void TestWidgetHandle::handleDroppedWhileItsWidgetDies()
{
    QFETCH(bool, connectedFirst);
    QFETCH(QString, deletedBy);
    auto parent = std::make_unique<QWidget>();
    QWidget *widget = newEditor(parent.get(), "key");
    QSignalSpy destroyed(widget, &QObject::destroyed);
    std::shared_ptr<QWidget> handle;
    const auto drop = [&] { handle.reset(); };
    if (connectedFirst)
        connect(widget, &QObject::destroyed, this, drop);
    handle = widgethandle::make(widget);
    if (!connectedFirst)
        connect(widget, &QObject::destroyed, this, drop);

    if (deletedBy == "hand") {
        delete widget;
    } else if (deletedBy == "parent") {
        parent.reset();
    } else if (deletedBy == "handle") {
        handle.reset();
    } else {
        widget->deleteLater();
        QTRY_COMPARE(destroyed.count(), 1);
    }
    QVERIFY(!handle);
    QCOMPARE(destroyed.count(), 1);
}

void TestWidgetHandle::handleWhoseConnectionIsCutSurvives()
{
    auto *widget = new QLabel;
    std::shared_ptr<QWidget> handle = widgethandle::make(widget);
    widget->disconnect();
    delete widget;
    QVERIFY(!widgethandle::alive(handle));
    handle.reset();
}

void TestWidgetHandle::frameSparesWhatIsDying_data()
{
    QTest::addColumn<bool>("deep");
    QTest::addColumn<bool>("owned");
    QTest::newRow("child with a handle") << false << true;
    QTest::newRow("child without") << false << false;
    QTest::newRow("deep below, with a handle") << true << true;
    QTest::newRow("deep below, without") << true << false;
}

/// A frame may be given up while one of its widgets is in the middle of its destruction.
void TestWidgetHandle::frameSparesWhatIsDying()
{
    QFETCH(bool, deep);
    QFETCH(bool, owned);
    QWidget page;
    const QPointer<QWidget> frame(new QWidget(&page));
    std::shared_ptr<QWidget> frameHandle = widgethandle::make(frame);
    QWidget *widget = newEditor(deep ? new QWidget(frame) : frame.data(), "key");
    const std::shared_ptr<QWidget> handle = owned ? widgethandle::make(widget) : nullptr;
    connect(widget, &QObject::destroyed, this, [&] { frameHandle.reset(); });

    delete widget;
    QVERIFY(!frame);
    QVERIFY(page.children().isEmpty());
}

void TestWidgetHandle::resetReplaces()
{
    const QPointer<QWidget> first(new QLabel);
    const QPointer<QWidget> second(new QLabel);
    std::shared_ptr<QWidget> handle;
    widgethandle::reset(handle, first);
    QCOMPARE(handle.get(), first.data());
    widgethandle::reset(handle, second);
    QVERIFY(!first);
    QCOMPARE(handle.get(), second.data());
    handle.reset();
    QVERIFY(!second);
}

void TestWidgetHandle::resetSparesWhatIsHeld()
{
    const QPointer<QWidget> first(new QLabel);
    std::shared_ptr<QWidget> handle = widgethandle::make(first);
    std::shared_ptr<QWidget> held = handle;
    widgethandle::reset(handle, new QLabel);
    QVERIFY(first);
    QCOMPARE(held.use_count(), 1L);
    held.reset();
    QVERIFY(!first);
}

void TestWidgetHandle::resetToNullDrops()
{
    const QPointer<QWidget> widget(new QLabel);
    std::shared_ptr<QWidget> handle = widgethandle::make(widget);
    widgethandle::reset(handle, nullptr);
    QVERIFY(!widget);
    QVERIFY(!handle);
    widgethandle::reset(handle, nullptr);
    QVERIFY(!handle);
}

void TestWidgetHandle::resetToTheSameChangesNothing()
{
    const QPointer<QWidget> widget(new QLabel);
    std::shared_ptr<QWidget> handle = widgethandle::make(widget);
    const std::shared_ptr<QWidget> copy = handle;
    widgethandle::reset(handle, widget);
    QVERIFY(widget);
    QCOMPARE(handle.use_count(), 2L);
}

void TestWidgetHandle::resetTakesANewWidgetAtTheSamePlace()
{
    auto *first = new SettledWidget;
    std::shared_ptr<QWidget> handle = widgethandle::make(first);
    delete first;
    const QPointer<QWidget> second(new SettledWidget);
    QCOMPARE(static_cast<QWidget *>(second), handle.get());

    widgethandle::reset(handle, second);
    QCOMPARE(widgethandle::alive(handle).get(), second.data());
    handle.reset();
    QVERIFY(!second);
}

void TestWidgetHandle::widgetDiesIfThereIsNoMemoryForItsHandle_data()
{
    QTest::addColumn<Owner>("takeOver");
    QTest::addColumn<bool>("last");
    const auto rows = [](const char *name, const Owner &takeOver) {
        QTest::addRow("%s, first allocation", name) << takeOver << false;
        QTest::addRow("%s, last allocation", name) << takeOver << true;
    };
    rows("handle", [](QWidget *widget) { widgethandle::make(widget); });
    rows("leaf", [leaf = std::make_shared<DBSettingsValue>()](QWidget *widget) { leaf->setWidget(widget); });
    rows("group", [group = std::make_shared<DBSettingsGroup>(1)](QWidget *widget) { group->setWidget(widget); });
}

void TestWidgetHandle::widgetDiesIfThereIsNoMemoryForItsHandle()
{
    QFETCH(Owner, takeOver);
    QFETCH(bool, last);
    const auto attempt = [&](int failing) {
        const QPointer<QWidget> widget(new QLabel);
        bool thrown = false;
        allocations = {true, 0, failing};
        try {
            takeOver(widget);
        } catch (const std::bad_alloc &) {
            thrown = true;
        }
        allocations.counting = false;
        QCOMPARE(thrown, failing >= 0);
        QVERIFY(!thrown || !widget);
    };
    attempt(-1);
    QVERIFY(allocations.count > 1);
    attempt(last ? allocations.count - 1 : 0);
    takeOver(nullptr);
}

QTEST_MAIN(TestWidgetHandle)
#include "tst_widgethandle.moc"
