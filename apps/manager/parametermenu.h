#pragma once

#include <host/settingaddress.h>
#include <host/settingfinding.h>

#include <QHash>
#include <QObject>

#include <optional>

class DatabaseLocation;
class QAction;
class QMenu;
class QWidget;
class SettingsSession;

/// The context menu of every parameter, on its caption and its editor, by mouse and by keyboard: revert and repair it,
/// lead to what switches it on, tell why it is as it is and
/// what it was before, copy its key or the command that sets it.
///
/// The entries that a line edit has by itself stay. Secrets are never told and never copied.
class ParameterMenu : public QObject
{
    Q_OBJECT

public:
    /// @p session, of which no page is open yet and which has loaded the database at @p location, lives longer.
    ParameterMenu(SettingsSession &session, const DatabaseLocation &location, QObject *parent = nullptr);

    /// What the menu offers in the place of a line edit's own undo and redo, which know of nothing but the line.
    void setUndoActions(QAction *undo, QAction *redo);

Q_SIGNALS:
    /// Somebody wants to be led to that parameter.
    void parameterWanted(const SettingAddress &address);
    /// Somebody wants to see who has changed it, and perhaps to take that back.
    void historyWanted(const SettingAddress &address);
    /// Somebody wants the whole text under @p key repaired, which cannot be read.
    void repairWanted(const QString &key);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addPage();
    QMenu *createMenu(const SettingAddress &address);
    void addChanges(QMenu &menu, const SettingAddress &address);
    void addRepair(QMenu &menu, const SettingAddress &address);
    void addSwitch(QMenu &menu, const SettingAddress &address);
    void addCopies(QMenu &menu, const SettingAddress &address);
    void explain(const SettingAddress &address) const;
    /// What is wrong with what is stored there, if anything.
    std::optional<SettingFinding> finding(const SettingAddress &address) const;
    QString command(const SettingAddress &address) const;

    SettingsSession &m_session;
    QList<QAction *> m_undoActions;
    QString m_database;                                 ///< what the command line programs call it
    QHash<const QObject *, SettingAddress> m_addresses; ///< of frames and their input widgets
};
