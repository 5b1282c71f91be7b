#include "theme.h"

#include "themestyle.h"

#include <QApplication>
#include <QPalette>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>
#include <QToolTip>

namespace {

constexpr QRgb darkWindow = 0xff2b2d30;
constexpr QRgb darkBase = 0xff1e1f22;
constexpr QRgb darkButton = 0xff3c3f41;
constexpr QRgb darkText = 0xffdfe1e5;
constexpr QRgb darkFadedText = 0xff868a91;
constexpr QRgb darkAccent = 0xff3a78c9;
constexpr QRgb darkLink = 0xff6aa8ff;

QPalette darkPalette()
{
    QPalette palette(QColor(darkText), QColor(darkButton), QColor(0xff55585c), QColor(0xff141517), QColor(0xff2f3134),
                     QColor(darkText), Qt::white, QColor(darkBase), QColor(darkWindow));
    palette.setColor(QPalette::Shadow, QColor(0xff0f1011));
    palette.setColor(QPalette::AlternateBase, QColor(darkWindow));
    palette.setColor(QPalette::ToolTipBase, QColor(darkButton));
    palette.setColor(QPalette::ToolTipText, QColor(darkText));
    palette.setColor(QPalette::Highlight, QColor(darkAccent));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(darkLink));
    palette.setColor(QPalette::PlaceholderText, QColor(darkFadedText));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(darkFadedText));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(darkButton));
    return palette;
}

QString settingsKey()
{
    return QStringLiteral("theme");
}

Theme::Kind currentKind = Theme::Kind::System;
Theme::Kind shownKind = Theme::Kind::System; // of a dark desktop it may be Dark
bool desktopPrefersDark = false;

/// The desktop's style; first asked for before another one is set.
const QString &systemStyle()
{
    static const QString name = QApplication::style()->objectName();
    return name;
}

QPalette paletteOf(Theme::Kind kind)
{
    switch (kind) {
    case Theme::Kind::Light:
        return QApplication::style()->standardPalette();
    case Theme::Kind::Dark:
        return darkPalette();
    case Theme::Kind::System:
        break;
    }
    return {}; // with nothing set, it is the desktop's
}

void show(Theme::Kind kind)
{
    const QString &desktopStyle = systemStyle();
    if (kind == shownKind)
        return;
    shownKind = kind;
    QApplication::setStyle(kind == Theme::Kind::System ? QStyleFactory::create(desktopStyle) : new ThemeStyle);
    QApplication::setPalette(paletteOf(kind));
    // Tool tips have a palette of their own, which does not follow.
    QToolTip::setPalette(QApplication::palette());
}

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

void showDesktopsLook()
{
    // Only so does it tell whether its palette is dark.
    show(Theme::Kind::System);
    if (desktopPrefersDark && !isDark(QApplication::palette()))
        show(Theme::Kind::Dark);
}
} // namespace

std::optional<Theme::Kind> Theme::fromName(const QString &name)
{
    if (name == QLatin1String("light"))
        return Kind::Light;
    if (name == QLatin1String("dark"))
        return Kind::Dark;
    return {};
}

Theme::Kind Theme::remembered()
{
    return fromName(QSettings().value(settingsKey()).toString()).value_or(Kind::System);
}

Theme::Kind Theme::current()
{
    return currentKind;
}

void Theme::apply(Kind kind)
{
    currentKind = kind;
    if (kind == Kind::System)
        showDesktopsLook();
    else
        show(kind);
}

void Theme::followDesktop(bool prefersDark)
{
    if (desktopPrefersDark == prefersDark)
        return;
    desktopPrefersDark = prefersDark;
    apply(currentKind);
}

void Theme::choose(Kind kind)
{
    apply(kind);
    QSettings settings;
    if (kind == Kind::System)
        settings.remove(settingsKey());
    else
        settings.setValue(settingsKey(), kind == Kind::Dark ? QStringLiteral("dark") : QStringLiteral("light"));
}
