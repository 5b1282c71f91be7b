#include "saveresult.h"

SaveResult SaveResult::nothingToDo()
{
    return {};
}

SaveResult SaveResult::saved(const QString &saveId, const QHash<QString, qint64> &revisions)
{
    return {Outcome::Saved, {}, {}, {}, saveId, revisions};
}

SaveResult SaveResult::conflicting(const QVector<SettingConflict> &conflicts)
{
    return {Outcome::Conflicting, conflicts, {}, {}};
}

SaveResult SaveResult::unreadable(const QStringList &keys)
{
    return {Outcome::Unreadable, {}, keys, {}};
}

SaveResult SaveResult::failed(const DatabaseError &error)
{
    return {Outcome::Failed, {}, {}, error};
}

bool SaveResult::isDone() const
{
    return outcome == Outcome::Saved || outcome == Outcome::NothingToDo;
}
