#pragma once

#include <host/databaselocation.h>
#include <host/installationdatabase.h>
#include <host/settingssession.h>

#include <QCoreApplication>
#include <QTextStream>

class CommandLine;
class Translations;

/// The program from its command line to its exit status.
class Manager
{
    Q_DECLARE_TR_FUNCTIONS(Manager)

public:
    /// Both live longer.
    Manager(const CommandLine &commandLine, Translations &translations);

    /// Needs a QApplication. Returns an ExitStatus.
    int run();

private:
    int usageError(const QString &message);
    int databaseError(const DatabaseError &error);
    int drawPages();
    int showWindow();

    const CommandLine &m_commandLine;
    Translations &m_translations;
    DatabaseLocation m_location;
    InstallationDatabase m_database;
    SettingsSession m_session;
    QTextStream m_out;
    QTextStream m_err;
};
