#pragma once

#include <QCoreApplication>
#include <QString>

#include <optional>

/// A value that must not be on the command line.
class StandardInput
{
    Q_DECLARE_TR_FUNCTIONS(StandardInput)

public:
    static constexpr int longest = 1024 * 1024; ///< bytes

    /// Everything up to the end without the final line break; from a terminal one line, which it does not show.
    /// Nothing if it cannot be read, is too long or is not valid UTF-8.
    static std::optional<QString> readValue();
};
