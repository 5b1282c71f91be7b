#pragma once

#include <host/draftedit.h>

#include <QObject>
#include <QStringList>
#include <QVector>

class MainWindow;
class SettingsDraft;
class SettingsSession;

/// Keeps what is edited in the window as a draft, and offers to make the edits of an earlier one again.
class DraftKeeper : public QObject
{
    Q_OBJECT

public:
    /// All three live longer.
    DraftKeeper(SettingsDraft &draft, SettingsSession &session, MainWindow &window);

    /// Asks in a modal box whether to make again what an earlier process has left, if there is something.
    void offer();
    /// What is edited now is not wanted any more.
    void drop();

private:
    QVector<DraftEdit> edits() const;
    /// What was edited and is neither stored already nor from another database.
    QVector<DraftEdit> found() const;
    QStringList words(const QVector<DraftEdit> &found) const;
    void keep();

    SettingsDraft &m_draft;
    SettingsSession &m_session;
    MainWindow &m_window;
    QVector<DraftEdit> m_kept;
};
