#include "checkcommand.h"

#include "session.h"
#include "texttable.h"
#include "valuewords.h"

#include <host/healthcheck.h>

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

using Findings = QVector<SettingFinding>;

namespace {

Findings findings(const Session &session)
{
    return HealthCheck(session.settings(), session.objects()).findings();
}

bool isError(const SettingFinding &finding)
{
    return !SettingProblem::isNotice(finding.problem);
}

std::optional<QString> unlessNull(const QString &text)
{
    return text.isNull() ? std::nullopt : std::optional(text);
}

/// A finding and what became of it.
QString line(const SettingFinding &finding, bool isRepaired)
{
    const SettingAddress &address = finding.address;
    const QString caption = ValueWords::caption(address);
    const QString kind = isError(finding) ? CheckCommand::tr("ошибка") : CheckCommand::tr("замечание");
    QString line = QStringLiteral("%1: %2").arg(kind, TextTable::visible(address.text()));
    if (!caption.isEmpty())
        line += QStringLiteral(" (%1)").arg(caption);
    if (!finding.stored.isNull())
        line += CheckCommand::tr(": «%1»").arg(TextTable::visible(finding.stored));
    line += QStringLiteral(". ") + finding.words;
    if (!finding.repair.isNull())
        line += QLatin1Char(' ') +
                (isRepaired ? CheckCommand::tr("Исправлено на «%1».") : CheckCommand::tr("Исправление: «%1»."))
                    .arg(TextTable::visible(finding.repair));
    return line + QLatin1Char('\n');
}

QJsonObject json(const SettingFinding &finding, bool isRepaired)
{
    QJsonObject json = ValueWords::json(finding.address, {{QStringLiteral("stored"), unlessNull(finding.stored)},
                                                          {QStringLiteral("shown"), unlessNull(finding.shown)},
                                                          {QStringLiteral("repair"), unlessNull(finding.repair)}});
    json.insert(QStringLiteral("problem"), SettingProblem::name(finding.problem));
    json.insert(QStringLiteral("message"), finding.words);
    json.insert(QStringLiteral("isError"), isError(finding));
    json.insert(QStringLiteral("isRepaired"), isRepaired);
    return json;
}

/// Stores the repairs of @p found. What went wrong, or nothing.
std::optional<Report> repair(Session &session, const Findings &found)
{
    const auto repairs = HealthCheck(session.settings(), session.objects()).repairs(found);
    return repairs.isEmpty() ? std::nullopt : session.save(repairs);
}

Findings repairable(Findings findings)
{
    const auto end = std::remove_if(findings.begin(), findings.end(),
                                    [](const SettingFinding &finding) { return finding.repair.isNull(); });
    findings.erase(end, findings.end());
    return findings;
}

/// @p repaired is history, @p left is what is wrong now.
Report report(const Findings &repaired, const Findings &left)
{
    Report report;
    QJsonArray rows;
    const auto add = [&report, &rows](const Findings &findings, bool areRepaired) {
        for (const SettingFinding &finding : findings) {
            report.text += line(finding, areRepaired);
            rows.append(json(finding, areRepaired));
        }
    };
    add(repaired, true);
    add(left, false);
    if (left.isEmpty())
        report.text += CheckCommand::tr("Ошибок нет.\n");
    report.json.setArray(rows);
    report.status = std::any_of(left.begin(), left.end(), isError) ? ExitDiffers : ExitDone;
    return report;
}
} // namespace

Report CheckCommand::run(Session &session)
{
    if (auto failure = session.load())
        return *failure;
    const Findings found = findings(session);
    if (!session.commandLine().isSet(Option::Repair))
        return report({}, found);
    if (auto failure = repair(session, found))
        return *failure;
    // A repair can bring to light what was hidden before, such as a broken rule.
    return report(repairable(found), findings(session));
}
