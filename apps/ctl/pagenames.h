#pragma once

#include <host/settingspages.h>

#include <QString>
#include <QStringList>

#include <optional>

/// Pages by the names that command lines use.
class PageNames
{
public:
    /// By its name or its title in the current language, upper and lower case being alike.
    static std::optional<DBGroups> find(const QString &nameOrTitle);
    /// Null for a group that is no page.
    static QString name(DBGroups page);
    /// In the order of the pages.
    static QStringList all();
};
