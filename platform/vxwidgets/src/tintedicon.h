#pragma once

#include <vxstyles/vxiconhelper.h>

#include <QIcon>

/// @p icon in @p color whatever the mode it is painted in: styles wash the icons of selected and disabled items, but
/// this one has the colour of their text already.
inline QIcon tintedIcon(const QIcon &icon, const QSize &size, const QColor &color)
{
    const QPixmap pixmap = VXIconHelper::pixmap(icon, size, color);
    QIcon result;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected, QIcon::Disabled})
        result.addPixmap(pixmap, mode);
    return result;
}
