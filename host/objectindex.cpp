#include "objectindex.h"

#include <vxsettings/dbkeys.h>

using vantorix::ObjectRecord;

namespace {

bool isOffered(const QString &dataName, const QString &type)
{
    return dataName != vantorix::ORGSTRUCTURE_DATANAME || type == db::orgstructure::SUBJECTROOT ||
           type == db::orgstructure::FIRM || type == db::orgstructure::DEPARTMENT;
}
} // namespace

ObjectIndex::ObjectIndex(const QHash<QString, QVector<ObjectRecord>> &objects)
    : m_objects(objects)
{}

ObjectIndex::Presence ObjectIndex::presence(const QString &dataName, unsigned int uid) const
{
    const Records &known = records(dataName);
    auto record = known.find(uid);
    if (record == known.end())
        return Presence::Gone;
    if (!isOffered(dataName, record->type))
        return Presence::OtherType;

    // Parents may lead round in a circle.
    for (int steps = 0; record != known.end() && steps < known.size(); ++steps) {
        if (!record->granted)
            return Presence::NotGranted;
        record = known.find(record->parentUid);
    }
    return Presence::Choosable;
}

const ObjectIndex::Records &ObjectIndex::records(const QString &dataName) const
{
    const auto known = m_records.find(dataName);
    if (known != m_records.end())
        return *known;

    Records records;
    const QVector<ObjectRecord> objects = m_objects.value(dataName);
    records.reserve(objects.size());
    for (const ObjectRecord &object : objects) {
        // Of several objects with one uid the first one counts.
        if (object.uid && !records.contains(object.uid))
            records.insert(object.uid, object);
    }
    return *m_records.insert(dataName, records);
}
