#include "settingchange.h"

#include <host/jsonmembers.h>
#include <host/pageaccess.h>
#include <host/settingspages.h>

#include <vxsettings/dbsettingshelper.h>

#include <algorithm>

namespace {

/// As the editor would take it; what is no scalar as it is written. Null for nothing.
QString valueOf(const JsonMembers &members, const QString &name)
{
    if (const auto scalar = members.scalar(name))
        return *scalar;
    return members.contains(name) ? members.written(name).constLast() : QString();
}

bool areSame(const QString &left, const QString &right)
{
    return left == right && left.isNull() == right.isNull();
}

/// Those of the catalogue, then the others.
QStringList memberNames(const QString &key, const JsonMembers &before, const JsonMembers &after)
{
    QStringList names =
        DBSettingsHelper::groupParams(DBSettingsHelper::jsonGroup(key)) + before.names() + after.names();
    names.removeDuplicates();
    return names;
}

QVector<SettingChange> memberChanges(const QString &key, const JsonMembers &before, const JsonMembers &after)
{
    QVector<SettingChange> changes;
    for (const QString &name : memberNames(key, before, after)) {
        const SettingChange change{{key, name}, valueOf(before, name), valueOf(after, name)};
        if (!areSame(change.before, change.after))
            changes.append(change);
    }
    return changes;
}

QJsonObject flags(const QString &stored)
{
    return (stored.isNull() ? PageAccess() : PageAccess(stored)).flags();
}

QString flagText(const QJsonValue &flag)
{
    return flag.toBool() ? QStringLiteral("true") : QStringLiteral("false");
}

/// What it means for each page, be it named in the texts or not.
QVector<SettingChange> accessChanges(const QString &before, const QString &after)
{
    QVector<SettingChange> changes;
    for (const SettingsPageName &page : settingsPages) {
        const QString name = QLatin1String(page.name);
        const SettingChange change{
            {PageAccess::KEY, name}, flagText(flags(before)[name]), flagText(flags(after)[name])};
        if (change.before != change.after)
            changes.append(change);
    }
    if (changes.isEmpty() && !areSame(before, after))
        changes.append({{PageAccess::KEY}, before, after});
    return changes;
}
} // namespace

QVector<SettingChange> SettingChange::between(const QString &key, const QString &before, const QString &after)
{
    const SettingAddress address{key};
    if (PageAccess::isAbout(address))
        return accessChanges(before, after);
    if (address.isKnown() && address.isJsonObject()) {
        if (const auto members = JsonMembers::fromText(after))
            return memberChanges(key, JsonMembers::fromText(before).value_or(JsonMembers()), *members);
    }
    return areSame(before, after) ? QVector<SettingChange>() : QVector<SettingChange>{{address, before, after}};
}

void SettingChange::sort(QVector<SettingChange> &changes)
{
    const QVector<SettingAddress> order = SettingAddress::all();
    const auto position = [&order](const SettingChange &change) {
        const int index = order.indexOf(change.address);
        return index < 0 ? order.size() : index;
    };
    std::stable_sort(changes.begin(), changes.end(), [&](const SettingChange &left, const SettingChange &right) {
        return position(left) < position(right);
    });
}

bool operator==(const SettingChange &left, const SettingChange &right)
{
    return left.address == right.address && areSame(left.before, right.before) && areSame(left.after, right.after);
}
