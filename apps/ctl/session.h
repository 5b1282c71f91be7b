#pragma once

#include "commandline.h"
#include "report.h"

#include <host/databaselocation.h>
#include <host/historyrecord.h>
#include <host/installation.h>
#include <host/objectindex.h>
#include <host/saveresult.h>
#include <host/settingsstore.h>

#include <QCoreApplication>

#include <optional>

/// One run of a command on an installation database.
class Session
{
    Q_DECLARE_TR_FUNCTIONS(Session)

public:
    /// @p commandLine must live longer and be without an error.
    explicit Session(const CommandLine &commandLine);

    const CommandLine &commandLine() const;
    QString databasePath() const;

    /// Why the database cannot be one; nothing if it can. The functions below have this checked.
    std::optional<Report> locationProblem() const;
    /// Opens the database, which must be there, and reads everything. What went wrong, or nothing.
    [[nodiscard]] std::optional<Report> load();

    /// What load() has read, and save() written.
    const QHash<QString, QString> &settings() const;
    const ObjectIndex &objects() const;
    /// The changes of @p key, of all settings if it is empty, oldest first. What went wrong, or nothing.
    [[nodiscard]] std::optional<Report> readHistory(const QString &key, QVector<HistoryRecord> &records);
    /// What the setting held at @p revision, null if that is not remembered. What went wrong, or nothing.
    [[nodiscard]] std::optional<Report> readTextAt(const QString &key, qint64 revision, QString &text);
    /// Stores @p changes, all or none, in what load() has opened, for the reason that the command line gives. What went
    /// wrong, or nothing.
    [[nodiscard]] std::optional<Report> save(const vantorix::OBJECT_PARAMETERS &changes);

private:
    Report conflictReport(const QVector<SettingConflict> &conflicts) const;

    const CommandLine &m_commandLine;
    DatabaseLocation m_location;
    SettingsStore m_store;
    Installation m_installation;
    ObjectIndex m_objects;
};
