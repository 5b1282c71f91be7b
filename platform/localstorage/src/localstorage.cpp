#include <localstorage/localstorage.h>

namespace vantorix {

LocalStorage *LocalStorage::instance()
{
    static LocalStorage storage;
    return &storage;
}

QHash<QString, QString> LocalStorage::dbSettings() const
{
    return m_dbSettings;
}

void LocalStorage::setDbSettings(const QHash<QString, QString> &settings)
{
    if (m_dbSettings == settings)
        return;
    m_dbSettings = settings;
    Q_EMIT dbSettingsChanged();
}

QVector<ObjectRecord> LocalStorage::objects(const QString &dataName) const
{
    return m_objects.value(dataName);
}

void LocalStorage::setObjects(const QString &dataName, const QVector<ObjectRecord> &objects)
{
    m_objects.insert(dataName, objects);
    Q_EMIT objectsChanged(dataName);
}
} // namespace vantorix
