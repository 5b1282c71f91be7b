#include "stampwords.h"

#include <host/changestamp.h>

#include <QLocale>
#include <QStringList>

QString StampWords::words(const ChangeStamp &stamp)
{
    QStringList parts;
    if (!stamp.by.isEmpty())
        parts << tr("пользователь %1").arg(stamp.by);
    if (!stamp.workstation.isEmpty())
        parts << tr("рабочее место %1").arg(stamp.workstation);
    if (!stamp.program.isEmpty())
        parts << tr("программа %1").arg(stamp.program);
    if (stamp.at.isValid())
        parts << QLocale().toString(stamp.at.toLocalTime(), QLocale::ShortFormat);
    return parts.isEmpty() ? tr("Кто изменил, не известно") : parts.join(QStringLiteral(", "));
}
