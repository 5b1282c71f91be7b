#pragma once

#include "command.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

/// What the command line asks for.
class CommandLine
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    /// @p arguments begin with the program's name.
    explicit CommandLine(const QStringList &arguments);

    /// What is wrong with the command line; null if nothing. No argument of the command is part of it, which could be
    /// a secret.
    QString error() const;

    bool isSet(Option option) const;
    /// Null if none is named, or none of the table.
    const Command *command() const;
    /// Of the command.
    QStringList arguments() const;
    /// The code of the wanted language; empty if none was given.
    QString language() const;
    /// The database's URL; empty if none was given.
    QString database() const;
    /// Of a change, for the history; empty if none was given.
    QString reason() const;

private:
    QString commandError() const;

    QCommandLineParser m_parser;
    bool m_parsed;
    bool m_isUtf8; ///< bytes that are no text have become replacement characters
};
