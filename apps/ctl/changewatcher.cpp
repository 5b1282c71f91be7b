#include "changewatcher.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

/// What the history does not have comes last.
bool isEarlier(const HistoryRecord &left, const HistoryRecord &right)
{
    const auto order = [](const HistoryRecord &record) {
        return record.id > 0 ? record.id : std::numeric_limits<qint64>::max();
    };
    return order(left) < order(right);
}
} // namespace

ChangeWatcher::ChangeWatcher(InstallationDatabase &database)
    : m_database(database)
    , m_told(database.installation())
{
    connect(&database, &InstallationDatabase::changed, this, &ChangeWatcher::onChanged);
    database.watch();
}

void ChangeWatcher::onChanged(const QStringList &keys)
{
    const Installation now = m_database.installation();
    for (const QString &key : keys) {
        const bool isLast = key == keys.last();
        m_database.history(key, [this, key, now, isLast](const DatabaseResult<QVector<HistoryRecord>> &result) {
            collect(key, result.value, now);
            if (isLast)
                tell();
        });
    }
}

void ChangeWatcher::collect(const QString &key, const QVector<HistoryRecord> &remembered, const Installation &now)
{
    qint64 &revision = m_told.revisions[key];
    for (const HistoryRecord &record : remembered) {
        if (record.revision <= revision)
            continue;
        m_news.append(record);
        revision = record.revision;
        m_told.settings.insert(key, record.newValue);
    }

    const bool isStored = now.settings.contains(key);
    if (revision >= now.revisions.value(key) && m_told.settings.contains(key) == isStored)
        return;
    revision = std::max(revision, now.revisions.value(key));
    m_news.append(
        {0, {}, key, revision, m_told.settings.value(key), now.settings.value(key), now.stamps.value(key), {}});
    if (isStored)
        m_told.settings.insert(key, now.settings[key]);
    else
        m_told.settings.remove(key);
}

void ChangeWatcher::tell()
{
    std::stable_sort(m_news.begin(), m_news.end(), isEarlier);
    const QVector<HistoryRecord> news = std::exchange(m_news, {});
    if (!news.isEmpty())
        Q_EMIT changed(news);
}
