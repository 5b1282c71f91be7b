#include "pagenames.h"

#include <vxsettings/dbsettingshelper.h>

std::optional<DBGroups> PageNames::find(const QString &nameOrTitle)
{
    for (const SettingsPageName &page : settingsPages) {
        for (const QString &text : {QString::fromLatin1(page.name), DBSettingsHelper::groupName(page.group)}) {
            if (text.compare(nameOrTitle, Qt::CaseInsensitive) == 0)
                return page.group;
        }
    }
    return {};
}

QString PageNames::name(DBGroups group)
{
    for (const SettingsPageName &page : settingsPages) {
        if (page.group == group)
            return QString::fromLatin1(page.name);
    }
    return {};
}

QStringList PageNames::all()
{
    QStringList names;
    for (const SettingsPageName &page : settingsPages)
        names.append(QString::fromLatin1(page.name));
    return names;
}
