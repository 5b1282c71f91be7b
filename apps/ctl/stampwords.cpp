#include "stampwords.h"

#include "texttable.h"

namespace {

QString orDash(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("—") : TextTable::visible(text);
}

QJsonValue orNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}
} // namespace

QString StampWords::time(const ChangeStamp &stamp)
{
    return orDash(stamp.at.toLocalTime().toString(QStringLiteral("dd.MM.yyyy HH:mm:ss")));
}

QString StampWords::who(const ChangeStamp &stamp)
{
    if (stamp.by.isEmpty() && stamp.workstation.isEmpty())
        return orDash({});
    return orDash(stamp.by) + QLatin1Char('@') + orDash(stamp.workstation);
}

QString StampWords::sentence(const ChangeStamp &stamp)
{
    return tr("изменено: %1, %2").arg(who(stamp), time(stamp));
}

void StampWords::insertInto(QJsonObject &json, const ChangeStamp &stamp)
{
    json.insert(QStringLiteral("by"), orNull(stamp.by));
    json.insert(QStringLiteral("workstation"), orNull(stamp.workstation));
    json.insert(QStringLiteral("at"), orNull(stamp.at.toUTC().toString(Qt::ISODateWithMs)));
}
