#pragma once

#include <localstorage/localstorage.h>

/// Puts database settings, key to text, into the process's storage; what was there before comes back with the end.
///
///     StoredSettings stored({{MAX_CARD_COUNT, "25"}});
class StoredSettings
{
public:
    explicit StoredSettings(const QHash<QString, QString> &settings)
        : m_previous(vantorix::LocalStorage::instance()->dbSettings())
    {
        vantorix::LocalStorage::instance()->setDbSettings(settings);
    }
    ~StoredSettings() { vantorix::LocalStorage::instance()->setDbSettings(m_previous); }
    Q_DISABLE_COPY(StoredSettings)

private:
    QHash<QString, QString> m_previous;
};

/// The same for the objects of one data name.
///
///     StoredObjects objects("orgstructure", {{1, 0, "OT_SUBJECTROOT", "Organisation"}, {7, 1, "OT_FIRM", "Works"}});
class StoredObjects
{
public:
    StoredObjects(const QString &dataName, const QVector<vantorix::ObjectRecord> &objects)
        : m_dataName(dataName)
        , m_previous(vantorix::LocalStorage::instance()->objects(dataName))
    {
        vantorix::LocalStorage::instance()->setObjects(dataName, objects);
    }
    ~StoredObjects() { vantorix::LocalStorage::instance()->setObjects(m_dataName, m_previous); }
    Q_DISABLE_COPY(StoredObjects)

private:
    QString m_dataName;
    QVector<vantorix::ObjectRecord> m_previous;
};
