#pragma once

#include "theme.h"

#include <QMenuBar>
#include <QVector>

class QActionGroup;
class Translations;

/// The window's menu bar: each entry says what is wanted by a signal. Language and look are chosen here and remembered.
class MainMenu : public QMenuBar
{
    Q_OBJECT

public:
    /// @p translations lives longer; without it no language is offered.
    explicit MainMenu(Translations *translations, QWidget *parent = nullptr);

    /// What the edit menu begins with. The actions are borrowed.
    void setUndoActions(QAction *undo, QAction *redo);

Q_SIGNALS:
    void saveRequested();
    void importRequested();
    void compareRequested();
    void exportRequested();
    void reportRequested();
    void quitRequested();
    void findRequested();
    void historyRequested();
    void accessRequested();
    void aboutRequested();

protected:
    void changeEvent(QEvent *event) override;

private:
    /// An action or a menu, and its text in the source language.
    struct Entry
    {
        QAction *action;
        const char *text;
    };
    using Signal = void (MainMenu::*)();

    QMenu *addMenu(QWidget *parent, const char *text);
    QAction *add(QMenu *menu, const char *text, Signal signal, const QKeySequence &shortcut = {});
    void fillFileMenu();
    void fillEditMenu();
    void fillViewMenu();
    void addLanguages(QMenu *menu);
    void addTheme(QMenu *menu, QActionGroup *group, const char *text, Theme::Kind kind);
    void retranslate();

    Translations *m_translations;
    QVector<Entry> m_entries;
    QMenu *m_file;
    QMenu *m_edit;
    QMenu *m_view;
    QMenu *m_help;
};
