#include <QGuiApplication>
#include <QIcon>

namespace {

QStringList with(QStringList paths, const QString &path)
{
    if (!paths.contains(path))
        paths << path;
    return paths;
}

/// Desktops without a fallback theme of their own name hicolor, in which every theme ends anyway.
bool namesNothing(const QString &fallbackTheme)
{
    return fallbackTheme.isEmpty() || fallbackTheme == QLatin1String("hicolor");
}

/// Brings the icons of this library into reach of QIcon::fromTheme(), behind everything that the desktop or the
/// application has chosen: a theme of theirs that knows a name keeps it.
void installIconTheme()
{
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return;

    const auto theme = QStringLiteral("vantorix");
    QIcon::setThemeSearchPaths(with(QIcon::themeSearchPaths(), QStringLiteral(":/icons")));
    if (namesNothing(QIcon::fallbackThemeName()))
        QIcon::setFallbackThemeName(theme);
    // Qt asks no fallback while there is no current theme.
    if (QIcon::themeName().isEmpty())
        QIcon::setThemeName(theme);
    // The last resort, for desktops and applications with a fallback theme, search paths or a loader of their own.
    QIcon::setFallbackSearchPaths(with(QIcon::fallbackSearchPaths(), QStringLiteral(":/icons/vantorix/scalable")));
}
} // namespace

Q_COREAPP_STARTUP_FUNCTION(installIconTheme)
