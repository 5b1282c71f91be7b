#pragma once

#include "report.h"

#include <QFlags>

#include <climits>

class Session;

/// What can be asked for with two dashes.
enum class Option {
    Help = 1 << 0,
    Version = 1 << 1,
    Database = 1 << 2,
    Json = 1 << 3,
    DryRun = 1 << 4,
    WithSecrets = 1 << 5,
    Stdin = 1 << 6,
    Repair = 1 << 7,
    Sample = 1 << 8,
    Reason = 1 << 9,
    Language = 1 << 10,
    AsAdministrator = 1 << 11,
};
Q_DECLARE_FLAGS(Options, Option)
Q_DECLARE_OPERATORS_FOR_FLAGS(Options)

/// Those that every command has.
constexpr Options commonOptions =
    Options(Option::Help) | Option::Version | Option::Language | Option::Database | Option::Json;

/// What a word on the command line stands for, so that a shell can complete it.
enum class WordKind {
    Text, ///< anything
    Page,
    Key,        ///< of a setting
    Address,    ///< KEY or KEY.MEMBER
    Assignment, ///< KEY=VALUE or KEY.MEMBER=VALUE
    Revision,   ///< KEY@REVISION
    File,
};

/// Texts are Russian source texts of the context "CommandTable".
struct OptionDescription
{
    Option option;
    char letter; ///< short for the name; 0 if there is none
    const char *name;
    const char *value; ///< what it stands before, for people; null for a mere switch
    WordKind valueKind;
    const char *text;
};

/// How many arguments a command takes, both inclusive.
struct ArgumentCount
{
    int least;
    int most = INT_MAX;
};

/// Texts are Russian source texts of the context "CommandTable".
struct Command
{
    const char *name;
    const char *arguments; ///< for people; null if there are none
    ArgumentCount count;
    WordKind argumentKind;
    Options options; ///< beside the common ones
    const char *summary;
    const char *details; ///< null if the summary says everything
    Report (*run)(Session &session);
};

/// What the program takes from its environment. The text is a Russian source text of the context "CommandTable".
struct EnvironmentVariable
{
    const char *names;
    const char *text;
};
