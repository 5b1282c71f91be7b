#pragma once

#include <host/settingaddress.h>
#include <host/settingssearch.h>

#include <vxsettings/dbsettingstypes.h>

#include <QHash>
#include <QMainWindow>

#include <memory>
#include <optional>
#include <vector>

class ChangeBar;
class DBParamWidget;
class InstallationDatabase;
class MainMenu;
class PageArea;
class PageList;
class QLabel;
class QStackedWidget;
class QTranslator;
class SaveConversation;
class SearchField;
class SettingsFiles;
class SettingsSession;
class Translations;

/// The pages of an installation's settings, one at a time, and the bar that saves them.
///
/// Geometry and page are remembered in the user's settings.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @p session is that of @p database. Until it has loaded it, the window tells so and does nothing else. These and
    /// @p translations live longer; without the latter there is no choice of language.
    MainWindow(InstallationDatabase &database, SettingsSession &session, Translations *translations = nullptr);
    ~MainWindow() override;

    /// Opens the page of @p address, which is a parameter, scrolls to it, draws the eye to it and puts the keyboard
    /// there.
    void showParameter(const SettingAddress &address);
    /// Shows @p text, as it is stored, in the parameter's editor as if it were typed; it is an edit even if the editor
    /// shows it already in the place of what is stored. Opens the page for that, without leaving the one that is shown.
    void edit(const SettingAddress &address, const QString &text);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *createCentralWidget();
    QLayout *createNavigation();
    void connectMenu();
    void showAbout();
    void retranslate();
    void waitForLoad();
    void begin();
    void setUsable(bool usable);
    void showPage(DBGroups group);
    PageArea *openArea(DBGroups group);
    PageArea *createPage(DBGroups group);
    void showChanges();
    DBParamWidget *editorOrSwitch(const SettingAddress &address) const;
    void showLocks();
    void showUnreadable();
    QString unreadableKey(DBGroups page) const;
    void showAccess();
    void findStoredProblems();
    void showProblems();

    void showNotice(const QString &words);
    void showHistory(const std::optional<SettingAddress> &address);
    void restore(const SettingAddress &address, const QString &text);
    void repair(const QString &key);
    void importSettings();

    void restoreView();
    void rememberView() const;

    InstallationDatabase &m_database;
    SettingsSession &m_session;
    std::vector<std::unique_ptr<QTranslator>> m_searchedLanguages;
    SettingsSearch m_search;
    SearchField *m_searchField;
    QVector<SettingAddress> m_storedProblems; ///< of what is stored
    MainMenu *m_menu;
    SaveConversation *m_save;
    SettingsFiles *m_files;
    PageList *m_list;
    QStackedWidget *m_stack;
    QLabel *m_notice;
    ChangeBar *m_bar;
    QHash<int, PageArea *> m_areas; ///< by group
};
