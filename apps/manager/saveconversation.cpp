#include "saveconversation.h"

#include "conflictdialog.h"
#include "reviewdialog.h"
#include "savequestions.h"

#include <host/pageaccesswords.h>
#include <host/settingssession.h>

#include <QTimer>

SaveConversation::SaveConversation(InstallationDatabase &database, SettingsSession &session, QWidget &window)
    : QObject(&window)
    , m_database(database)
    , m_session(session)
    , m_window(window)
{
    // Not from within the signal, which a dialog would hold up.
    connect(&m_session, &SettingsSession::saveFinished, this,
            [this](const SaveResult &result) { QTimer::singleShot(0, this, [this, result] { finishSave(result); }); });
    connect(&m_database, &InstallationDatabase::waiting, this, &SaveConversation::showProgress);
    connect(&m_database, &InstallationDatabase::connectionLost, this, &SaveConversation::noteLostConnection);
    connect(&m_database, &InstallationDatabase::connectionRestored, this, &SaveConversation::noteRestoredConnection);
}

void SaveConversation::review()
{
    if (!m_session.hasChanges() || m_session.isSaving() || m_waiting || refuseBrokenRule())
        return;
    ReviewDialog dialog(changes(), &m_window);
    if (dialog.exec() == QDialog::Rejected)
        return;
    m_reason = dialog.reason();
    save();
}

bool SaveConversation::mayLeave()
{
    if (m_session.isSaving()) {
        m_isLeaving = true;
        return false;
    }
    if (!m_session.hasChanges())
        return true;
    const auto answer = SaveQuestions::leave(&m_window, changes());
    m_isLeaving = answer == SaveQuestions::Leaving::Save;
    if (m_isLeaving) {
        m_reason.clear();
        save();
    }
    return answer == SaveQuestions::Leaving::Discard;
}

void SaveConversation::cancel()
{
    if (!m_waiting) {
        m_database.cancel();
        return;
    }
    m_waiting.reset();
    Q_EMIT progressed({});
}

/// Words beside the parameters say what is wrong; all that is missing is the way there.
bool SaveConversation::refuseBrokenRule()
{
    const QVector<SettingRules::Violation> broken = m_session.newViolations();
    if (broken.isEmpty())
        return false;
    stay();
    const SettingRules::Violation &first = broken.first();
    Q_EMIT brokenRuleFound(m_session.isChanged(first.lower) ? first.lower : first.upper);
    return true;
}

void SaveConversation::save()
{
    m_waiting.reset();
    if (refuseBrokenRule())
        return;
    if (!m_isConnectionLost)
        Q_EMIT noticed({});
    Q_EMIT progressed(tr("Сохранение…"));
    m_session.save(m_reason);
}

void SaveConversation::showProgress(InstallationDatabase::Wait wait)
{
    if (m_session.isLoaded() && !m_session.isSaving())
        return;
    switch (wait) {
    case InstallationDatabase::Wait::Busy:
        Q_EMIT progressed(tr("База данных занята другой программой. Ожидание…"));
        break;
    case InstallationDatabase::Wait::Resolving:
        Q_EMIT progressed(tr("Выясняется, записаны ли изменения…"));
        break;
    case InstallationDatabase::Wait::Connecting:
        Q_EMIT progressed(tr("Нет связи с базой данных. Соединение…"));
        break;
    }
}

void SaveConversation::finishSave(const SaveResult &result)
{
    Q_EMIT progressed({});
    switch (result.outcome) {
    case SaveResult::Outcome::NothingToDo:
    case SaveResult::Outcome::Saved:
        if (m_isLeaving)
            Q_EMIT readyToLeave();
        break;
    case SaveResult::Outcome::Failed:
        explainFailure(*result.error);
        break;
    case SaveResult::Outcome::Unknown:
        stay();
        SaveQuestions::showUnknown(&m_window, *result.error);
        break;
    case SaveResult::Outcome::Unreadable:
        saveReplacingUnreadable(result.unreadableKeys);
        break;
    case SaveResult::Outcome::Forbidden:
        stay();
        revertForbidden(result.forbiddenKeys);
        break;
    case SaveResult::Outcome::Conflicting:
        resolveConflicts();
        break;
    }
}

void SaveConversation::explainFailure(const DatabaseError &error)
{
    stay();
    if (error.kind == DatabaseError::Kind::Cancelled)
        return;
    if (m_isConnectionLost)
        waitForConnection();
    else
        SaveQuestions::showError(&m_window, error);
}

void SaveConversation::saveReplacingUnreadable(const QStringList &keys)
{
    if (!SaveQuestions::replaceUnreadable(&m_window, keys)) {
        stay();
        return;
    }
    Q_EMIT progressed(tr("Сохранение…"));
    m_session.save(m_reason, SettingsSession::Unreadable::Replace);
}

void SaveConversation::revertForbidden(const QStringList &keys)
{
    if (!SaveQuestions::revertForbidden(&m_window, PageAccessWords::refusal(keys)))
        return;
    for (const SettingAddress &address : m_session.changedAddresses()) {
        if (keys.contains(address.key))
            m_session.revert(address);
    }
}

void SaveConversation::resolveConflicts()
{
    const QVector<SettingsSession::Conflict> conflicts = m_session.conflicts();
    if (conflicts.isEmpty())
        return save(); // they have been settled meanwhile
    ConflictDialog dialog(conflicts, &m_window);
    if (dialog.exec() == QDialog::Rejected) {
        stay();
        return;
    }
    const QVector<ConflictDialog::Choice> choices = dialog.choices();
    for (int i = 0; i < conflicts.count(); ++i) {
        if (choices[i] == ConflictDialog::Choice::Theirs)
            m_session.revert(conflicts[i].address);
        else
            (void)m_session.keepMine(conflicts[i]); // what has changed once more is asked for once more
    }
    save();
}

void SaveConversation::stay()
{
    m_isLeaving = false;
}

QVector<SettingChange> SaveConversation::changes() const
{
    QVector<SettingChange> changes;
    for (const SettingAddress &address : m_session.changedAddresses())
        changes.append({address, m_session.storedText(address), m_session.shownText(address)});
    SettingChange::sort(changes);
    return changes;
}

void SaveConversation::noteLostConnection(const DatabaseError &error)
{
    m_isConnectionLost = true;
    Q_EMIT noticed(tr("%1 Изменения можно будет сохранить, когда связь восстановится.").arg(error.reason));
}

void SaveConversation::noteRestoredConnection()
{
    m_isConnectionLost = false;
    Q_EMIT noticed({});
    // The session has yet to take in what others have saved meanwhile.
    if (m_waiting)
        QTimer::singleShot(0, this, &SaveConversation::saveAfterAll);
}

void SaveConversation::waitForConnection()
{
    m_waiting = changes();
    Q_EMIT progressed(tr("Нет связи с базой данных. Изменения запишутся, когда она восстановится."));
}

void SaveConversation::saveAfterAll()
{
    if (!m_waiting)
        return;
    const bool isAgreed = *m_waiting == changes();
    m_waiting.reset();
    Q_EMIT progressed({});
    if (isAgreed) {
        save();
        return;
    }
    Q_EMIT noticed(tr("Связь восстановлена. Пока её не было, изменения стали другими, поэтому они не записаны."));
}
