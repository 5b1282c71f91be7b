#pragma once

#include <host/installationdatabase.h>

#include <QObject>
#include <QStringList>

/// Tells the changes that others make in a database as they come, with what the history knows of them.
class ChangeWatcher : public QObject
{
    Q_OBJECT

public:
    /// Begins with what @p database has loaded, which must live longer and make no callback once this object is gone.
    explicit ChangeWatcher(InstallationDatabase &database);

Q_SIGNALS:
    /// Never empty, in the order of the saves. A change that is not in the history, as it was not made by a program of
    /// this project, is told with what is known.
    void changed(const QVector<HistoryRecord> &records);

private:
    void onChanged(const QStringList &keys);
    /// Adds to the news what is not told yet of @p key.
    void collect(const QString &key, const QVector<HistoryRecord> &remembered, const Installation &now);
    void tell();

    InstallationDatabase &m_database;
    Installation m_told; ///< settings and revisions that changed() has told
    QVector<HistoryRecord> m_news;
};
