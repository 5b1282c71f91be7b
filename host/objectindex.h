#pragma once

#include <localstorage/localstorage.h>

#include <QHash>
#include <QString>
#include <QVector>

/// Finds the objects of an installation by their uid, as the object selectors of the pages do.
class ObjectIndex
{
public:
    /// Whether a selector offers an object.
    enum class Presence {
        Gone,       ///< no object has the uid
        OtherType,  ///< its type is none of those that the selector offers
        NotGranted, ///< the operator may not see it or one of its parents
        Choosable,
    };

    /// @p objects: data name → objects. An index is made of each list when it is first asked for.
    explicit ObjectIndex(const QHash<QString, QVector<vantorix::ObjectRecord>> &objects);

    /// Uid 0 names no object.
    Presence presence(const QString &dataName, unsigned int uid) const;

private:
    using Records = QHash<unsigned int, vantorix::ObjectRecord>;

    const Records &records(const QString &dataName) const;

    QHash<QString, QVector<vantorix::ObjectRecord>> m_objects;
    mutable QHash<QString, Records> m_records;
};
