#include "healthcheck.h"

#include <host/jsonmembers.h>
#include <host/pageaccess.h>
#include <host/settingrules.h>
#include <host/storedtext.h>

#include <algorithm>

using Kind = SettingProblem::Kind;
using vantorix::OBJECT_PARAMETERS;

HealthCheck::HealthCheck(const OBJECT_PARAMETERS &settings, const ObjectIndex &objects)
    : m_settings(settings)
    , m_objects(objects)
{}

QVector<SettingFinding> HealthCheck::findings() const
{
    return valueFindings() + ruleFindings() + PageAccess::in(m_settings).findings() + unknownKeyFindings();
}

OBJECT_PARAMETERS HealthCheck::repairs(const QVector<SettingFinding> &findings) const
{
    OBJECT_PARAMETERS texts;
    QHash<QString, JsonMembers> objects;
    for (const SettingFinding &finding : findings) {
        const auto &[key, member] = finding.address;
        if (finding.repair.isNull())
            continue;
        // A member may have an empty name.
        if (member.isEmpty() && finding.problem != Kind::DuplicateMember) {
            texts.insert(key, finding.repair);
            continue;
        }
        if (!objects.contains(key))
            objects.insert(key, JsonMembers::fromText(m_settings.value(key)).value_or(JsonMembers()));
        // Of several values of one name the one that pages show is kept as it is written.
        if (finding.problem != Kind::DuplicateMember)
            objects[key].setText(member, finding.repair);
    }
    for (auto object = objects.cbegin(); object != objects.cend(); ++object)
        texts.insert(object.key(), object->text());
    return texts;
}

QVector<SettingFinding> HealthCheck::valueFindings() const
{
    QVector<SettingFinding> findings;
    for (const SettingAddress &address : SettingAddress::all()) {
        const auto stored = m_settings.find(address.key);
        if (address.member.isEmpty() && stored != m_settings.end())
            findings += StoredText(address.key, *stored, m_objects).findings();
    }
    return findings;
}

QVector<SettingFinding> HealthCheck::ruleFindings() const
{
    QVector<SettingFinding> findings;
    for (const SettingRules::Violation &violation : SettingRules::violations(m_settings)) {
        const QString stored = violation.lower.valueIn(m_settings).value_or(QString());
        findings.append({violation.lower, Kind::BrokenRule, violation.message, stored, stored, {}});
    }
    return findings;
}

QVector<SettingFinding> HealthCheck::unknownKeyFindings() const
{
    QVector<SettingFinding> findings;
    for (auto setting = m_settings.cbegin(); setting != m_settings.cend(); ++setting) {
        const SettingAddress address{setting.key()};
        if (!address.isKnown() && !PageAccess::isAbout(address))
            findings.append({address, Kind::UnknownKey, SettingProblem::words(Kind::UnknownKey), *setting, {}, {}});
    }
    std::sort(findings.begin(), findings.end(), [](const SettingFinding &left, const SettingFinding &right) {
        return left.address.key < right.address.key;
    });
    return findings;
}
