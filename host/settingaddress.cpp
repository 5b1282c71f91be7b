#include "settingaddress.h"

#include <host/jsonmembers.h>
#include <host/pageaccess.h>
#include <host/pageaccesswords.h>
#include <host/settingspages.h>

#include <vxsettings/dbsettingshelper.h>

#include <QPair>

namespace {

bool isJsonSetting(const QString &key)
{
    return DBSettingsHelper::paramType(key) == DBSettingsType::JsonGroup;
}

/// All addresses, and the group of each.
struct Index
{
    Index()
    {
        for (const SettingsPageName &page : settingsPages)
            addPage(page.group);
    }

    void addPage(DBGroups page)
    {
        for (const QString &key : DBSettingsHelper::groupParams(page)) {
            add({key}, page);
            if (isJsonSetting(key))
                addMembers(key, DBSettingsHelper::jsonGroup(key));
        }
    }

    void addMembers(const QString &key, DBGroups group)
    {
        for (const QString &member : DBSettingsHelper::groupParams(group))
            add({key, member}, group);
    }

    void add(const SettingAddress &address, DBGroups group)
    {
        addresses.append(address);
        groups.insert({address.key, address.member}, group);
    }

    QVector<SettingAddress> addresses;
    QHash<QPair<QString, QString>, DBGroups> groups; // by key and member
};

const Index &index()
{
    static const Index index;
    return index;
}

/// The caption of the parameter that switches @p address on and off; null if there is none beside it.
QString switchCaption(const SettingAddress &address)
{
    QString caption;
    for (const QString &parameter : DBSettingsHelper::groupParams(address.group())) {
        if (DBSettingsHelper::paramChilds(parameter).contains(address.parameter()))
            caption = DBSettingsHelper::paramName(parameter);
    }
    return caption;
}

/// What tells @p address apart from the others of the same @p caption; null if there are none.
QString context(const SettingAddress &address, const QString &caption)
{
    QString context;
    for (const SettingAddress &other : index().addresses) {
        const bool isAlike =
            !other.isJsonObject() && !(other == address) && DBSettingsHelper::paramName(other.parameter()) == caption;
        if (isAlike && other.group() == address.group())
            return switchCaption(address);
        if (isAlike)
            context = DBSettingsHelper::groupName(address.group());
    }
    return context;
}

QString behind(const QString &context, const QString &caption)
{
    return context.isEmpty() ? caption : QStringLiteral("%1: %2").arg(context, caption);
}
} // namespace

SettingAddress SettingAddress::fromText(const QString &text)
{
    const int dot = text.indexOf(QLatin1Char('.'));
    // A dot with nothing behind it must not pass for the key alone.
    if (dot < 0 || dot + 1 == text.size())
        return {text};
    return {text.left(dot), text.mid(dot + 1)};
}

const QVector<SettingAddress> &SettingAddress::all()
{
    return index().addresses;
}

QString SettingAddress::text() const
{
    return member.isEmpty() ? key : key + QLatin1Char('.') + member;
}

bool SettingAddress::isKnown() const
{
    return index().groups.contains({key, member});
}

bool SettingAddress::isJsonObject() const
{
    return member.isEmpty() && isJsonSetting(key);
}

DBGroups SettingAddress::group() const
{
    return index().groups.value({key, member});
}

const QString &SettingAddress::parameter() const
{
    return member.isEmpty() ? key : member;
}

QString SettingAddress::caption() const
{
    if (PageAccess::isAbout(*this))
        return PageAccessWords::caption(*this);
    if (isJsonObject())
        return DBSettingsHelper::groupName(DBSettingsHelper::jsonGroup(key));
    if (!isKnown())
        return behind(SettingAddress{key}.caption(), member);
    const QString caption = DBSettingsHelper::paramName(parameter());
    return behind(context(*this, caption), caption);
}

std::optional<QString> SettingAddress::valueIn(const QHash<QString, QString> &settings) const
{
    const auto stored = settings.find(key);
    if (stored == settings.end())
        return {};
    if (member.isEmpty())
        return *stored;
    const auto members = JsonMembers::fromText(*stored);
    return members ? members->scalar(member) : std::nullopt;
}

std::optional<QString> SettingAddress::textWith(const QString &value, const QString &stored) const
{
    if (member.isEmpty())
        return value;
    auto members = stored.trimmed().isEmpty() ? JsonMembers() : JsonMembers::fromText(stored);
    if (!members || !members->areUnique())
        return {};
    if (PageAccess::isAbout(*this))
        return PageAccess(members->text()).textWith({{member, value == QLatin1String("true")}});
    members->setText(member, value);
    return members->text();
}

bool operator==(const SettingAddress &left, const SettingAddress &right)
{
    return left.key == right.key && left.member == right.member;
}
