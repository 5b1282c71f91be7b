#include "mainwindow.h"

#include "changebar.h"
#include "conflictdialog.h"
#include "pagearea.h"
#include "pagelist.h"
#include "savequestions.h"

#include <host/settingscontroller.h>
#include <host/settingspages.h>

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QSettings>
#include <QStackedWidget>

namespace {

constexpr QSize initialSize(1024, 700);
const QString geometryKey = QStringLiteral("window/geometry");
const QString pageKey = QStringLiteral("window/page");

QFrame *line(QFrame::Shape shape)
{
    auto *line = new QFrame;
    line->setFrameShape(shape);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

QString nameOf(DBGroups group)
{
    for (const SettingsPageName &page : settingsPages) {
        if (page.group == group)
            return QLatin1String(page.name);
    }
    return {};
}
} // namespace

MainWindow::MainWindow(SettingsController &controller, const QString &databasePath, QWidget *parent)
    : QMainWindow(parent)
    , m_controller(controller)
    , m_list(new PageList)
    , m_stack(new QStackedWidget)
    , m_bar(new ChangeBar)
{
    setWindowTitle(tr("%1[*] — Настройки базы данных").arg(QFileInfo(databasePath).fileName()));
    setWindowIcon(QIcon::fromTheme(QStringLiteral("common-settings")));
    setCentralWidget(createCentralWidget());
    createActions();

    connect(m_list, &PageList::pageChosen, this, &MainWindow::showPage);
    connect(m_bar, &ChangeBar::saveRequested, this, &MainWindow::save);
    connect(m_bar, &ChangeBar::revertRequested, this, &MainWindow::revert);
    connect(&m_controller, &SettingsController::edited, this, &MainWindow::showChanges);

    restoreView();
    showPage(m_list->chosen());
    m_list->setFocus();
}

QWidget *MainWindow::createCentralWidget()
{
    auto *central = new QWidget;
    auto *columns = new QHBoxLayout;
    columns->setSpacing(0);
    columns->addWidget(m_list);
    columns->addWidget(m_stack, 1);

    auto *rows = new QVBoxLayout(central);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rows->addLayout(columns, 1);
    rows->addWidget(line(QFrame::HLine));
    rows->addWidget(m_bar);
    m_list->setFrameShape(QFrame::NoFrame);
    return central;
}

void MainWindow::createActions()
{
    auto *saveAction = new QAction(this);
    saveAction->setShortcut(QKeySequence::Save);
    connect(saveAction, &QAction::triggered, this, &MainWindow::save);
    addAction(saveAction);
}

void MainWindow::showPage(DBGroups group)
{
    PageArea *&area = m_areas[int(group)];
    if (!area)
        area = createPage(group);
    m_stack->setCurrentWidget(area);
}

PageArea *MainWindow::createPage(DBGroups group)
{
    auto *area = new PageArea;
    area->setPage(m_controller.openPage(group, area->canvas()));
    m_stack->addWidget(area);
    // What is built last is last in the tab order, and belongs between the list and the bar.
    QWidget *last = previousInFocusChain();
    while (last->focusPolicy() == Qt::NoFocus)
        last = last->previousInFocusChain();
    m_bar->followInTabOrder(last);
    return area;
}

void MainWindow::showChanges()
{
    const int count = m_controller.changes().count();
    setWindowModified(count > 0);
    m_bar->setChangeCount(count);
    for (const SettingsPageName &page : settingsPages)
        m_list->setChanged(page.group, m_controller.hasChanges(page.group));
}

bool MainWindow::save()
{
    SettingsController::Consent consent;
    for (;;) {
        const SaveResult result = m_controller.save(consent);
        switch (result.outcome) {
        case SaveResult::Outcome::NothingToDo:
        case SaveResult::Outcome::Saved:
            return true;
        case SaveResult::Outcome::Failed:
        case SaveResult::Outcome::Unknown:
            SaveQuestions::showError(this, *result.error);
            return false;
        case SaveResult::Outcome::Unreadable:
            if (!SaveQuestions::replaceUnreadable(this, result.unreadableKeys))
                return false;
            consent.replaceUnreadable = true;
            break;
        case SaveResult::Outcome::Conflicting:
            switch (ConflictDialog(result.conflicts, this).exec()) {
            case ConflictDialog::Overwrite:
                consent.overwritten += result.conflicts;
                break;
            case ConflictDialog::Reload:
                reload();
                return !m_controller.hasChanges();
            default:
                return false;
            }
        }
    }
}

void MainWindow::revert()
{
    m_controller.revert();
}

void MainWindow::reload()
{
    if (auto error = m_controller.load()) {
        SaveQuestions::showError(this, *error);
        return;
    }
    qDeleteAll(m_areas);
    m_areas.clear();
    showPage(m_list->chosen());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (m_controller.hasChanges()) {
        const auto answer = SaveQuestions::leave(this, m_controller.changes().count());
        if (answer == SaveQuestions::Leaving::Stay || (answer == SaveQuestions::Leaving::Save && !save())) {
            event->ignore();
            return;
        }
    }
    rememberView();
    event->accept();
}

void MainWindow::restoreView()
{
    const QSettings settings;
    if (!restoreGeometry(settings.value(geometryKey).toByteArray()))
        resize(initialSize);
    for (const SettingsPageName &page : settingsPages) {
        if (settings.value(pageKey).toString() == QLatin1String(page.name))
            m_list->choose(page.group);
    }
}

void MainWindow::rememberView() const
{
    QSettings settings;
    settings.setValue(geometryKey, saveGeometry());
    settings.setValue(pageKey, nameOf(m_list->chosen()));
}
