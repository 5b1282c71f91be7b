#pragma once

#include <host/installationdatabase.h>
#include <host/settingchange.h>

#include <QObject>

#include <optional>

class QWidget;
class SettingsSession;

/// What is asked and told of a save, from its review to what became of it, and of a connection that is lost meanwhile.
class SaveConversation : public QObject
{
    Q_OBJECT

public:
    /// @p session is that of @p database; both live longer. @p window, over which it asks, owns it.
    SaveConversation(InstallationDatabase &database, SettingsSession &session, QWidget &window);

    /// Shows what would be saved, takes a reason for it, and saves it if that is wanted. Edits that break a rule are
    /// not saved by any of these: brokenRuleFound() follows instead.
    void review();
    /// Whether the window may close now. If not, either somebody wants to stay, or everything is being saved first, and
    /// readyToLeave() follows.
    bool mayLeave();
    /// Ends whatever is being waited for.
    void cancel();

Q_SIGNALS:
    /// What is being waited for, a sentence; null when it has ended.
    void progressed(const QString &words);
    /// What is true until the next notice, a sentence or more; null if there is nothing to say any more.
    void noticed(const QString &words);
    /// What @p address shows is not saved, because it breaks a rule together with another parameter.
    void brokenRuleFound(const SettingAddress &address);
    void readyToLeave();

private:
    bool refuseBrokenRule();
    void save();
    void showProgress(InstallationDatabase::Wait wait);
    void finishSave(const SaveResult &result);
    void explainFailure(const DatabaseError &error);
    void saveReplacingUnreadable(const QStringList &keys);
    void revertForbidden(const QStringList &keys);
    void resolveConflicts();
    void stay();
    QVector<SettingChange> changes() const;

    void noteLostConnection(const DatabaseError &error);
    void noteRestoredConnection();
    void waitForConnection();
    void saveAfterAll();

    InstallationDatabase &m_database;
    SettingsSession &m_session;
    QWidget &m_window;
    QString m_reason;         ///< of the save under way, for the history
    bool m_isLeaving = false; ///< the window closes once everything is saved
    bool m_isConnectionLost = false;
    std::optional<QVector<SettingChange>> m_waiting; ///< what is to be saved once the connection is back
};
