#pragma once

#include <localstorage/localstorage_export.h>

#include <QHash>
#include <QObject>
#include <QString>
#include <QVector>

namespace vantorix {

/// One object of the installation: a node of the organisational structure, a smart-card profile and the like.
struct ObjectRecord
{
    unsigned int uid = 0;       ///< of the object; unique within its data name, not 0
    unsigned int parentUid = 0; ///< 0 for an object at the top
    QString type;               ///< object type name, for instance "OT_DEPARTMENT"
    QString name;               ///< what people call it
    bool granted = true;        ///< whether the operator may see it
};

/// The host's copy of what the installation database holds. Filled by the host, read by everybody else. GUI thread
/// only.
class LOCALSTORAGE_EXPORT LocalStorage : public QObject
{
    Q_OBJECT

public:
    /// The one storage of the process; created by the first call, owned by nobody else.
    static LocalStorage *instance();

    /// Stored database settings, key to text. The hash is implicitly shared: a copy costs nothing.
    QHash<QString, QString> dbSettings() const;
    /// Replaces all settings; silent if they are what was there before.
    void setDbSettings(const QHash<QString, QString> &settings);

    /// The objects of one data name, for instance "orgstructure", in the order in which they were set; empty if
    /// unknown.
    QVector<ObjectRecord> objects(const QString &dataName) const;
    /// Replaces the objects of @p dataName and signals it, equal or not. Records may come in any order, children before
    /// their parent included.
    void setObjects(const QString &dataName, const QVector<ObjectRecord> &objects);

Q_SIGNALS:
    /// The settings are others than before.
    void dbSettingsChanged();
    /// The objects of @p dataName were set.
    void objectsChanged(const QString &dataName);

private:
    LocalStorage() = default;

    QHash<QString, QString> m_dbSettings;
    QHash<QString, QVector<ObjectRecord>> m_objects;
};
} // namespace vantorix

Q_DECLARE_TYPEINFO(vantorix::ObjectRecord, Q_MOVABLE_TYPE);
