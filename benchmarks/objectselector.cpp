#include <localstorage/localstorage.h>
#include <vxwidgets/grantedproxymodel.h>
#include <vxwidgets/vxobjectselector.h>
#include <vxwidgets/vxtreeviewdelegate.h>

#include <QAbstractItemModel>
#include <QApplication>
#include <QScrollBar>
#include <QTreeView>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <map>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <vector>

// What the object selector costs with a million objects, against a bare flat model in a QTreeView, which is the limit.

using vantorix::LocalStorage;
using vantorix::ObjectRecord;

namespace {

constexpr int objectCount = 1000000;
constexpr int siblingCount = 100000;
const QString dataName = QStringLiteral("objects");
const QStringList types{QStringLiteral("OT_SUBJECTROOT"), QStringLiteral("OT_FIRM"), QStringLiteral("OT_DEPARTMENT")};

/// A tree in which each node has @p fanout children; uid 1 is the root, uid 2 and up follow level by level.
QVector<ObjectRecord> evenTree(unsigned int fanout)
{
    QVector<ObjectRecord> records;
    records.reserve(objectCount);
    records.append({1, 0, types[0], QStringLiteral("Предприятие"), true});
    for (unsigned int uid = 2; uid <= objectCount; ++uid)
        records.append({uid, (uid - 2) / fanout + 1, types[2], QStringLiteral("Подразделение %1").arg(uid), true});
    return records;
}

/// The same tree under a root that can only be opened, and only for the sake of later children.
QVector<ObjectRecord> filteredRoot(QVector<ObjectRecord> records)
{
    records[0].type = records[1].type = QStringLiteral("OT_GROUP");
    return records;
}

/// The same tree as a database may give it: any uids, any order.
QVector<ObjectRecord> scattered(QVector<ObjectRecord> records)
{
    const auto scatter = [](unsigned int uid) { return uid * 2654435761u; };
    for (ObjectRecord &record : records) {
        record.uid = scatter(record.uid);
        record.parentUid = scatter(record.parentUid);
    }
    std::shuffle(records.begin() + 1, records.end(), std::mt19937(1));
    return records;
}

/// A root with one department, which has all the siblings; every fourth of them is of a type that is filtered out.
QVector<ObjectRecord> wideTree()
{
    QVector<ObjectRecord> records{{1, 0, types[0], QStringLiteral("Предприятие"), true},
                                  {2, 1, types[2], QStringLiteral("Отдел"), true}};
    for (unsigned int uid = 3; uid < 3 + siblingCount; ++uid)
        records.append(
            {uid, 2, uid % 4 ? types[2] : QStringLiteral("OT_WORKER"), QStringLiteral("Участок %1").arg(uid), true});
    return records;
}

/// The least that a flat model can do: it takes on trust that uid n is record n - 1, and finds nothing by uid.
class BareModel : public QAbstractItemModel
{
public:
    explicit BareModel(const QVector<ObjectRecord> &records)
        : m_records(records)
        , m_rows(size_t(records.size()))
        , m_children(size_t(records.size()))
        , m_firstChild(size_t(records.size()) + 2)
    {
        for (int number = 0; number < m_records.size(); ++number)
            m_rows[size_t(number)] = m_firstChild[m_records.at(number).parentUid + 1]++;
        std::partial_sum(m_firstChild.begin(), m_firstChild.end(), m_firstChild.begin());
        for (int number = 0; number < m_records.size(); ++number) {
            const int begin = m_firstChild[m_records.at(number).parentUid];
            m_children[size_t(begin + m_rows[size_t(number)])] = number;
        }
    }

    QModelIndex index(int row, int column, const QModelIndex &parent) const override
    {
        return createIndex(row, column, quintptr(m_children[size_t(m_firstChild[uidAt(parent)] + row)]));
    }
    QModelIndex parent(const QModelIndex &index) const override
    {
        const unsigned int uid = m_records.at(int(index.internalId())).parentUid;
        return uid ? createIndex(m_rows[uid - 1], 0, quintptr(uid - 1)) : QModelIndex();
    }
    int rowCount(const QModelIndex &parent) const override
    {
        return m_firstChild[uidAt(parent) + 1] - m_firstChild[uidAt(parent)];
    }
    int columnCount(const QModelIndex &) const override { return 1; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? m_records.at(int(index.internalId())).name : QVariant();
    }

private:
    static size_t uidAt(const QModelIndex &index) { return index.isValid() ? size_t(index.internalId()) + 1 : 0; }

    QVector<ObjectRecord> m_records;
    std::vector<int> m_rows;
    std::vector<int> m_children;
    std::vector<int> m_firstChild;
};

struct BareTree
{
    explicit BareTree(unsigned int = 0)
        : model(LocalStorage::instance()->objects(dataName))
    {
        view.setUniformRowHeights(true);
        view.setHeaderHidden(true);
        view.setModel(&model);
    }
    BareModel model;
    QTreeView view;
};

/// The selector as the editor of a settings page sets it up.
struct PageSelector
{
    explicit PageSelector(unsigned int storedUid = 0)
    {
        selector.setProxyModel(new GrantedProxyModel(&selector));
        selector.setFixedWidth(400);
        ObjectTreeProxy *proxy = selector.proxyModel();
        proxy->setObjectTypeFilter(types);
        proxy->setFilterAcceptsParents(true);
        selector.setDataname(dataName);
        selector.setDefaultRootIndex(proxy->index(0, 0));
        selector.setCurrentUid(0);
        const QAbstractItemModel *source = proxy->sourceModel();
        selector.setFixedHeight(qMax(100, qMin(200, source->rowCount(source->index(0, 0)) * 20)));
        view()->setItemDelegate(new VXTreeViewDelegate(view()));
        if (storedUid) {
            selector.setCurrentUid(storedUid);
            view()->expand(selector.currentModelIndex());
        }
    }
    QTreeView *view() { return qobject_cast<QTreeView *>(selector.view()); }

