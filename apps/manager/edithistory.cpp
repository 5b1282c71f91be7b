#include "edithistory.h"

#include <host/settingssession.h>

#include <vxsettings/dbparamwidget.h>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>

/// One or more parameters that were changed at once.
class EditHistory::Step : public QUndoCommand
{
public:
    /// What was typed may grow while its history says so.
    Step(EditHistory &history, const QVector<Change> &changes, bool isTyped)
        : m_history(history)
        , m_changes(changes)
        , m_isTyped(isTyped)
    {}

    int id() const override { return m_isTyped ? 1 : -1; }

    bool mergeWith(const QUndoCommand *other) override
    {
        const Change &next = static_cast<const Step *>(other)->m_changes.first();
        Change &mine = m_changes.first();
        if (!m_history.m_isTyping || !(mine.address == next.address))
            return false;
        mine.after = next.after;
        setObsolete(mine.before == mine.after);
        return true;
    }

    void undo() override
    {
        bool isDone = false;
        for (auto change = m_changes.crbegin(); change != m_changes.crend(); ++change)
            isDone |= m_history.show(*change, change->after, change->before);
        setObsolete(!isDone);
    }

    void redo() override
    {
        // The stack does what is pushed, but that was done by hand.
        if (!m_history.m_isStepping)
            return;
        bool isDone = false;
        for (const Change &change : qAsConst(m_changes))
            isDone |= m_history.show(change, change.before, change.after);
        setObsolete(!isDone);
    }

private:
    EditHistory &m_history;
    QVector<Change> m_changes;
    bool m_isTyped;
};

namespace {

QKeySequence undoKeys()
{
    return {QStringLiteral("Ctrl+Z")};
}

QKeySequence redoKeys()
{
    return {QStringLiteral("Ctrl+Shift+Z")};
}

bool isUndoOrRedo(const QKeyEvent &event)
{
    return event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo) ||
           QKeySequence(int(event.modifiers()) | event.key()) == redoKeys();
}
} // namespace

EditHistory::EditHistory(SettingsSession &session, QWidget *window)
    : QObject(window)
    , m_session(session)
    , m_undo(createAction(undoKeys(), &EditHistory::undo))
    , m_redo(createAction(redoKeys(), &EditHistory::redo))
{
    retranslate();
    window->installEventFilter(this);
    connect(&m_session, &SettingsSession::pageOpened, this, &EditHistory::addPage);
    connect(&m_session, &SettingsSession::parameterEdited, this, &EditHistory::takeTyped);
    connect(&m_session, &SettingsSession::storedChanged, this, &EditHistory::followShown);
    connect(&m_session, &SettingsSession::edited, this, &EditHistory::takeOther);
    connect(qApp, &QApplication::focusChanged, this, [this] { m_isTyping = false; });
}

EditHistory::~EditHistory() = default;

void EditHistory::undo()
{
    step(&QUndoStack::undo);
}

void EditHistory::redo()
{
    step(&QUndoStack::redo);
}

bool EditHistory::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() != QEvent::ShortcutOverride || !isUndoOrRedo(*static_cast<QKeyEvent *>(event)))
        return QObject::eventFilter(watched, event);
    // Not accepted by the editor, the keys are those of the actions.
    event->ignore();
    return true;
}

QAction *EditHistory::createAction(const QKeySequence &shortcut, void (EditHistory::*trigger)())
{
    auto *action = new QAction(this);
    action->setShortcut(shortcut);
    action->setEnabled(false);
    connect(action, &QAction::triggered, this, trigger);
    return action;
}

void EditHistory::retranslate()
{
    m_undo->setText(tr("&Отменить правку"));
    m_redo->setText(tr("&Повторить правку"));
}

void EditHistory::addPage()
{
    m_parameters.clear();
    for (const SettingAddress &address : SettingAddress::all()) {
        DBParamWidget *editor = m_session.editor(address);
        if (!editor)
            continue;
        m_parameters.push_back({address, editor, {editor->value().toString(), m_session.isReplacing(address)}});
        editor->centralWidget()->removeEventFilter(this);
        editor->centralWidget()->installEventFilter(this);
    }
}

void EditHistory::takeTyped(const SettingAddress &address)
{
    for (const Change &change : followShown())
        m_stack.push(new Step(*this, {change}, change.address == address));
    m_isTyping = true;
    enableActions();
}

void EditHistory::takeOther()
{
    const QVector<Change> changes = followShown();
    if (m_isStepping || changes.isEmpty())
        return;
    m_stack.push(new Step(*this, changes, false));
    m_isTyping = false;
    enableActions();
}

/// What is shown now and was not before.
QVector<EditHistory::Change> EditHistory::followShown()
{
    const QVector<SettingAddress> replacing = m_session.replacing();
    QVector<Change> changes;
    for (Parameter &parameter : m_parameters) {
        // Not by way of the session, which would look for every one of them at every key stroke.
        if (!parameter.editor)
            continue;
        const State shown{parameter.editor->value().toString(), replacing.contains(parameter.address)};
        if (shown == parameter.shown)
            continue;
        changes.append({parameter.address, parameter.shown, shown});
        parameter.shown = shown;
    }
    return changes;
}

void EditHistory::enableActions()
{
    // The stack's signals leave out a redo that has turned out to do nothing.
    m_undo->setEnabled(m_stack.canUndo());
    m_redo->setEnabled(m_stack.canRedo());
}

void EditHistory::step(void (QUndoStack::*move)())
{
    m_isTyping = false;
    m_stepped = {};
    const QScopedValueRollback<bool> stepping(m_isStepping, true);
    // A step that does nothing has taken itself off the stack.
    for (int left = m_stack.count(); left > 0 && m_stepped.key.isEmpty(); --left)
        (m_stack.*move)();
    enableActions();
    if (!m_stepped.key.isEmpty())
        Q_EMIT stepped(m_stepped);
}

/// Whether @p to is shown now in the place of @p from.
bool EditHistory::show(const Change &change, const State &from, const State &to)
{
    const State now{m_session.shownText(change.address), m_session.isReplacing(change.address)};
    if (now.text != from.text || now == to)
        return false;
    const QVector<SettingsSession::Conflict> conflicts = m_session.conflicts();
    const bool isTakenBack =
        std::any_of(conflicts.begin(), conflicts.end(), [&](const SettingsSession::Conflict &conflict) {
            return conflict.address == change.address && conflict.base == to.text;
        });
    // What the edit started from is not there any more: without the edit, what others have stored is shown.
    if (isTakenBack)
        m_session.revert(change.address);
    else if (to.isReplacing)
        m_session.replaceStored(change.address, to.text);
    else
        m_session.setParameter(change.address, to.text);
    m_stepped = change.address;
    return true;
}
