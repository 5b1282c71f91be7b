#pragma once

#include <QString>

#include <optional>

/// The program's look, be it one that does not depend on the desktop or the desktop's own.
class Theme
{
public:
    enum class Kind { Light, Dark, System };

    /// "light" or "dark"; nothing for any other text.
    static std::optional<Kind> fromName(const QString &name);
    /// What was chosen last by the user of this program; the desktop's look if nothing was.
    static Kind remembered();
    /// What was applied last; the desktop's look if nothing was.
    static Kind current();
    static void apply(Kind kind);
    /// Where the desktop's look is wanted and the desktop wants it dark, but has no dark palette for this toolkit, it
    /// is this program's dark one.
    static void followDesktop(bool prefersDark);
    /// Applies @p kind, and remembers it for the next start.
    static void choose(Kind kind);
};
