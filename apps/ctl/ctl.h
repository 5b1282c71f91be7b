#pragma once

#include "commandline.h"
#include "report.h"

#include <QCoreApplication>

/// The program from its command line to its exit status.
class Ctl
{
    Q_DECLARE_TR_FUNCTIONS(Ctl)

public:
    /// Runs what @p arguments, the program's name first, ask for, and prints what it has to say. Returns an ExitStatus.
    static int run(const QStringList &arguments);

private:
    static Report report(const CommandLine &commandLine);
    static Report usageError(const QString &message);
    static bool print(const Report &report, bool asJson);
};
