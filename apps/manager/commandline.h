#pragma once

#include "theme.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QString>

#include <optional>

/// What the command line asks for.
class CommandLine
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    /// @p arguments begin with the program's name.
    explicit CommandLine(const QStringList &arguments);

    /// What is wrong with the command line; null if nothing.
    QString error() const;
    bool isHelpWanted() const;
    bool isVersionWanted() const;
    bool isSelfTestWanted() const;
    /// False for what only writes files and to the terminal.
    bool isWindowWanted() const;
    /// The text for --help; needs an application object.
    QString helpText() const;

    /// The database's URL; empty if none was given.
    QString database() const;
    /// Where the pictures of the pages go; null if none are wanted.
    QString pictureFolder() const;
    /// The code of the wanted language; empty if none was given.
    QString language() const;
    /// Nothing if the desktop's look is to stay.
    std::optional<Theme::Kind> theme() const;

private:
    QCommandLineOption m_help;
    QCommandLineOption m_version;
    QCommandLineOption m_database;
    QCommandLineOption m_render;
    QCommandLineOption m_selfTest;
    QCommandLineOption m_language;
    QCommandLineOption m_theme;
    QCommandLineParser m_parser;
    bool m_parsed;
};
