#include "iconlibrary.h"

#include <vxstyles/vxiconhelper.h>

#include <QIcon>

QPixmap themeIconPixmap(const QString &name)
{
    return VXIconHelper::pixmap(QIcon::fromTheme(name), {24, 24}, Qt::black);
}
