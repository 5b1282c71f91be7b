#pragma once

#include <host/databaselocation.h>
#include <host/settingscontroller.h>
#include <host/settingsstore.h>

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
    SettingsStore m_store;
    SettingsController m_controller;
    QTextStream m_out;
    QTextStream m_err;
};
