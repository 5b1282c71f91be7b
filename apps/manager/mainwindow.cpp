#include "mainwindow.h"

#include "changebar.h"
#include "conflictdialog.h"
#include "edithistory.h"
#include "pagearea.h"
#include "pagelist.h"
#include "parametermarks.h"
#include "parametermenu.h"
#include "savequestions.h"

#include <host/settingspages.h>
#include <host/settingssession.h>

#include <vxsettings/dbparamwidget.h>

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QSettings>
#include <QStackedWidget>
#include <QTimer>

namespace {

constexpr QSize initialSize(1024, 700);
constexpr int noticeMargin = 6;
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

MainWindow::MainWindow(InstallationDatabase &database, SettingsSession &session, QWidget *parent)
    : QMainWindow(parent)
    , m_database(database)
    , m_session(session)
    , m_list(new PageList)
    , m_stack(new QStackedWidget)
    , m_notice(new QLabel)
    , m_bar(new ChangeBar)
{
    setWindowTitle(tr("%1[*] — Настройки базы данных").arg(database.location().shortName()));
    setWindowIcon(QIcon::fromTheme(QStringLiteral("common-settings")));
    setCentralWidget(createCentralWidget());
    createActions();
    new ParameterMarks(m_session, this);
    auto *menu = new ParameterMenu(m_session, m_database.location(), this);
    connect(menu, &ParameterMenu::parameterWanted, this, &MainWindow::showParameter);
    auto *history = new EditHistory(m_session, this);
    addActions({history->undoAction(), history->redoAction()});
    connect(history, &EditHistory::stepped, this, &MainWindow::showParameter);

    connect(m_list, &PageList::pageChosen, this, &MainWindow::showPage);
    connect(m_bar, &ChangeBar::saveRequested, this, &MainWindow::save);
    connect(m_bar, &ChangeBar::revertRequested, this, [this] { m_session.revert(); });
    connect(m_bar, &ChangeBar::cancelRequested, this, [this] { m_database.cancel(); });
    connect(&m_session, &SettingsSession::edited, this, &MainWindow::showChanges);
    // Not from within the signal, which a dialog would hold up.
    connect(&m_session, &SettingsSession::saveFinished, this,
            [this](const SaveResult &result) { QTimer::singleShot(0, this, [this, result] { finishSave(result); }); });
    connect(&m_database, &InstallationDatabase::waiting, this, &MainWindow::showProgress);
    connect(&m_database, &InstallationDatabase::connectionLost, this, [this](const DatabaseError &error) {
        m_notice->setText(tr("%1 Изменения можно будет сохранить, когда связь восстановится.").arg(error.reason));
        m_notice->show();
    });
    connect(&m_database, &InstallationDatabase::connectionRestored, m_notice, &QWidget::hide);

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
    rows->addWidget(m_notice);
    rows->addWidget(m_bar);
    m_list->setFrameShape(QFrame::NoFrame);
    m_notice->setObjectName(QStringLiteral("noticeLabel"));
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setWordWrap(true);
    m_notice->setMargin(noticeMargin);
    m_notice->hide();
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

void MainWindow::showParameter(const SettingAddress &address)
{
    m_list->choose(SettingAddress{address.key}.group());
    DBParamWidget *editor = m_session.editor(address);
    m_areas.value(int(m_list->chosen()))->ensureWidgetVisible(editor);
    editor->setFocus();
}

PageArea *MainWindow::createPage(DBGroups group)
{
    auto *area = new PageArea;
    area->setPage(m_session.openPage(group, area->canvas()));
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
    const int count = m_session.changedAddresses().count();
    setWindowModified(count > 0);
    m_bar->setChangeCount(count, m_session.conflicts().count());
    for (const SettingsPageName &page : settingsPages)
        m_list->setChanged(page.group, m_session.hasChanges(page.group));
}

void MainWindow::save()
{
    m_bar->setProgress(tr("Сохранение…"));
    m_session.save();
}

void MainWindow::saveReplacingUnreadable(const QStringList &keys)
{
    if (!SaveQuestions::replaceUnreadable(this, keys)) {
        stay();
        return;
    }
    m_bar->setProgress(tr("Сохранение…"));
    m_session.save({}, SettingsSession::Unreadable::Replace);
}

void MainWindow::showProgress(InstallationDatabase::Wait wait)
{
    if (!m_session.isSaving())
        return;
    switch (wait) {
    case InstallationDatabase::Wait::Busy:
        m_bar->setProgress(tr("База данных занята другой программой. Ожидание…"));
        break;
    case InstallationDatabase::Wait::Resolving:
        m_bar->setProgress(tr("Выясняется, записаны ли изменения…"));
        break;
    case InstallationDatabase::Wait::Connecting:
        m_bar->setProgress(tr("Нет связи с базой данных. Соединение…"));
        break;
    }
}

void MainWindow::finishSave(const SaveResult &result)
{
    m_bar->setProgress({});
    switch (result.outcome) {
    case SaveResult::Outcome::NothingToDo:
    case SaveResult::Outcome::Saved:
        if (m_isLeaving)
            close();
        break;
    case SaveResult::Outcome::Failed:
        explainFailure(*result.error);
        break;
    case SaveResult::Outcome::Unknown:
        stay();
        SaveQuestions::showUnknown(this, *result.error);
        break;
    case SaveResult::Outcome::Unreadable:
        saveReplacingUnreadable(result.unreadableKeys);
        break;
    case SaveResult::Outcome::Conflicting:
        resolveConflicts();
        break;
    }
}

void MainWindow::explainFailure(const DatabaseError &error)
{
    stay();
    if (error.kind != DatabaseError::Kind::Cancelled)
        SaveQuestions::showError(this, error);
}

void MainWindow::resolveConflicts()
{
    const QVector<SettingsSession::Conflict> conflicts = m_session.conflicts();
    ConflictDialog dialog(conflicts, this);
    if (!conflicts.isEmpty() && dialog.exec() == QDialog::Rejected) {
        stay();
        return;
    }
    const QVector<ConflictDialog::Choice> choices = dialog.choices();
    for (int i = 0; i < conflicts.count(); ++i) {
        if (choices[i] == ConflictDialog::Choice::Theirs)
            m_session.revert(conflicts[i].address);
        else
            (void)m_session.keepMine(conflicts[i]); // what has changed once more is asked for once more
    }
    save();
}

void MainWindow::stay()
{
    m_isLeaving = false;
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!mayClose()) {
        event->ignore();
        return;
    }
    rememberView();
    event->accept();
}

bool MainWindow::mayClose()
{
    if (m_session.isSaving()) {
        m_isLeaving = true;
        return false;
    }
    if (!m_session.hasChanges())
        return true;
    const auto answer = SaveQuestions::leave(this, m_session.changedAddresses().count());
    m_isLeaving = answer == SaveQuestions::Leaving::Save;
    if (m_isLeaving)
        save();
    return answer == SaveQuestions::Leaving::Discard;
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
