#include "disabledhints.h"

#include <host/settingssession.h>
#include <host/settingwords.h>

#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingshelper.h>

std::optional<SettingAddress> DisabledHints::switchOf(const SettingAddress &address)
{
    // Beside it only: another object may have a member of the same name that nothing switches.
    for (const SettingAddress &other : SettingAddress::all()) {
        if (other.group() == address.group() &&
            DBSettingsHelper::paramChilds(other.parameter()).contains(address.parameter()))
            return other;
    }
    return {};
}

QString DisabledHints::words(const SettingsSession &session, const SettingAddress &address)
{
    const auto parent = session.editor(address)->isEnabled() ? std::nullopt : switchOf(address);
    if (!parent)
        return {};
    return tr("Недоступно. Включается параметром «%1», сейчас там: %2.")
        .arg(parent->caption(), SettingWords::value(*parent, session.shownText(*parent)));
}
