#pragma once

#include "commandline.h"
#include "report.h"

#include <host/installationdatabase.h>
#include <host/objectindex.h>
#include <host/saveorder.h>

#include <QCoreApplication>

#include <functional>
#include <optional>

/// One run of a command on an installation database, which it waits for.
///
/// While it waits, the error output tells why if it takes long, and Ctrl+C makes it fail.
class Session
{
    Q_DECLARE_TR_FUNCTIONS(Session)

public:
    /// @p commandLine must live longer and be without an error.
    explicit Session(const CommandLine &commandLine);

    const CommandLine &commandLine() const;
    InstallationDatabase &database();

    /// Why the URL names no database; nothing if it does. The functions below have this checked.
    std::optional<Report> locationProblem() const;
    /// Makes a new database of @p content. What went wrong, or nothing.
    [[nodiscard]] std::optional<Report> create(const Installation &content);
    /// Reads everything. What went wrong, or nothing.
    [[nodiscard]] std::optional<Report> load();

    /// On whose authority it saves, as the command line says.
    Authority authority() const;
    /// What load() has read, and save() written.
    const QHash<QString, QString> &settings() const;
    const ObjectIndex &objects() const;
    /// The changes of @p key, of all settings if it is empty, oldest first. What went wrong, or nothing.
    [[nodiscard]] std::optional<Report> readHistory(const QString &key, QVector<HistoryRecord> &records);
    /// What the setting held at @p revision, null if that is not remembered. What went wrong, or nothing.
    [[nodiscard]] std::optional<Report> readTextAt(const QString &key, qint64 revision, QString &text);
    /// Stores @p changes of what load() has read, all or none, for the reason that the command line gives. What went
    /// wrong, or nothing.
    [[nodiscard]] std::optional<Report> save(const vantorix::OBJECT_PARAMETERS &changes);

private:
    template <typename Result>
    using Call = std::function<void(const InstallationDatabase::Callback<Result> &done)>;

    /// What a call does that was interrupted: what writes must know what became of it.
    enum class Interrupted { GivesUp, WaitsForTheEnd };

    /// What comes of @p call, which hands its callback to the database. Nothing if it was given up.
    template <typename Result>
    std::optional<Result> await(const Call<Result> &call, Interrupted interrupted);
    /// The same for something that is read into @p value. What went wrong, or nothing.
    template <typename Value>
    std::optional<Report> read(Value &value, const Call<DatabaseResult<Value>> &call);
    SaveOrder orderOf(const vantorix::OBJECT_PARAMETERS &changes) const;
    static Report failure(const DatabaseError &error);
    Report conflictReport(const QVector<SettingConflict> &conflicts) const;
    Report unknownReport(const SaveResult &result) const;

    const CommandLine &m_commandLine;
    InstallationDatabase m_database;
    ObjectIndex m_objects;
};
