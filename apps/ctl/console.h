#pragma once

#include <QString>

/// What the program writes, in UTF-8 whatever the locale says.
class Console
{
public:
    /// To the standard output, at once. False if not all of it could be written.
    static bool print(const QString &text);
    /// To the error output, as lines of their own. Control characters are made visible: messages quote what was
    /// written by hand.
    static void tell(const QString &message);
};
