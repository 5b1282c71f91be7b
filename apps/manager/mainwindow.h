#pragma once

#include <vxsettings/dbsettingstypes.h>

#include <QHash>
#include <QMainWindow>

class ChangeBar;
class PageArea;
class PageList;
class QStackedWidget;
class SettingsController;

/// The pages of an installation's settings, one at a time, and the bar that saves them.
///
/// Geometry and page are remembered in the user's settings.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @p controller has loaded the database at @p databasePath, and lives longer.
    MainWindow(SettingsController &controller, const QString &databasePath, QWidget *parent = nullptr);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *createCentralWidget();
    void createActions();
    void showPage(DBGroups group);
    PageArea *createPage(DBGroups group);
    void showChanges();

    /// False if something is still unsaved.
    bool save();
    void revert();
    /// Reads the database again and builds the pages anew.
    void reload();

    void restoreView();
    void rememberView() const;

    SettingsController &m_controller;
    PageList *m_list;
    QStackedWidget *m_stack;
    ChangeBar *m_bar;
    QHash<int, PageArea *> m_areas; ///< by group
};
