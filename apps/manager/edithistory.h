#pragma once

#include <host/settingaddress.h>

#include <QPointer>
#include <QUndoStack>
#include <QVector>

#include <vector>

class DBParamWidget;
class QAction;
class SettingsSession;

/// Undo and redo of what is edited on all pages of a session.
///
/// What is typed into one editor is one step, until the focus leaves or another parameter is edited. A revert or a
/// repair is a step like an edit. A step does nothing, and is left out, where its parameter shows something else by now
/// because others have stored it.
class EditHistory : public QObject
{
    Q_OBJECT

public:
    /// @p session, of which no page is open yet, lives longer. @p window is the parent, and shows the pages.
    EditHistory(SettingsSession &session, QWidget *window);
    ~EditHistory() override;

    /// With their texts and shortcuts, which work in editors too; enabled while there is something to do.
    QAction *undoAction() const { return m_undo; }
    QAction *redoAction() const { return m_redo; }

    void undo();
    void redo();

Q_SIGNALS:
    /// A step was undone or redone that concerned this parameter, among others perhaps.
    void stepped(const SettingAddress &address);

protected:
    /// Of the window, and of the input widgets, whose own undo would be another history of the same.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    class Step;

    /// What an editor shows, and whether that is to be stored even if it is no edit by itself.
    struct State
    {
        QString text;
        bool isReplacing = false;

        bool operator==(const State &other) const { return text == other.text && isReplacing == other.isReplacing; }
    };
    struct Parameter
    {
        SettingAddress address;
        QPointer<DBParamWidget> editor;
        State shown;
    };
    struct Change
    {
        SettingAddress address;
        State before;
        State after;
    };

    QAction *createAction(const QKeySequence &shortcut, void (EditHistory::*trigger)());
    void retranslate();
    void addPage();
    void takeTyped(const SettingAddress &address);
    void takeOther();
    QVector<Change> followShown();
    void enableActions();
    void step(void (QUndoStack::*move)());
    bool show(const Change &change, const State &from, const State &to);

    SettingsSession &m_session;
    QUndoStack m_stack;
    QAction *m_undo;
    QAction *m_redo;
    std::vector<Parameter> m_parameters;
    bool m_isStepping = false;
    bool m_isTyping = false;  ///< what is typed next may belong to the last step
    SettingAddress m_stepped; ///< what the last step has shown; an empty key for nothing
};
