#include "settingsdifference.h"

#include <host/pageaccess.h>
#include <host/pageaccesswords.h>
#include <host/settingsdocument.h>
#include <host/storedtext.h>

#include <vxsettings/dbsettingshelper.h>

#include <algorithm>

using vantorix::OBJECT_PARAMETERS;

namespace {

bool holds(const OBJECT_PARAMETERS &settings, const QString &key, const QString &text)
{
    const auto found = settings.find(key);
    return found != settings.end() && *found == text;
}
} // namespace

QVector<SettingsDifference::Row> SettingsDifference::rows(const OBJECT_PARAMETERS &wanted,
                                                          const OBJECT_PARAMETERS &stored, const ObjectIndex &objects)
{
    QVector<Row> rows;
    for (auto setting = wanted.begin(); setting != wanted.end(); ++setting) {
        const bool isUnchanged = holds(stored, setting.key(), *setting);
        rows.append(isUnchanged ? Row{setting.key(), State::Unchanged, {}} : row(setting.key(), *setting, objects));
    }
    const SettingsDocument all = SettingsDocument::of(stored, SettingsDocument::Secrets::LeaveOut);
    for (auto setting = all.settings().begin(); setting != all.settings().end(); ++setting) {
        if (!wanted.contains(setting.key()))
            rows.append({setting.key(), State::Missing, {}});
    }
    std::sort(rows.begin(), rows.end(), [](const Row &left, const Row &right) { return left.key < right.key; });
    return rows;
}

SettingsDifference::Row SettingsDifference::row(const QString &key, const QString &wanted, const ObjectIndex &objects)
{
    if (key == PageAccess::KEY)
        return accessRow(wanted);
    if (!SettingAddress{key}.isKnown())
        return {key, State::Unknown, {}};
    if (DBSettingsHelper::paramType(key) == DBSettingsType::Readonly)
        return {key, State::Invalid, tr("Настройка доступна только для чтения.")};
    for (const SettingFinding &finding : StoredText(key, wanted, objects).findings()) {
        // A backup may come back before the objects to which it refers.
        const State state = finding.problem == SettingProblem::Kind::ObjectGone ? State::Changed : State::Invalid;
        if (!SettingProblem::isNotice(finding.problem))
            return {key, state, QStringLiteral("%1: %2").arg(finding.address.caption(), finding.words)};
    }
    return {key, State::Changed, {}};
}

SettingsDifference::Row SettingsDifference::accessRow(const QString &wanted)
{
    for (const SettingFinding &finding : PageAccess(wanted).findings()) {
        if (!SettingProblem::isNotice(finding.problem))
            return {PageAccess::KEY, State::Invalid,
                    QStringLiteral("%1: %2").arg(PageAccessWords::caption(finding.address), finding.words)};
    }
    return {PageAccess::KEY, State::Changed, {}};
}
