#include "draftkeeper.h"

#include "mainwindow.h"
#include "savequestions.h"

#include <host/settingsdraft.h>
#include <host/settingssession.h>

#include <algorithm>

DraftKeeper::DraftKeeper(SettingsDraft &draft, SettingsSession &session, MainWindow &window)
    : m_draft(draft)
    , m_session(session)
    , m_window(window)
{
    connect(&m_session, &SettingsSession::edited, this, &DraftKeeper::keep);
    connect(&m_draft, &SettingsDraft::failed, this,
            [this](const QString &problem) { SaveQuestions::showDraftProblem(&m_window, problem); });
}

void DraftKeeper::offer()
{
    if (!m_draft.found().problem.isEmpty())
        SaveQuestions::showDraftProblem(&m_window, m_draft.found().problem);
    const QVector<DraftEdit> edits = found();
    if (!edits.isEmpty() && SaveQuestions::restoreDraft(&m_window, words(edits), m_draft.found().at)) {
        for (const DraftEdit &edit : edits)
            m_window.edit(edit.address, edit.text);
        for (const DraftEdit &edit : edits) {
            if (edit.isRepairOf(m_session.stored()))
                m_session.repair(edit.address.key);
        }
    }
    m_draft.forgetFound();
}

void DraftKeeper::drop()
{
    disconnect(&m_session, nullptr, this, nullptr);
    m_draft.keep({});
}

QVector<DraftEdit> DraftKeeper::edits() const
{
    QVector<DraftEdit> edits;
    for (const SettingAddress &address : m_session.changedAddresses()) {
        DraftEdit edit = DraftEdit::of(address, m_session.shownText(address), m_session.stored());
        const auto known = std::find_if(m_kept.begin(), m_kept.end(),
                                        [&address](const DraftEdit &kept) { return kept.address == address; });
        // An edit started from what was stored when it was made, whatever others have stored since.
        if (known != m_kept.end()) {
            edit.base = known->base;
            edit.revision = known->revision;
        }
        edit.isRepair = m_session.isRepaired(address.key);
        edits.append(edit);
    }
    return edits;
}

QVector<DraftEdit> DraftKeeper::found() const
{
    QVector<DraftEdit> found;
    for (const DraftEdit &edit : m_draft.found().edits) {
        const DraftEdit::Standing standing = edit.standing(m_session.stored());
        if (standing == DraftEdit::Standing::Current || standing == DraftEdit::Standing::Changed)
            found.append(edit);
    }
    return found;
}

QStringList DraftKeeper::words(const QVector<DraftEdit> &found) const
{
    QStringList lines;
    for (const DraftEdit &edit : found) {
        QString line = SaveQuestions::words({edit.address, m_session.storedText(edit.address), edit.text});
        const DraftEdit::Standing standing = edit.standing(m_session.stored());
        if (standing == DraftEdit::Standing::Changed)
            line += QStringLiteral(" — ") + DraftEdit::words(standing);
        lines.append(line);
    }
    return lines;
}

void DraftKeeper::keep()
{
    m_kept = edits();
    m_draft.keep(m_kept);
}
