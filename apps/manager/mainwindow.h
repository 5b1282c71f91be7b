#pragma once

#include <host/installationdatabase.h>

#include <vxsettings/dbsettingstypes.h>

#include <QHash>
#include <QMainWindow>

class ChangeBar;
class PageArea;
class PageList;
class QLabel;
class QStackedWidget;
class SettingsSession;
struct SettingAddress;

/// The pages of an installation's settings, one at a time, and the bar that saves them.
///
/// Geometry and page are remembered in the user's settings.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @p session has loaded @p database; both live longer.
    MainWindow(InstallationDatabase &database, SettingsSession &session, QWidget *parent = nullptr);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *createCentralWidget();
    void createActions();
    void showPage(DBGroups group);
    /// Leads to the parameter.
    void showParameter(const SettingAddress &address);
    PageArea *createPage(DBGroups group);
    void showChanges();

    void save();
    void saveReplacingUnreadable(const QStringList &keys);
    void showProgress(InstallationDatabase::Wait wait);
    void finishSave(const SaveResult &result);
    void explainFailure(const DatabaseError &error);
    void resolveConflicts();
    void stay();
    bool mayClose();

    void restoreView();
    void rememberView() const;

    InstallationDatabase &m_database;
    SettingsSession &m_session;
    PageList *m_list;
    QStackedWidget *m_stack;
    QLabel *m_notice;
    ChangeBar *m_bar;
    QHash<int, PageArea *> m_areas; ///< by group
    bool m_isLeaving = false;       ///< closes once everything is saved
};
