#include "changestampwords.h"

#include <host/changestamp.h>

#include <QLocale>
#include <QStringList>

QString ChangeStampWords::of(const ChangeStamp &stamp)
{
    QStringList parts;
    if (stamp.at.isValid())
        parts << QLocale().toString(stamp.at.toLocalTime(), QLocale::ShortFormat);
    if (!stamp.by.isEmpty())
        parts << tr("пользователь %1").arg(stamp.by);
    if (!stamp.workstation.isEmpty())
        parts << tr("рабочее место %1").arg(stamp.workstation);
    if (!stamp.program.isEmpty())
        parts << tr("программа %1").arg(stamp.program);
    return parts.isEmpty() ? tr("Кто изменил, не известно") : parts.join(QStringLiteral(", "));
}
