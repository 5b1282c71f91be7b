#include "settingscontroller.h"

#include "jsonsetting.h"
#include "settingspage.h"
#include "settingsstore.h"

#include <vxsettings/dbsettingshelper.h>

#include <localstorage/localstorage.h>

#include <QWidget>

#include <algorithm>

using vantorix::LocalStorage;
using vantorix::OBJECT_PARAMETERS;

namespace {

bool isJson(const QString &key)
{
    return DBSettingsHelper::paramType(key) == DBSettingsType::JsonGroup;
}

void addTo(OBJECT_PARAMETERS &all, const OBJECT_PARAMETERS &some)
{
    for (auto parameter = some.begin(); parameter != some.end(); ++parameter)
        all.insert(parameter.key(), parameter.value());
}
} // namespace

SettingsController::SettingsController(SettingsStore &store, QObject *parent)
    : QObject(parent)
    , m_store(store)
{}

SettingsController::~SettingsController() = default;

std::optional<DatabaseError> SettingsController::load()
{
    Installation installation;
    if (auto error = m_store.load(installation))
        return error;

    m_pages.clear();
    LocalStorage::instance()->setDbSettings(installation.settings);
    // Data names that are gone are emptied.
    for (const QString &dataName : m_loaded.objects.keys() + installation.objects.keys())
        LocalStorage::instance()->setObjects(dataName, installation.objects.value(dataName));
    m_loaded = installation;
    Q_EMIT edited();
    return {};
}

QWidget *SettingsController::openPage(DBGroups group, QWidget *parent)
{
    if (!isOpen(group)) {
        m_pages.push_back(std::make_unique<SettingsPage>(group, parent));
        connect(m_pages.back().get(), &SettingsPage::edited, this, &SettingsController::edited);
    }
    return page(group)->widget();
}

bool SettingsController::isOpen(DBGroups group) const
{
    return page(group) != nullptr;
}

OBJECT_PARAMETERS SettingsController::changes() const
{
    OBJECT_PARAMETERS all;
    for (const auto &page : m_pages)
        addTo(all, page->changes());
    return all;
}

bool SettingsController::hasChanges() const
{
    return !changes().isEmpty();
}

bool SettingsController::hasChanges(DBGroups group) const
{
    const SettingsPage *open = page(group);
    return open && !open->changes().isEmpty();
}

SaveResult SettingsController::save(const Consent &consent)
{
    if (!hasChanges())
        return SaveResult::nothingToDo();

    Installation expected = m_loaded;
    for (const SettingConflict &conflict : consent.overwritten) {
        expected.settings.insert(conflict.key, conflict.stored);
        expected.revisions.insert(conflict.key, conflict.revision);
    }
    const QStringList unreadable = unreadableKeys(expected.settings);
    if (!consent.replaceUnreadable && !unreadable.isEmpty())
        return SaveResult::unreadable(unreadable);

    const OBJECT_PARAMETERS texts = textsToStore(expected.settings);
    SaveResult result = m_store.save(texts, expected);
    if (result.isDone())
        adopt(texts, result.revisions);
    return result;
}

void SettingsController::revert()
{
    for (const auto &page : m_pages)
        page->revert();
}

SettingsPage *SettingsController::page(DBGroups group) const
{
    const auto found =
        std::find_if(m_pages.begin(), m_pages.end(), [group](const auto &page) { return page->group() == group; });
    return found == m_pages.end() ? nullptr : found->get();
}

OBJECT_PARAMETERS SettingsController::textsToStore(const QHash<QString, QString> &stored) const
{
    OBJECT_PARAMETERS texts = changes();
    for (const auto &page : m_pages) {
        for (const QString &key : page->changes().keys()) {
            if (isJson(key))
                texts[key] = JsonSetting::merged(stored.value(key), page->baseline().value(key), texts[key]);
        }
    }
    return texts;
}

QStringList SettingsController::unreadableKeys(const QHash<QString, QString> &stored) const
{
    QStringList keys;
    for (const QString &key : changes().keys()) {
        if (isJson(key) && JsonSetting(stored.value(key)).state() == JsonSetting::State::Unreadable)
            keys << key;
    }
    keys.sort();
    return keys;
}

void SettingsController::adopt(const OBJECT_PARAMETERS &saved, const QHash<QString, qint64> &revisions)
{
    for (auto setting = saved.begin(); setting != saved.end(); ++setting)
        m_loaded.settings.insert(setting.key(), setting.value());
    for (auto revision = revisions.begin(); revision != revisions.end(); ++revision)
        m_loaded.revisions.insert(revision.key(), revision.value());
    LocalStorage::instance()->setDbSettings(m_loaded.settings);
    for (const auto &page : m_pages)
        page->accept();
}
