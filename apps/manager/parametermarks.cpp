#include "parametermarks.h"

#include "changestampwords.h"
#include "disabledhints.h"

#include <host/settingproblem.h>
#include <host/settingwords.h>

#include <QEvent>

#include <algorithm>

using Mark = DBParamWidget::Mark;

namespace {

/// Fit for a tool tip, whatever the catalogue would make of it.
QString asWritten(const QString &text)
{
    const SettingAddress unknown;
    return SettingWords::value(unknown, text);
}

/// The editors that show what is stored at @p address: all members of an object that cannot be read.
QVector<SettingAddress> shownAt(const SettingAddress &address)
{
    if (!address.isKnown() || !address.isJsonObject())
        return {address};
    QVector<SettingAddress> members;
    for (const SettingAddress &member : SettingAddress::all()) {
        if (member.key == address.key && !member.member.isEmpty())
            members.append(member);
    }
    return members;
}
} // namespace

ParameterMarks::ParameterMarks(SettingsSession &session, QWidget *window)
    : QObject(window)
    , m_session(session)
{
    window->installEventFilter(this);
    connect(&m_session, &SettingsSession::pageOpened, this, &ParameterMarks::addPage);
    connect(&m_session, &SettingsSession::storedChanged, this, [this] { m_areFindingsKnown = false; });
    connect(&m_session, &SettingsSession::edited, this, &ParameterMarks::refresh);
}

bool ParameterMarks::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        m_areFindingsKnown = false;
        refresh();
    }
    return QObject::eventFilter(watched, event);
}

void ParameterMarks::addPage()
{
    const auto isGone = [](const Parameter &parameter) { return !parameter.editor; };
    m_parameters.erase(std::remove_if(m_parameters.begin(), m_parameters.end(), isGone), m_parameters.end());
    QSet<const DBParamWidget *> known;
    for (const Parameter &parameter : m_parameters)
        known.insert(parameter.editor);

    for (const SettingAddress &address : SettingAddress::all()) {
        DBParamWidget *editor = m_session.editor(address);
        if (editor && !known.contains(editor))
            m_parameters.push_back({address, editor, {}});
    }
    refresh();
}

void ParameterMarks::refresh()
{
    if (!m_areFindingsKnown)
        findFindings();
    const State now = state();
    for (Parameter &parameter : m_parameters) {
        if (!parameter.editor)
            continue;
        parameter.editor->setProblem(now.problems.value(parameter.address.text()));
        const Remark remark = this->remark(parameter.address, now);
        if (parameter.remark == remark)
            continue;
        parameter.remark = remark;
        parameter.editor->setMark(remark.mark, remark.words);
    }
}

ParameterMarks::State ParameterMarks::state() const
{
    State state;
    for (const SettingAddress &address : m_session.changedAddresses())
        state.changed.insert(address.text());
    for (const SettingsSession::Conflict &conflict : m_session.conflicts())
        state.conflicts.insert(conflict.address.text(), conflict);
    for (const SettingRules::Violation &violation : m_session.violations()) {
        for (const SettingAddress &address : {violation.lower, violation.upper}) {
            QString &problem = state.problems[address.text()];
            problem += problem.isEmpty() ? violation.message : QLatin1Char('\n') + violation.message;
        }
    }
    return state;
}

void ParameterMarks::findFindings()
{
    m_areFindingsKnown = true;
    m_findings.clear();
    for (const SettingFinding &finding : m_session.findings()) {
        // Rules are judged by what is shown, not only by what is stored.
        if (finding.problem == SettingProblem::Kind::BrokenRule)
            continue;
        for (const SettingAddress &address : shownAt(finding.address))
            m_findings.insert(address.text(), finding);
    }
}

ParameterMarks::Remark ParameterMarks::remark(const SettingAddress &address, const State &state) const
{
    const QString key = address.text();
    if (const auto conflict = state.conflicts.find(key); conflict != state.conflicts.end()) {
        return {Mark::Conflict, tr("Изменено и здесь, и в другом месте. Там сохранено: %1 (%2).")
                                    .arg(storedWords(address), ChangeStampWords::of(conflict->stamp))};
    }
    if (state.changed.contains(key))
        return {Mark::Changed, tr("Изменено. Сохранено: %1.").arg(storedWords(address))};
    if (const auto finding = m_findings.find(key); finding != m_findings.end()) {
        const Mark mark = SettingProblem::isNotice(finding->problem) ? Mark::Note : Mark::Problem;
        return {mark, findingWords(*finding)};
    }
    const QString hint = DisabledHints::words(m_session, address);
    return hint.isEmpty() ? Remark() : Remark{Mark::Note, hint};
}

QString ParameterMarks::storedWords(const SettingAddress &address) const
{
    const QString stored = m_session.storedText(address);
    const bool isTold = m_findings.contains(address.text()) && !SettingWords::isSecret(address.parameter());
    return isTold && !stored.isNull() ? asWritten(stored) : SettingWords::value(address, stored);
}

QString ParameterMarks::findingWords(const SettingFinding &finding)
{
    // Of an object that cannot be read too much would be told.
    if (finding.address.isKnown() && finding.address.isJsonObject())
        return tr("%1 Исправить запись можно в контекстном меню.").arg(finding.words);
    if (finding.stored.isNull()) // of a secret
        return finding.words;
    if (finding.shown.isNull())
        return tr("%1 Сохранено: %2.").arg(finding.words, asWritten(finding.stored));
    return tr("%1 Сохранено: %2, показано: %3.")
        .arg(finding.words, asWritten(finding.stored), SettingWords::value(finding.address, finding.shown));
}
