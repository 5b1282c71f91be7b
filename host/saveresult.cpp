#include "saveresult.h"

SaveResult SaveResult::nothingToDo()
{
    return {};
}

SaveResult SaveResult::saved(const QString &saveId, const QHash<QString, qint64> &revisions, const ChangeStamp &stamp)
{
    return {Outcome::Saved, {}, {}, {}, saveId, revisions, stamp};
}

SaveResult SaveResult::conflicting(const QVector<SettingConflict> &conflicts)
{
    return {Outcome::Conflicting, conflicts, {}, {}};
}

SaveResult SaveResult::unreadable(const QStringList &keys)
{
    return {Outcome::Unreadable, {}, keys, {}};
}

SaveResult SaveResult::forbidden(const QStringList &keys)
{
    SaveResult result;
    result.outcome = Outcome::Forbidden;
    result.forbiddenKeys = keys;
    return result;
}

SaveResult SaveResult::failed(const DatabaseError &error)
{
    return {Outcome::Failed, {}, {}, error};
}

SaveResult SaveResult::unknown(const QString &saveId, const DatabaseError &error)
{
    return {Outcome::Unknown, {}, {}, error, saveId};
}

bool SaveResult::isDone() const
{
    return outcome == Outcome::Saved || outcome == Outcome::NothingToDo;
}
