#pragma once

#include "command.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>

/// All commands and options, and the help that is made of them.
class CommandTable
{
    Q_DECLARE_TR_FUNCTIONS(CommandTable)

public:
    /// In the order in which the help tells of them.
    static QVector<Command> commands();
    static QVector<OptionDescription> options();
    static QVector<EnvironmentVariable> environment();

    /// Null if there is none of that name.
    static const Command *find(const QString &name);
    /// Without the dashes.
    static QString name(Option option);

    static QString help();
    static QString help(const Command &command);

    /// What the program is for, a sentence.
    static QString purpose();
    /// What to type behind the program's name.
    static QString synopsis();
    /// What to type, as the help has it: "import ФАЙЛ", "-h, --help", "--database <URL>".
    static QString synopsis(const Command &command);
    static QString synopsis(const OptionDescription &row);

private:
    static QString optionHelp(Options options);
    static QString environmentHelp();
    static QString statusHelp();
};
