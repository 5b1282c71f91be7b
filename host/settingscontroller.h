#pragma once

#include <host/databaseerror.h>
#include <host/installation.h>
#include <host/saveresult.h>

#include <vxsettings/dbsettingstypes.h>
#include <vxsettings/objectparameters.h>

#include <QObject>

#include <memory>
#include <optional>
#include <vector>

class QWidget;
class SettingsPage;
class SettingsStore;

/// Carries values round: SettingsStore → vantorix::LocalStorage → open pages → changes() → SettingsStore.
class SettingsController : public QObject
{
    Q_OBJECT

public:
    /// What the user has agreed to lose by a save.
    struct Consent
    {
        bool replaceUnreadable = false;            ///< stored JSON texts into which an edit cannot be merged
        QVector<SettingConflict> overwritten = {}; ///< what others have stored, as it was shown to the user
    };

    /// @p store must be open and live longer.
    explicit SettingsController(SettingsStore &store, QObject *parent = nullptr);
    ~SettingsController() override;

    /// Reads the database and closes all pages, edits included. On an error everything stays as it was.
    [[nodiscard]] std::optional<DatabaseError> load();

    /// The page of @p group, one of those in settingsPages(); built below @p parent when it is first asked for.
    QWidget *openPage(DBGroups group, QWidget *parent);
    bool isOpen(DBGroups group) const;

    /// What the user has edited on all open pages: stored key → what the editors show.
    vantorix::OBJECT_PARAMETERS changes() const;
    bool hasChanges() const;
    bool hasChanges(DBGroups group) const;

    /// Writes what the user has edited, all or nothing. In a JSON setting only the edited members are replaced.
    SaveResult save(const Consent &consent = {false, {}});
    /// Undoes all edits.
    void revert();

Q_SIGNALS:
    /// What changes() says may have changed.
    void edited();

private:
    SettingsPage *page(DBGroups group) const;
    /// What to store for the edits where the database holds @p stored.
    vantorix::OBJECT_PARAMETERS textsToStore(const QHash<QString, QString> &stored) const;
    /// The edited JSON settings of which @p stored has no text to merge them into.
    QStringList unreadableKeys(const QHash<QString, QString> &stored) const;
    void adopt(const vantorix::OBJECT_PARAMETERS &saved, const QHash<QString, qint64> &revisions);

    SettingsStore &m_store;
    std::vector<std::unique_ptr<SettingsPage>> m_pages;
    Installation m_loaded; ///< what the database held when it was last read or written
};
