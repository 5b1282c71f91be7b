#include <vxstyles/vxiconhelper.h>

#include <qtcompat.h>

#include <QColor>
#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmapCache>

namespace {

/// Everything that the look of a pixmap depends on. The theme is part of it, because Qt keeps one icon object a name
/// and loads it anew when the theme changes.
QString cacheKey(const QIcon &icon, const QSize &size, const QColor &color, qreal ratio)
{
    return QStringLiteral("VXIconHelper:%1:%2x%3:%4:%5:%6")
        .arg(icon.cacheKey())
        .arg(size.width())
        .arg(size.height())
        .arg(color.rgba())
        .arg(ratio)
        .arg(QIcon::themeName());
}

/// The icon's own pixmap in device pixels; smaller than asked for where the theme has nothing that large.
QPixmap untinted(const QIcon &icon, const QSize &size, qreal ratio)
{
    QPixmap pixmap = icon.pixmap(qtcompat::isIconScaledByQt() ? size : size * ratio);
    pixmap.setDevicePixelRatio(1);
    return pixmap;
}

QPixmap tinted(const QIcon &icon, const QSize &size, const QColor &color, qreal ratio)
{
    const QPixmap shape = untinted(icon, size, ratio);
    QPixmap result(size * ratio);
    result.fill(Qt::transparent);

    QPainter painter(&result);
    painter.drawPixmap((result.width() - shape.width()) / 2, (result.height() - shape.height()) / 2, shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(result.rect(), color);
    painter.end();

    result.setDevicePixelRatio(ratio);
    return result;
}
} // namespace

QPixmap VXIconHelper::pixmap(const QIcon &icon, const QSize &size, const QColor &color)
{
    if (size.isEmpty())
        return {};

    const qreal ratio = qGuiApp->devicePixelRatio();
    const QString key = cacheKey(icon, size, color, ratio);
    QPixmap result;
    if (!QPixmapCache::find(key, &result)) {
        result = tinted(icon, size, color, ratio);
        QPixmapCache::insert(key, result);
    }
    return result;
}
