#pragma once

#include <host/changestamp.h>
#include <host/databaseerror.h>
#include <host/installation.h>
#include <host/objectindex.h>
#include <host/pageaccess.h>
#include <host/saveorder.h>
#include <host/saveresult.h>
#include <host/settingaddress.h>
#include <host/settingedit.h>
#include <host/settingfinding.h>
#include <host/settingrules.h>

#include <vxsettings/dbsettingstypes.h>
#include <vxsettings/objectparameters.h>

#include <QObject>
#include <QVector>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class DBParamWidget;
class InstallationDatabase;
class QWidget;
class SettingsPage;

/// Stands between the open pages and the installation database: knows what is edited, saves it, and merges into the
/// pages what others have saved.
///
/// No call waits. What others have stored is shown at once where nobody has edited; an edited parameter keeps what was
/// typed, and is a conflict until its person decides, unless it is what the others have stored. An edit put back by
/// hand is no change. Edits end by a successful save, by a revert, or with the widget of their page; never by a
/// failure.
class SettingsSession : public QObject
{
    Q_OBJECT

public:
    /// A parameter that was edited here and changed elsewhere. Values as SettingEdit::valueIn() gives them; secrets are
    /// told.
    struct Conflict
    {
        SettingAddress address;
        QString base;      ///< what both started from
        QString theirs;    ///< what is stored now
        QString mine;      ///< what the editor shows
        ChangeStamp stamp; ///< of what is stored under the key
    };

    /// What to do with a stored text that is no JSON object of unique names, into which an edit cannot be merged.
    enum class Unreadable {
        Keep,    ///< save nothing, and name it
        Replace, ///< replace those that the last save has named; their text is lost
    };

    /// @p database must live longer. Where it is watched, its changes are followed.
    explicit SettingsSession(InstallationDatabase &database, QObject *parent = nullptr);
    ~SettingsSession() override;

    /// Reads the database, then emits loaded() or failed(). Open pages follow; their edits are kept.
    void load();
    /// Whether loaded() was emitted.
    bool isLoaded() const;
    /// What the database held when it was last heard of.
    const Installation &stored() const;
    /// The value at @p address as SettingEdit::valueIn() gives it.
    QString storedText(const SettingAddress &address) const;
    /// Who changed what is stored under @p key last, as far as that is known.
    ChangeStamp stamp(const QString &key) const;

    /// Which pages operators may edit, by what is stored.
    PageAccess access() const;
    /// Whether a save of what is edited on the page would be refused.
    bool mayEdit(DBGroups page) const;
    /// Saves on the authority of an administrator, or of an operator again, as it does at first.
    void setAuthority(Authority authority);

    /// The page of @p group, one of those in settingsPages(); built below @p parent when it is first asked for, after
    /// loaded(), and again if its widget was deleted.
    QWidget *openPage(DBGroups group, QWidget *parent);
    bool isOpen(DBGroups group) const;
    /// Null unless the parameter's page is open.
    DBParamWidget *editor(const SettingAddress &address) const;
    /// Shows the open pages in the language that is installed now. Edits stay.
    void retranslate();
    /// What would be saved for what the editor shows now; null unless the parameter's page is open.
    QString shownText(const SettingAddress &address) const;

    bool hasChanges() const;
    bool hasChanges(DBGroups group) const;
    bool isChanged(const SettingAddress &address) const;
    /// In the order in which the pages were opened, then in that of the page.
    QVector<SettingAddress> changedAddresses() const;
    /// What a save would store: key → text. In a JSON setting only the edited members are replaced.
    vantorix::OBJECT_PARAMETERS changes() const;

    /// Shows @p text as if it were typed. False if the page is not open or the editor makes something else of the text.
    bool setParameter(const SettingAddress &address, const QString &text);
    /// The same, and the next save stores @p text even where the editor shows it already, such as the nearest number in
    /// the place of one that is out of range.
    bool replaceStored(const SettingAddress &address, const QString &text);
    /// Whether the next save stores what the editor shows although that is no edit by itself.
    bool isReplacing(const SettingAddress &address) const;
    /// All of them.
    QVector<SettingAddress> replacing() const;
    /// Whether what is stored under @p key cannot be read as a JSON object of unique names, which it should be.
    bool isUnreadable(const QString &key) const;
    /// What a repair would store in the place of such a text: what the open page of the @p key shows, and of an object
    /// with names that occur twice the members that no editor shows.
    QString repairedText(const QString &key) const;
    /// Makes that an edit of every parameter under the @p key: the next save stores it without another question, unless
    /// something else is stored by then.
    void repair(const QString &key);
    /// Whether that is so, and is neither undone nor saved yet.
    bool isRepaired(const QString &key) const;
    /// Shows what is stored: undoes the edit, and takes theirs in a conflict.
    void revert(const SettingAddress &address);
    void revert();

