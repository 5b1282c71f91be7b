#include "storedtext.h"

#include <host/jsonmembers.h>
#include <host/parameterdomain.h>
#include <host/settingwords.h>

#include <vxsettings/dbsettingshelper.h>

using Kind = SettingProblem::Kind;

namespace {

QString valueOf(const JsonMembers &members, const QString &name)
{
    return members.scalar(name).value_or(members.written(name).constLast());
}

/// What is to be said of a value that its editor shows as @p shown.
SettingFinding finding(const SettingAddress &address, Kind problem, const ParameterDomain &domain,
                       const QString &stored, const QString &shown)
{
    const QString words = QStringLiteral("%1 %2").arg(SettingProblem::words(problem), domain.allowed());
    if (SettingWords::isSecret(address.parameter()))
        return {address, problem, words, {}, {}, {}};
    // An editor that cuts a text off is no reason to lose the rest.
    const bool isKept = SettingProblem::isNotice(problem) || problem == Kind::TooLong || shown == stored;
    return {address, problem, words, stored, shown, isKept ? QString() : shown};
}
} // namespace

StoredText::StoredText(const QString &key, const QString &text, const ObjectIndex &objects)
    : m_address{key}
    , m_text(text.isNull() ? QStringLiteral("") : text) // null stands for a secret
    , m_objects(objects)
{}

QVector<SettingFinding> StoredText::findings() const
{
    if (!m_address.isJsonObject())
        return valueFindings();
    if (const auto members = JsonMembers::fromText(m_text))
        return memberFindings(*members);
    const QString instead = shownInstead();
    return {{m_address, Kind::NotAJsonObject, SettingProblem::words(Kind::NotAJsonObject), m_text, instead, instead}};
}

QString StoredText::shownInstead() const
{
    JsonMembers members;
    for (const QString &name : knownMembers())
        members.setText(name, ParameterDomain(name, m_objects).shown({}));
    return members.text();
}

QVector<SettingFinding> StoredText::valueFindings() const
{
    const ParameterDomain domain(m_address.key, m_objects);
    const Kind problem = domain.problem(m_text);
    if (problem == Kind::None)
        return {};
    return {finding(m_address, problem, domain, m_text, domain.shown(m_text))};
}

QVector<SettingFinding> StoredText::memberFindings(const JsonMembers &members) const
{
    const QStringList known = knownMembers();
    QStringList names;
    for (const QString &name : known) {
        if (members.contains(name))
            names.append(name);
    }
    for (const QString &name : members.names()) {
        if (!known.contains(name))
            names.append(name);
    }

    QVector<SettingFinding> findings;
    for (const QString &name : qAsConst(names)) {
        for (const SettingFinding &finding : {duplicateFinding(members, name), memberFinding(members, name)}) {
            if (finding.problem != Kind::None)
                findings.append(finding);
        }
    }
    return findings;
}

SettingFinding StoredText::memberFinding(const JsonMembers &members, const QString &name) const
{
    const SettingAddress address{m_address.key, name};
    if (!isShown(name))
        return unknownFinding(members, name);
    const ParameterDomain domain(name, m_objects);
    const auto value = members.scalar(name);
    const Kind problem = value ? domain.problem(*value) : Kind::NotAScalar;
    if (problem == Kind::None)
        return {address, problem, {}, {}, {}, {}};
    return finding(address, problem, domain, valueOf(members, name), domain.shown(members.value(name).toVariant()));
}

SettingFinding StoredText::duplicateFinding(const JsonMembers &members, const QString &name) const
{
    const SettingAddress address{m_address.key, name};
    const QStringList written = members.written(name);
    if (written.size() < 2)
        return {address, Kind::None, {}, {}, {}, {}};
    const QString shown =
        isShown(name) ? ParameterDomain(name, m_objects).shown(members.value(name).toVariant()) : QString();
    return {address,
            Kind::DuplicateMember,
            SettingProblem::words(Kind::DuplicateMember),
            written.join(QStringLiteral(", ")),
            shown,
            valueOf(members, name)};
}

SettingFinding StoredText::unknownFinding(const JsonMembers &members, const QString &name) const
{
    return {{m_address.key, name},
            Kind::UnknownMember,
            SettingProblem::words(Kind::UnknownMember),
            valueOf(members, name),
            {},
            {}};
}

bool StoredText::isShown(const QString &name) const
{
    // The address of a member without a name would be that of the whole object.
    return knownMembers().contains(name);
}

QStringList StoredText::knownMembers() const
{
    return DBSettingsHelper::groupParams(DBSettingsHelper::jsonGroup(m_address.key));
}
