#include "mainmenu.h"

#include <host/translations.h>

#include <QAction>
#include <QActionGroup>
#include <QEvent>
#include <QMenu>
#include <QShortcut>

MainMenu::MainMenu(Translations *translations, QWidget *parent)
    : QMenuBar(parent)
    , m_translations(translations)
    , m_file(addMenu(this, QT_TR_NOOP("&Файл")))
    , m_edit(addMenu(this, QT_TR_NOOP("П&равка")))
    , m_view(addMenu(this, QT_TR_NOOP("&Вид")))
    , m_help(addMenu(this, QT_TR_NOOP("Спр&авка")))
{
    fillFileMenu();
    fillEditMenu();
    fillViewMenu();
    add(m_help, QT_TR_NOOP("&О программе"), &MainMenu::aboutRequested);
    for (QMenu *menu : {m_file, m_edit, m_view, m_help})
        addAction(menu->menuAction());
    // As on other desktops' windows; the toolkit knows the Alt key only.
    auto *open = new QShortcut(Qt::Key_F10, parent);
    connect(open, &QShortcut::activated, this, [this] { setActiveAction(m_file->menuAction()); });
    retranslate();
}

void MainMenu::setUndoActions(QAction *undo, QAction *redo)
{
    QAction *first = m_edit->actions().constFirst();
    m_edit->insertActions(first, {undo, redo});
    m_edit->insertSeparator(first);
}

QMenu *MainMenu::addMenu(QWidget *parent, const char *text)
{
    auto *menu = new QMenu(parent);
    m_entries.append({menu->menuAction(), text});
    return menu;
}

QAction *MainMenu::add(QMenu *menu, const char *text, Signal signal, const QKeySequence &shortcut)
{
    QAction *action = menu->addAction(QString());
    action->setShortcut(shortcut);
    m_entries.append({action, text});
    connect(action, &QAction::triggered, this, signal);
    return action;
}

void MainMenu::fillFileMenu()
{
    add(m_file, QT_TR_NOOP("&Сохранить"), &MainMenu::saveRequested, QKeySequence::Save);
    m_file->addSeparator();
    add(m_file, QT_TR_NOOP("&Импорт…"), &MainMenu::importRequested);
    add(m_file, QT_TR_NOOP("С&равнить с файлом…"), &MainMenu::compareRequested);
    add(m_file, QT_TR_NOOP("&Экспорт…"), &MainMenu::exportRequested);
    add(m_file, QT_TR_NOOP("&Отчёт в PDF…"), &MainMenu::reportRequested);
    m_file->addSeparator();
    add(m_file, QT_TR_NOOP("&Выход"), &MainMenu::quitRequested, QKeySequence(QStringLiteral("Ctrl+Q")));
}

void MainMenu::fillEditMenu()
{
    // The search field has the shortcut itself.
    add(m_edit, QT_TR_NOOP("&Найти…\tCtrl+F"), &MainMenu::findRequested);
    m_edit->addSeparator();
    add(m_edit, QT_TR_NOOP("&История изменений…"), &MainMenu::historyRequested);
    add(m_edit, QT_TR_NOOP("&Доступ операторов…"), &MainMenu::accessRequested);
}

void MainMenu::fillViewMenu()
{
    if (m_translations)
        addLanguages(addMenu(m_view, QT_TR_NOOP("&Язык")));
    QMenu *theme = addMenu(m_view, QT_TR_NOOP("&Оформление"));
    m_view->addMenu(theme);
    auto *group = new QActionGroup(this);
    addTheme(theme, group, QT_TR_NOOP("&Светлое"), Theme::Kind::Light);
    addTheme(theme, group, QT_TR_NOOP("&Тёмное"), Theme::Kind::Dark);
    addTheme(theme, group, QT_TR_NOOP("&Как в системе"), Theme::Kind::System);
}

void MainMenu::addLanguages(QMenu *menu)
{
    m_view->addMenu(menu);
    auto *group = new QActionGroup(this);
    for (const QString &language : Translations::languages()) {
        QAction *action = group->addAction(menu->addAction(Translations::name(language)));
        action->setCheckable(true);
        action->setChecked(language == m_translations->language());
        connect(action, &QAction::triggered, this, [this, language] { m_translations->choose(language); });
    }
}

void MainMenu::addTheme(QMenu *menu, QActionGroup *group, const char *text, Theme::Kind kind)
{
    QAction *action = group->addAction(menu->addAction(QString()));
    m_entries.append({action, text});
    action->setCheckable(true);
    action->setChecked(kind == Theme::current());
    connect(action, &QAction::triggered, this, [kind] { Theme::choose(kind); });
}

void MainMenu::changeEvent(QEvent *event)
{
    QMenuBar::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void MainMenu::retranslate()
{
    for (const Entry &entry : qAsConst(m_entries))
        entry.action->setText(tr(entry.text));
}
