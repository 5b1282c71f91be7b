#include "getcommand.h"

#include "session.h"
#include "texttable.h"
#include "valuewords.h"

#include <host/pageaccess.h>
#include <host/settingaddress.h>

#include <QJsonObject>

Report GetCommand::run(Session &session)
{
    if (auto failure = session.load())
        return *failure;
    const auto address = SettingAddress::fromText(session.commandLine().arguments().constFirst());
    const QString name = TextTable::visible(address.text());
    const auto value = address.valueIn(session.settings());
    if (!value && !address.isKnown() && !PageAccess::isAbout(address))
        return Report::failure(ExitDiffers, tr("Настройки «%1» нет.").arg(name));
    if (!value)
        return Report::failure(ExitDiffers, tr("Настройка «%1» не задана.").arg(name));
    if (ValueWords::isSecret(address) && !session.commandLine().isSet(Option::WithSecrets))
        return Report::failure(ExitUsage,
                               tr("«%1» — пароль или токен. Чтобы вывести его, укажите --with-secrets.").arg(name));

    Report report;
    report.text = *value + QLatin1Char('\n');
    report.json.setObject({{QStringLiteral("key"), address.text()}, {QStringLiteral("value"), *value}});
    return report;
}
