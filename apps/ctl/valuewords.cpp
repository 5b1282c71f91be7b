#include "valuewords.h"

#include "texttable.h"

#include <host/pageaccess.h>
#include <host/settingwords.h>

bool ValueWords::isSecret(const SettingAddress &address)
{
    const SettingAddress whole{address.key};
    return (whole.isKnown() && SettingWords::isSecret(whole.key)) ||
           (address.isKnown() && SettingWords::isSecret(address.parameter()));
}

QString ValueWords::caption(const SettingAddress &address)
{
    return address.isKnown() || PageAccess::isAbout(address) ? address.caption() : QString();
}

QString ValueWords::words(const SettingAddress &address, const std::optional<QString> &value)
{
    if (!value)
        //: Where there is no value.
        return tr("—");
    if (isSecret(address))
        return SettingWords::value(address.key, *value);
    if (PageAccess::isAbout(address))
        return TextTable::visible(SettingWords::value(address, *value));
    if (address.isKnown())
        return TextTable::visible(SettingWords::value(address.parameter(), *value));
    return TextTable::visible(tr("«%1»").arg(*value));
}

QJsonObject ValueWords::json(const SettingAddress &address, std::initializer_list<Named> values)
{
    QJsonObject json{{QStringLiteral("key"), address.text()}};
    for (const Named &named : values) {
        const bool isHidden = named.value && isSecret(address);
        json.insert(named.name, named.value && !isHidden ? QJsonValue(*named.value) : QJsonValue());
        if (isHidden)
            json.insert(QStringLiteral("hidden"), true);
    }
    return json;
}
