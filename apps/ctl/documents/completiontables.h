#pragma once

#include "command.h"

#include <QString>
#include <QVector>

struct SettingAddress;

/// What a shell can offer at one place of the command line.
struct CompletionTable
{
    struct Word
    {
        QString word;
        QString description; ///< one line
    };

    QString name;
    QVector<Word> words;
};

/// All words that the command line of vxsettingsctl can be completed with.
///
/// The tables are named "commands", "options" (without a command), "options COMMAND", by the kind of an argument, see
/// kindName(), "stdin" for the settings that set reads from its input, and "values KEY" or "values KEY.MEMBER".
class CompletionTables
{
public:
    static QVector<CompletionTable> all();
    static QString kindName(WordKind kind);

private:
    static CompletionTable commands();
    static CompletionTable options(const QString &name, Options options);
    static CompletionTable pages();
    /// @p end stands behind each address.
    static CompletionTable addresses(const QString &name, const QVector<SettingAddress> &addresses,
                                     const QString &end = {});
    static QVector<CompletionTable> values();
};
