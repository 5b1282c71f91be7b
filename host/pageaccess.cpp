#include "pageaccess.h"

#include <host/settingspages.h>

#include <vxsettings/dependentwidgetsbox.h>

#include <algorithm>

using dependent_widget::CHECKED_KEY;
using Kind = SettingProblem::Kind;
using vantorix::OBJECT_PARAMETERS;

namespace {

QString nameOf(DBGroups page)
{
    for (const SettingsPageName &known : settingsPages) {
        if (known.group == page)
            return QString::fromLatin1(known.name);
    }
    return {};
}

bool hasOpenPage(const QJsonObject &flags)
{
    return std::any_of(std::begin(settingsPages), std::end(settingsPages),
                       [&flags](const SettingsPageName &page) { return flags[QLatin1String(page.name)].toBool(); });
}
} // namespace

PageAccess::PageAccess(const QString &stored)
    : m_stored(stored)
{
    const auto members = JsonMembers::fromText(stored);
    m_isReadable = members && members->areUnique();
    if (members)
        m_members = *members;
}

PageAccess PageAccess::in(const OBJECT_PARAMETERS &settings)
{
    const auto stored = settings.find(KEY);
    return stored == settings.end() ? PageAccess() : PageAccess(*stored);
}

bool PageAccess::isAbout(const SettingAddress &address)
{
    return address.key == KEY;
}

std::optional<DBGroups> PageAccess::pageOf(const SettingAddress &address)
{
    for (const SettingsPageName &page : settingsPages) {
        if (isAbout(address) && address.member == QLatin1String(page.name))
            return page.group;
    }
    return {};
}

bool PageAccess::isReadable() const
{
    return m_isReadable;
}

bool PageAccess::mayEdit(DBGroups page) const
{
    const QString name = nameOf(page);
    return m_isReadable && (!m_members.contains(name) || m_members.value(name).toBool());
}

QStringList PageAccess::locked(const QStringList &keys) const
{
    QStringList locked;
    for (const QString &key : keys) {
        const SettingAddress address{key};
        if (key == KEY || (address.isKnown() && !mayEdit(address.group())))
            locked.append(key);
    }
    locked.sort();
    return locked;
}

QJsonObject PageAccess::flags() const
{
    QJsonObject flags;
    for (const SettingsPageName &page : settingsPages)
        flags.insert(QLatin1String(page.name), mayEdit(page.group));
    flags.insert(CHECKED_KEY, hasOpenPage(flags));
    return flags;
}

QString PageAccess::textWith(const QJsonObject &flags) const
{
    JsonMembers members = m_isReadable ? m_members : JsonMembers();
    for (auto flag = flags.begin(); flag != flags.end(); ++flag)
        members.setFlag(flag.key(), flag->toBool());
    members.setFlag(CHECKED_KEY, hasOpenPage(PageAccess(members.text()).flags()));
    return members.text();
}

QVector<SettingFinding> PageAccess::findings() const
{
    if (!m_isReadable && m_members.names().isEmpty())
        return {{{KEY},
                 Kind::NotAJsonObject,
                 tr("Текст не читается как объект JSON, поэтому операторам закрыты все страницы."),
                 m_stored,
                 {},
                 {}}};
    QVector<SettingFinding> findings;
    for (const QString &name : m_members.names()) {
        const SettingFinding finding = flagFinding(name);
        if (finding.problem != Kind::None)
            findings.append(finding);
    }
    return findings;
}

SettingFinding PageAccess::flagFinding(const QString &name) const
{
    const SettingAddress address{KEY, name};
    const QStringList written = m_members.written(name);
    const QString stored = written.join(QStringLiteral(", "));
    const auto finding = [&](Kind kind, const QString &words) {
        return SettingFinding{address, kind, words, stored, {}, {}};
    };
    if (written.size() > 1)
        return finding(Kind::DuplicateMember,
                       tr("Поле записано несколько раз, поэтому операторам закрыты все страницы."));
    if (name != CHECKED_KEY && !pageOf(address))
        return finding(Kind::UnknownMember, tr("Такой страницы нет; при сохранении поле остаётся как есть."));
    if (!m_members.value(name).isBool())
        return finding(Kind::NotAFlag, tr("Это не true и не false: страница операторам закрыта."));
    return {address, Kind::None, {}, {}, {}, {}};
}
