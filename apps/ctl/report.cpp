#include "report.h"

#include <QJsonObject>

Report Report::failure(ExitStatus status, const QString &message)
{
    const QJsonObject json{{QStringLiteral("error"), message}, {QStringLiteral("status"), int(status)}};
    return {status, {}, message, QJsonDocument(json)};
}
