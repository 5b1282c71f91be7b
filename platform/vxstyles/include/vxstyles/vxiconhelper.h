#pragma once

#include <vxstyles/vxstyles_export.h>

#include <QPixmap>

class QColor;
class QIcon;
class QSize;

/// Renders theme icons as one-coloured pixmaps.
///
/// This library ships an icon theme of its own, "vantorix". It becomes the fallback icon theme when the application
/// starts, and the current one where the platform names none: QIcon::fromTheme() knows its icons in every program that
/// links it.
///
/// Qt shortens a name at its dashes before it asks another theme. A desktop theme with an icon "object" therefore
/// answers for "object-OT_USER" as well. A program that wants these drawings on every desktop makes the theme its own,
/// before it loads icons: QIcon::setFallbackThemeName(QIcon::themeName()), then QIcon::setThemeName("vantorix").
class VXSTYLES_EXPORT VXIconHelper
{
public:
    /// @p icon drawn in @p color, its alpha and the colour's multiplied, in a pixmap of exactly @p size
    /// device-independent pixels with the application's device pixel ratio. Centred, aspect ratio kept, never enlarged
    /// beyond what the icon has.
    ///
    /// An icon without a picture yields a transparent pixmap; only an empty @p size yields a null one. Pixmaps are kept
    /// in QPixmapCache, so that asking again costs a look-up. GUI thread only, needs a QGuiApplication.
    static QPixmap pixmap(const QIcon &icon, const QSize &size, const QColor &color);
};
