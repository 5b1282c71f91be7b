#pragma once

#include <host/installationdatabase.h>

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QSet>

/// Tells on the error output why a call of the database takes long: once for each reason, and only if it lasts.
class WaitNotices : public QObject
{
    Q_OBJECT

public:
    explicit WaitNotices(InstallationDatabase &database);

private:
    void onWaiting(InstallationDatabase::Wait wait);
    static QString words(InstallationDatabase::Wait wait);

    QHash<int, QElapsedTimer> m_since; // by the wait
    QSet<int> m_told;
};
