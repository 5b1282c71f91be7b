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

#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <vector>

// Does one kind of work N times, to be run under an instruction counter with two values of N: the difference is the
// work, without start-up and first-time costs.
//
//   pagecount WORK WAY N      WORK: cycle:PAGE shown:PAGE sets caption choices value last-value ("PAGE": a number of
//   DBGroups, or "all")

namespace {

std::vector<DBGroups> selectedPages(const std::string &text)
{
    if (text == "all")
        return {std::begin(pages::all), std::end(pages::all)};
    return {DBGroups(std::stoi(text))};
}

template <typename Way>
void cycle(const std::vector<DBGroups> &groups, int count)
{
    Way way;
    for (int i = 0; i < count; ++i) {
        for (const DBGroups group : groups) {
            QWidget window;
            const auto page = way.make(group, &window);
            QApplication::processEvents();
            page->parameters();
        }
    }
}

template <typename Way>
void shown(const std::vector<DBGroups> &groups, int count)
{
    Way way;
    for (int i = 0; i < count; ++i) {
        for (const DBGroups group : groups) {
            QWidget window;
            window.resize(1024, 700);
            auto *layout = new QVBoxLayout(&window);
            const auto page = way.make(group, &window);
            layout->addWidget(Way::frame(*page));
            window.show();
            QApplication::processEvents();
            window.grab();
        }
    }
}

/// @p count sets of all pages in one window, all alive until the end: whether the last costs what the first did.
template <typename Way>
void sets(int count)
{
    Way way;
    QWidget window;
    std::vector<decltype(way.make(DBGroups::Users, &window))> living;
    for (int i = 0; i < count; ++i) {
        for (const DBGroups group : pages::all)
            living.push_back(way.make(group, &window));
        QApplication::processEvents();
    }
    while (!living.empty())
        living.pop_back();
}

QStringList captionedKeys()
{
    QStringList keys;
    for (const DBGroups group : pages::all)
        keys += DBSettingsHelper::groupParams(group);
    for (const QString &key :
         {db::database::PIN_STRENGTH, db::database::PASSWORD_STRENGTH, db::database::PALM_TEMPLATES_AMOUNT_SETTINGS})
        keys.removeAll(key);
    return keys;
}

void captionByLibrary(int count)
{
    const QStringList keys = captionedKeys();
    for (int i = 0; i < count; ++i) {
        for (const QString &key : keys)
            DBSettingsHelper::paramName(key);
    }
}

/// The limit: the same captions found by a binary search among the same keys and translated.
void captionByBinarySearch(int count)
{
    std::map<QString, QByteArray> captions;
    for (const QString &key : captionedKeys())
        captions.emplace(key, DBSettingsHelper::paramName(key).toUtf8());
    const std::vector<std::pair<QString, QByteArray>> sorted(captions.begin(), captions.end());
    const QStringList keys = captionedKeys();
    for (int i = 0; i < count; ++i) {
        for (const QString &key : keys) {
            const auto found =
                std::lower_bound(sorted.begin(), sorted.end(), key,
                                 [](const auto &entry, const QString &wanted) { return entry.first < wanted; });
            QCoreApplication::translate("QObject", found->second.constData());
        }
    }
}

void choicesByLibrary(int count)
{
    for (int i = 0; i < count; ++i)
        DBSettingsHelper::paramValues(db::database::ENROLL_MANUAL_CHECK_TEMPLATES_TYPE);
}

void choicesByHand(int count)
{
    const QStringList keys = captionedKeys();
    std::vector<QString> sorted(keys.begin(), keys.end());
    std::sort(sorted.begin(), sorted.end());
    for (int i = 0; i < count; ++i) {
        if (*std::lower_bound(sorted.begin(), sorted.end(), db::database::ENROLL_MANUAL_CHECK_TEMPLATES_TYPE) !=
            db::database::ENROLL_MANUAL_CHECK_TEMPLATES_TYPE)
            continue;
        std::map<unsigned int, QString> values;
        values.emplace(1, QCoreApplication::translate("QObject", "По всей базе"));
        values.emplace(2, QCoreApplication::translate("QObject", "По предприятию"));
        values.emplace(3, QCoreApplication::translate("QObject", "По подразделению"));
        values.emplace(4, QCoreApplication::translate("QObject", "По своим шаблонам"));
    }
}

/// The page's last key: the worst case for a walk that stops at the first match.
void lastValueByLibrary(int count)
{
    QWidget window;
    const auto page = DBSettingsGroupFactory::create(DBGroups::Users, &window, nullptr);
    for (int i = 0; i < count; ++i)
        page->toGroup()->paramValue(db::database::USER_SESSION_TIMEOUT);
}

void lastValueByFindChildren(int count)
{
    QWidget window;
    const auto page = DBSettingsGroupFactory::create(DBGroups::Users, &window, nullptr);
    for (int i = 0; i < count; ++i) {
        for (const DBParamWidget *editor : page->widget()->findChildren<DBParamWidget *>()) {
            if (editor->key() == db::database::USER_SESSION_TIMEOUT) {
                editor->value();
                break;
            }
        }
    }
}

/// Every key of the page in turn, so that near and far editors count alike.
void valueByLibrary(int count)
{
    QWidget window;
    const auto page = DBSettingsGroupFactory::create(DBGroups::Users, &window, nullptr);
    const QStringList keys = page->toGroup()->paramKeys();
    for (int i = 0; i < count; ++i) {
        for (const QString &key : keys)
            page->toGroup()->paramValue(key);
    }
}

void valueByFindChildren(int count)
{
    QWidget window;
    const auto page = DBSettingsGroupFactory::create(DBGroups::Users, &window, nullptr);
    const QStringList keys = page->toGroup()->paramKeys();
    for (int i = 0; i < count; ++i) {
        for (const QString &key : keys) {
            for (const DBParamWidget *editor : page->widget()->findChildren<DBParamWidget *>()) {
                if (editor->key() == key) {
                    editor->value();
                    break;
                }
            }
        }
    }
}

using Work = std::function<void(int count)>;

template <typename Way>
void addPageWork(std::map<std::string, Work> &works, const std::string &page)
{
    const std::vector<DBGroups> groups = selectedPages(page);
    works["cycle:" + page + " " + Way::name] = [groups](int count) { cycle<Way>(groups, count); };
    works["shown:" + page + " " + Way::name] = [groups](int count) { shown<Way>(groups, count); };
}

std::map<std::string, Work> allWorks(const std::string &page)
{
    std::map<std::string, Work> works = {
        {"caption library", captionByLibrary},      {"caption handwritten", captionByBinarySearch},
        {"choices library", choicesByLibrary},      {"choices handwritten", choicesByHand},
        {"value library", valueByLibrary},          {"value findchildren", valueByFindChildren},
        {"last-value library", lastValueByLibrary}, {"last-value findchildren", lastValueByFindChildren},
        {"sets library", sets<pages::Library>},     {"sets handwritten", sets<pages::Handwritten>},
    };
    if (!page.empty()) {
        addPageWork<pages::Library>(works, page);
        addPageWork<pages::Handwritten>(works, page);
        addPageWork<pages::UiLoader>(works, page);
    }
    return works;
}
} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("gui.lib.dbsettings.debug=false"));
    if (argc != 4) {
        std::fputs("usage: pagecount WORK WAY N\n", stderr);
        return 2;
    }
    const std::string kind = argv[1];
    const auto colon = kind.find(':');
    const auto works = allWorks(colon == std::string::npos ? std::string() : kind.substr(colon + 1));
    const auto work = works.find(kind + " " + argv[2]);
    if (work == works.end()) {
        std::fprintf(stderr, "pagecount: no such work: %s %s\n", argv[1], argv[2]);
        return 2;
    }
    fillSampleStorage();
    work->second(std::stoi(argv[3]));
    return 0;
}
