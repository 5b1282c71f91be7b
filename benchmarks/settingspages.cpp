#include "pages.h"
#include "samplestorage.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingsgroup.h>
#include <vxsettings/dbsettingshelper.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QPixmap>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <vector>

// What a settings page costs: against the same widgets written by hand, which is the limit, and against QUiLoader.

namespace {

template <typename Way>
void buildCollectDestroy(benchmark::State &state, const std::vector<DBGroups> &groups)
{
    Way way;
    for (auto _ : state) {
        for (const DBGroups group : groups) {
            QWidget window;
            const auto page = way.make(group, &window);
            QApplication::processEvents();
            benchmark::DoNotOptimize(page->parameters());
        }
    }
}

template <typename Way>
void showAndPaint(benchmark::State &state)
{
    Way way;
    for (auto _ : state) {
        for (const DBGroups group : pages::all) {
            QWidget window;
            window.resize(1024, 700);
            auto *layout = new QVBoxLayout(&window);
            const auto page = way.make(group, &window);
            layout->addWidget(Way::frame(*page));
            window.show();
            QApplication::processEvents();
            benchmark::DoNotOptimize(window.grab());
        }
    }
}

/// Builds @p state.range(0) sets of all pages that live together; reports what one more set costs.
template <typename Way>
void manySets(benchmark::State &state)
{
    for (auto _ : state) {
        Way way;
        QWidget window;
        using Page = decltype(way.make(DBGroups::Users, &window));
        std::vector<Page> living;
        const std::size_t before = mallinfo2().uordblks;
        for (int set = 0; set < state.range(0); ++set) {
            for (const DBGroups group : pages::all)
                living.push_back(way.make(group, &window));
            QApplication::processEvents();
        }
        state.PauseTiming();
        state.counters["bytes_per_set"] = double(mallinfo2().uordblks - before) / double(state.range(0));
        // Last in, first out: the window looks for each page at the end of its children.
        while (!living.empty())
            living.pop_back();
        state.ResumeTiming();
    }
    state.counters["seconds_per_set"] = benchmark::Counter(double(state.iterations() * state.range(0)),
                                                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// The price of a look-up without any catalogue: a binary search among the keys and one translation.
void binarySearchAndTranslate(benchmark::State &state)
{
    QStringList keys;
    for (const DBGroups group : pages::all)
        keys += DBSettingsHelper::groupParams(group);
    std::sort(keys.begin(), keys.end());
    for (auto _ : state) {
        for (const QString &key : qAsConst(keys)) {
            benchmark::DoNotOptimize(std::lower_bound(keys.cbegin(), keys.cend(), key));
            benchmark::DoNotOptimize(QCoreApplication::translate("QObject", "Максимальное количество карт сотрудника"));
        }
    }
    state.SetItemsProcessed(state.iterations() * keys.size());
}

void captionLookUp(benchmark::State &state)
{
    QStringList keys;
    for (const DBGroups group : pages::all)
        keys += DBSettingsHelper::groupParams(group);
    keys.removeAll(db::database::PIN_STRENGTH);
    keys.removeAll(db::database::PASSWORD_STRENGTH);
    keys.removeAll(db::database::PALM_TEMPLATES_AMOUNT_SETTINGS);
    for (auto _ : state) {
        for (const QString &key : qAsConst(keys))
            benchmark::DoNotOptimize(DBSettingsHelper::paramName(key));
    }
    state.SetItemsProcessed(state.iterations() * keys.size());
}

/// One value of the page with the most editors, the last one: the worst case for a walk that stops at a match.
void valueByKey(benchmark::State &state)
{
    QWidget window;
    const auto page = DBSettingsGroupFactory::create(DBGroups::Users, &window, nullptr);
    for (auto _ : state)
        benchmark::DoNotOptimize(page->toGroup()->paramValue(db::database::USER_SESSION_TIMEOUT));
}

void valueByFindChildren(benchmark::State &state)
{
    QWidget window;
    const auto page = DBSettingsGroupFactory::create(DBGroups::Users, &window, nullptr);
    for (auto _ : state) {
        for (const DBParamWidget *editor : page->widget()->findChildren<DBParamWidget *>()) {
            if (editor->key() == db::database::USER_SESSION_TIMEOUT) {
                benchmark::DoNotOptimize(editor->value());
                break;
            }
        }
    }
}

template <typename Way>
void registerWay()
{
    const std::vector<std::pair<const char *, std::vector<DBGroups>>> selections = {
        {"Users", {DBGroups::Users}},
        {"PalmScanning", {DBGroups::PalmScanning}},
        {"FingerprintScanning", {DBGroups::FingerprintScanning}},
        {"all", {std::begin(pages::all), std::end(pages::all)}},
    };
    for (const auto &[name, groups] : selections) {
        benchmark::RegisterBenchmark(
            (std::string("cycle/") + name + "/" + Way::name).c_str(),
            [groups = groups](benchmark::State &state) { buildCollectDestroy<Way>(state, groups); })
            ->Unit(benchmark::kMicrosecond);
    }
    benchmark::RegisterBenchmark((std::string("shown/all/") + Way::name).c_str(), showAndPaint<Way>)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((std::string("sets/") + Way::name).c_str(), manySets<Way>)
        ->Arg(1)
        ->Arg(500)
        ->Unit(benchmark::kMillisecond);
}
} // namespace

BENCHMARK(binarySearchAndTranslate);
BENCHMARK(captionLookUp);
BENCHMARK(valueByKey);
BENCHMARK(valueByFindChildren);

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("gui.lib.dbsettings.debug=false"));
    fillSampleStorage();
    registerWay<pages::Library>();
    registerWay<pages::Handwritten>();
    registerWay<pages::UiLoader>();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