    VXObjectSelector selector;
};

void store(const QVector<ObjectRecord> &records)
{
    LocalStorage::instance()->setObjects(dataName, records);
}

size_t allocatedBytes()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

template <typename Shown>
void build(benchmark::State &state, const QVector<ObjectRecord> &records, unsigned int storedUid)
{
    store(records);
    size_t bytes = 0;
    for (auto _ : state) {
        const size_t before = allocatedBytes();
        auto shown = std::make_unique<Shown>(storedUid);
        bytes = allocatedBytes() - before;
        state.PauseTiming();
        shown.reset();
        state.ResumeTiming();
    }
    state.counters["bytes"] = double(bytes);
}

void buildNextPage(benchmark::State &state)
{
    store(evenTree(100));
    const PageSelector first;
    for (auto _ : state)
        PageSelector next(objectCount);
}

void chooseByUid(benchmark::State &state, const QVector<ObjectRecord> &records)
{
    store(records);
    PageSelector page;
    std::minstd_rand random(1);
    for (auto _ : state)
        page.selector.setCurrentUid(records.at(int(random() % objectCount)).uid);
}

/// Opens the department with all the siblings in a view that is on screen, until the last of them has its place.
void expandSiblings(benchmark::State &state, QTreeView &view)
{
    const QModelIndex root = view.model()->index(0, 0);
    const QModelIndex department = view.model()->index(0, 0, root);
    view.resize(400, 400);
    view.show();
    view.expand(root);
    QApplication::processEvents();
    for (auto _ : state) {
        view.expand(department);
        benchmark::DoNotOptimize(view.verticalScrollBar()->maximum());
        state.PauseTiming();
        view.collapse(department);
        state.ResumeTiming();
    }
}

void expandInBareTree(benchmark::State &state)
{
    store(wideTree());
    BareTree bare;
    expandSiblings(state, bare.view);
}

/// Everything that a page does for the first time is done again each time.
void expandInPopup(benchmark::State &state)
{
    store(wideTree());
    for (auto _ : state) {
        state.PauseTiming();
        auto page = std::make_unique<PageSelector>();
        page->selector.show();
        page->selector.showPopup();
        QApplication::processEvents();
        const QModelIndex department = page->view()->model()->index(0, 0, page->view()->model()->index(0, 0));
        state.ResumeTiming();

        page->view()->expand(department);
        benchmark::DoNotOptimize(page->view()->verticalScrollBar()->maximum());

        state.PauseTiming();
        page.reset();
        state.ResumeTiming();
    }
}

/// Prints the figures, and at the end what they are worth: as multiples of the bare model and against the limits.
class Reporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            m_seconds[run.benchmark_name()] = run.cpu_accumulated_time / double(run.iterations);
            const auto bytes = run.counters.find("bytes");
            if (bytes != run.counters.end())
                m_bytes[run.benchmark_name()] = bytes->second;
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void printWorth() const
    {
        std::printf("\n%-34s %8s %8s\n", "", "is", "limit");
        for (const char *page : {"build/page", "build/page/storedUid", "build/page/filteredRoot"}) {
            print(page, "time / bare", ratio(m_seconds, page, "build/bare"), 1.5);
            print(page, "memory / bare", ratio(m_bytes, page, "build/bare"), 3);
        }
        for (const char *choice : {"setCurrentUid", "setCurrentUid/anyOrder"})
            print(choice, "us", value(m_seconds, choice) * 1e6, 25);
        print("expand/popup", "ms", value(m_seconds, "expand/popup") * 1e3, 30);
    }

private:
    using Figures = std::map<std::string, double>;

    static double value(const Figures &figures, const std::string &name)
    {
        const auto figure = figures.find(name);
        return figure == figures.end() ? std::numeric_limits<double>::quiet_NaN() : figure->second;
    }
    static double ratio(const Figures &figures, const std::string &name, const std::string &base)
    {
        return value(figures, name) / value(figures, base);
    }
    static void print(const char *name, const char *unit, double is, double limit)
    {
        if (!std::isnan(is)) // left out by the filter on the command line
            std::printf("%-24s %-13s %8.2f %8.2f%s\n", name, unit, is, limit, is > limit ? "  TOO MUCH" : "");
    }

    Figures m_seconds;
    Figures m_bytes;
};

void registerBuild(const char *name, void (*function)(benchmark::State &, const QVector<ObjectRecord> &, unsigned int),
                   const QVector<ObjectRecord> &records, unsigned int storedUid = 0)
{
    benchmark::RegisterBenchmark(name, [=](benchmark::State &state) {
        function(state, records, storedUid);
    })->Unit(benchmark::kMillisecond);
}
} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);

    const QVector<ObjectRecord> tree = evenTree(100);
    const QVector<ObjectRecord> anyOrder = scattered(tree);
    registerBuild("build/bare", build<BareTree>, tree);
    registerBuild("build/page", build<PageSelector>, tree);
    registerBuild("build/page/storedUid", build<PageSelector>, tree, objectCount);
    registerBuild("build/page/filteredRoot", build<PageSelector>, filteredRoot(tree));
    registerBuild("build/page/anyOrder", build<PageSelector>, anyOrder);
    benchmark::RegisterBenchmark("nextPage", buildNextPage)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("setCurrentUid", chooseByUid, tree)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("setCurrentUid/anyOrder", chooseByUid, anyOrder)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("expand/bare", expandInBareTree)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("expand/popup", expandInPopup)->Unit(benchmark::kMillisecond);

    Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printWorth();
    benchmark::Shutdown();
    return 0;
}
