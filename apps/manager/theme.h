#pragma once

#include <QString>

#include <optional>

/// A look that does not depend on the desktop.
class Theme
{
public:
    enum class Kind { Light, Dark };

    /// "light" or "dark"; nothing for any other text.
    static std::optional<Kind> fromName(const QString &name);
    static void apply(Kind kind);
};
