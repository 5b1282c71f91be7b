#pragma once

#include <host/databaselocation.h>
#include <host/installationdatabase.h>
#include <host/settingssession.h>

#include <QCoreApplication>
#include <QTextStream>

class CommandLine;

/// The program from its command line to its exit status.
class Manager
{
    Q_DECLARE_TR_FUNCTIONS(Manager)

public:
    explicit Manager(const CommandLine &commandLine);

    /// Needs a QApplication. Returns an ExitStatus.
    int run();

private:
    int usageError(const QString &message);
    int databaseError(const DatabaseError &error);
    int runOnDatabase();
    int showWindow();

    const CommandLine &m_commandLine;
    DatabaseLocation m_location;
    InstallationDatabase m_database;
    SettingsSession m_session;
    QTextStream m_out;
    QTextStream m_err;
};
