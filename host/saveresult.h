#pragma once

#include <host/changestamp.h>
#include <host/databaseerror.h>

#include <QHash>
#include <QStringList>
#include <QVector>

#include <optional>

/// A setting that somebody else has changed since it was loaded.
struct SettingConflict
{
    QString key;
    QString loaded; ///< what both started from
    QString stored; ///< what is in the database now
    QString wanted; ///< what was to be saved

    qint64 revision = 0;    ///< of what is stored; 0 if there is no such setting any more
    ChangeStamp stamp = {}; ///< of what is stored
};

/// What became of a save. Unless it was saved or nobody knows, the database is as it was.
struct [[nodiscard]] SaveResult
{
    enum class Outcome {
        NothingToDo,
        Saved,
        Conflicting, ///< see conflicts
        Unreadable,  ///< a stored JSON text cannot be merged with an edit, see unreadableKeys
        Forbidden,   ///< an operator may not change them, see forbiddenKeys and PageAccessWords::refusal()
        Failed,      ///< nothing was written, see error
        Unknown,     ///< it may or may not be stored, see error and saveId
    };

    Outcome outcome = Outcome::NothingToDo;
    QVector<SettingConflict> conflicts;
    QStringList unreadableKeys;
    std::optional<DatabaseError> error;
    QString saveId = {};                   ///< of what was or may be saved, as the history has it
    QHash<QString, qint64> revisions = {}; ///< stored key → its new revision, of every setting that was changed
    ChangeStamp stamp = {};                ///< of what was saved
    QStringList forbiddenKeys = {};        ///< sorted

    static SaveResult nothingToDo();
    static SaveResult saved(const QString &saveId, const QHash<QString, qint64> &revisions, const ChangeStamp &stamp);
    static SaveResult conflicting(const QVector<SettingConflict> &conflicts);
    static SaveResult unreadable(const QStringList &keys);
    static SaveResult forbidden(const QStringList &keys);
    static SaveResult failed(const DatabaseError &error);
    static SaveResult unknown(const QString &saveId, const DatabaseError &error);

    /// Whether the database now holds everything that was to be saved.
    bool isDone() const;
};
