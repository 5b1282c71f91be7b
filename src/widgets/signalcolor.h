#pragma once

#include <QColor>
#include <QPalette>

/// A colour that tells something, in a shade for light and in one for dark surroundings.
struct SignalColor
{
    QRgb onLight;
    QRgb onDark;

    QColor in(const QPalette &palette) const
    {
        const bool isDark =
            palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
        return QColor::fromRgb(isDark ? onDark : onLight);
    }
};

// Each has a contrast of at least 4.5 : 1 to the usual window colours, so that text can be read in it.
constexpr SignalColor changedColor = {0xff1459a8, 0xff7db4ff};
constexpr SignalColor problemColor = {0xffb3261e, 0xffff9c93};
constexpr SignalColor conflictColor = {0xff8a4500, 0xffffb74d};
constexpr SignalColor noteColor = {0xff555a60, 0xffb6bac1};