    QVector<Conflict> conflicts() const;
    /// Ends the conflict: the next save replaces what they have stored, unless they change it once more. False if they
    /// have already, so that it is no longer what was @p seen.
    bool keepMine(const Conflict &seen);

    /// The rules that the installation would break after a save.
    QVector<SettingRules::Violation> violations() const;
    /// Those of them that it does not break in the same way already.
    QVector<SettingRules::Violation> newViolations() const;
    /// What is wrong with what is stored. Takes time in proportion to it.
    QVector<SettingFinding> findings() const;

    /// Stores what is edited now, all or nothing, with @p reason in the history unless it is empty, then emits
    /// saveFinished(). What is typed meanwhile stays an edit. While there are conflicts, nothing is stored. Does
    /// nothing while another save is under way.
    void save(const QString &reason = {}, Unreadable unreadable = Unreadable::Keep);
    bool isSaving() const;
    /// Stores @p text as the access of operators, on the authority of an administrator and apart from what is edited,
    /// unless its revision is another one than @p seen. Then stored() says what is stored now, and @p done is told.
    void saveAccess(const QString &text, qint64 seen, const QString &reason,
                    const std::function<void(const SaveResult &)> &done);

Q_SIGNALS:
    void loaded();
    void failed(const DatabaseError &error);
    /// The page was built; its editors can be reached.
    void pageOpened(DBGroups group);
    /// What changes() and conflicts() say may be something else.
    void edited();
    /// A person has changed what the editor shows; nothing that is done by program says so.
    void parameterEdited(const SettingAddress &address);
    /// What stored() says is something else.
    void storedChanged();
    /// What became of a save. If it is conflicting, conflicts() has what is to be decided.
    void saveFinished(const SaveResult &result);

private:
    /// What an edit started from, where somebody else has stored something else since.
    struct Origin
    {
        SettingAddress address;
        QString text; ///< the whole text under the key
        qint64 revision;
    };

    struct Save
    {
        QVector<SettingEdit> edits;
        QString reason;
        Unreadable unreadable;
        vantorix::OBJECT_PARAMETERS texts; ///< what was sent
        QVector<DBGroups> builtMeanwhile;  ///< pages that were built since it began
    };

    SettingsPage *page(DBGroups group) const;
    SettingsPage *page(const SettingAddress &address) const;
    void buildPage(DBGroups group, QWidget *parent);

    QVector<SettingEdit> edits() const;
    vantorix::OBJECT_PARAMETERS textsOf(const QVector<SettingEdit> &edits) const;
    QVector<SettingEdit> clashes(const QVector<SettingEdit> &edits) const;

    void adopt(const Installation &now);
    void adoptSetting(const Installation &now, const QString &key);
    void adoptObjects(const Installation &now);
    void follow(SettingsPage &page, const SettingAddress &address);
    void rememberOrigins(const QString &key);
    Origin currentOrigin(const SettingAddress &address) const;
    /// Null unless somebody else has stored something since.
    const Origin *originOf(const SettingAddress &address) const;
    void forgetOrigin(const SettingAddress &address);
    void forgetSettledOrigins();

    void sendSave();
    void receiveSave(const SaveResult &result);
    void mergeAndSendAgain(const SaveResult &result);
    void acceptSave(const SaveResult &result);
    void acceptEdit(SettingsPage &page, const SettingEdit &edit);
    void finishSave(const SaveResult &result);
    std::optional<SaveResult> refusal();
    SaveResult conflicting(const QVector<SettingEdit> &clashes) const;
    QStringList unreadableKeys() const;
    bool mayReplace(const QString &key) const;
    QStringList forbiddenKeys() const;

    InstallationDatabase &m_database;
    std::vector<std::unique_ptr<SettingsPage>> m_pages;
    Installation m_stored;
    ObjectIndex m_objects;
    bool m_isLoaded = false;
    bool m_areObjectsKnown = false; ///< what stored() has of them is what the selectors show
    QVector<Origin> m_origins;
    std::optional<Save> m_save; ///< the one that is under way
    Authority m_authority = Authority::Operator;
    QHash<QString, qint64> m_repairedRevisions; ///< key → revision of the text that is to be replaced
    QHash<QString, qint64> m_refusedRevisions;  ///< key → revision of the texts that the last save could not replace
};
