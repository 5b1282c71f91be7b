#include "mainwindow.h"

#include "accessdialog.h"
#include "changebar.h"
#include "disabledhints.h"
#include "edithistory.h"
#include "historydialog.h"
#include "mainmenu.h"
#include "pagearea.h"
#include "pagelist.h"
#include "parametermarks.h"
#include "parametermenu.h"
#include "repairdialog.h"
#include "saveconversation.h"
#include "savequestions.h"
#include "searchfield.h"
#include "settingsfiles.h"
#include "spotlight.h"
#include "wrappedlabel.h"

#include <host/installationdatabase.h>
#include <host/pageaccesswords.h>
#include <host/settingspages.h>
#include <host/settingssession.h>
#include <host/settingvalue.h>
#include <host/translations.h>

#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingshelper.h>

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QSettings>
#include <QStackedWidget>
#include <QTranslator>

#include <initializer_list>

/// The linker leaves out resources of a static library that nobody asks for. (Outside of every namespace: a macro.)
static void makePictureAvailable()
{
    Q_INIT_RESOURCE(manager);
}

namespace {

constexpr QSize initialSize(1024, 700);
constexpr int noticeMargin = 6;
constexpr int searchMargin = 8;
constexpr QSize aboutIconSize(48, 48);
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

/// Those besides Russian, which is searched anyway.
std::vector<std::unique_ptr<QTranslator>> searchedLanguages()
{
    std::vector<std::unique_ptr<QTranslator>> languages;
    for (const QString &language : Translations::languages().mid(1)) {
        if (auto texts = Translations::libraryTexts(language))
            languages.push_back(std::move(texts));
    }
    return languages;
}

QVector<const QTranslator *> borrowed(const std::vector<std::unique_ptr<QTranslator>> &languages)
{
    QVector<const QTranslator *> borrowed;
    for (const auto &language : languages)
        borrowed.append(language.get());
    return borrowed;
}
} // namespace

MainWindow::MainWindow(InstallationDatabase &database, SettingsSession &session, Translations *translations)
    : m_database(database)
    , m_session(session)
    , m_searchedLanguages(searchedLanguages())
    , m_search(borrowed(m_searchedLanguages))
    , m_searchField(new SearchField(m_search))
    , m_menu(new MainMenu(translations, this))
    , m_save(new SaveConversation(database, session, *this))
    , m_files(new SettingsFiles(session, database.location(), this))
    , m_list(new PageList)
    , m_stack(new QStackedWidget)
    , m_notice(new WrappedLabel)
    , m_bar(new ChangeBar)
{
    makePictureAvailable();
    setWindowIcon(QIcon(QStringLiteral(":/vxsettings-manager/icon.svg")));
    setCentralWidget(createCentralWidget());
    setMenuBar(m_menu);
    connectMenu();
    retranslate();
    new ParameterMarks(m_session, this);
    auto *menu = new ParameterMenu(m_session, m_database.location(), this);
    connect(menu, &ParameterMenu::parameterWanted, this, &MainWindow::showParameter);
    connect(menu, &ParameterMenu::historyWanted, this, &MainWindow::showHistory);
    connect(menu, &ParameterMenu::repairWanted, this, &MainWindow::repair);
    auto *history = new EditHistory(m_session, this);
    m_menu->setUndoActions(history->undoAction(), history->redoAction());
    menu->setUndoActions(history->undoAction(), history->redoAction());
    connect(history, &EditHistory::stepped, this, &MainWindow::showParameter);

    connect(m_searchField, &SearchField::resultChosen, this, &MainWindow::showParameter);
    connect(m_searchField, &SearchField::resultsChanged, m_list, &PageList::setHits);
    connect(m_bar, &ChangeBar::saveRequested, m_save, &SaveConversation::review);
    connect(m_bar, &ChangeBar::revertRequested, this, [this] { m_session.revert(); });
    connect(m_bar, &ChangeBar::cancelRequested, m_save, &SaveConversation::cancel);
    connect(&m_session, &SettingsSession::edited, this, &MainWindow::showChanges);
    connect(&m_session, &SettingsSession::storedChanged, this, &MainWindow::findStoredProblems);
    connect(&m_session, &SettingsSession::storedChanged, this, &MainWindow::showLocks);
    connect(m_save, &SaveConversation::progressed, m_bar, &ChangeBar::setProgress);
    connect(m_save, &SaveConversation::noticed, this, &MainWindow::showNotice);
    connect(m_save, &SaveConversation::brokenRuleFound, this, &MainWindow::showParameter);
    connect(m_save, &SaveConversation::readyToLeave, this, &QWidget::close);

    restoreView();
    if (m_session.isLoaded()) {
        findStoredProblems();
        begin();
    } else {
        waitForLoad();
    }
}

MainWindow::~MainWindow()
{
    delete m_searchField; // before what it searches in
}

QWidget *MainWindow::createCentralWidget()
{
    auto *central = new QWidget;
    auto *columns = new QHBoxLayout;
    columns->setSpacing(0);
    columns->addLayout(createNavigation());
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
    m_notice->setMargin(noticeMargin);
    m_notice->hide();
    return central;
}

QLayout *MainWindow::createNavigation()
{
    auto *rows = new QVBoxLayout;
    rows->setSpacing(0);
    auto *searchRow = new QVBoxLayout;
    searchRow->setContentsMargins(searchMargin, searchMargin, searchMargin, searchMargin);
    searchRow->addWidget(m_searchField);
    rows->addLayout(searchRow);
    rows->addWidget(m_list, 1);
    return rows;
}

void MainWindow::connectMenu()
{
    connect(m_menu, &MainMenu::saveRequested, m_save, &SaveConversation::review);
    connect(m_menu, &MainMenu::importRequested, this, &MainWindow::importSettings);
    connect(m_menu, &MainMenu::compareRequested, m_files, &SettingsFiles::compare);
    connect(m_menu, &MainMenu::historyRequested, this, [this] { showHistory(std::nullopt); });
    connect(m_menu, &MainMenu::accessRequested, this, &MainWindow::showAccess);
    connect(m_menu, &MainMenu::exportRequested, m_files, &SettingsFiles::exportSettings);
    connect(m_menu, &MainMenu::reportRequested, m_files, &SettingsFiles::writeReport);
    connect(m_menu, &MainMenu::quitRequested, this, &QWidget::close);
    connect(m_menu, &MainMenu::findRequested, m_searchField, &SearchField::activate);
    connect(m_menu, &MainMenu::aboutRequested, this, &MainWindow::showAbout);
}

void MainWindow::showAbout()
{
    QMessageBox box(QMessageBox::NoIcon, tr("О программе"), tr("Настройки базы данных"), QMessageBox::NoButton, this);
    box.setInformativeText(tr("Версия %1").arg(QCoreApplication::applicationVersion()));
    box.setIconPixmap(windowIcon().pixmap(aboutIconSize));
    box.addButton(tr("&Закрыть"), QMessageBox::AcceptRole);
    box.exec();
}

void MainWindow::retranslate()
{
    setWindowTitle(tr("%1[*] — Настройки базы данных").arg(m_database.location().shortName()));
    m_session.retranslate();
    showLocks();
    showUnreadable();
}

void MainWindow::waitForLoad()
{
    setUsable(false);
    m_bar->setProgress(tr("Загрузка настроек…"));
    connect(&m_session, &SettingsSession::loaded, this, &MainWindow::begin);
}

void MainWindow::begin()
{
    disconnect(&m_session, &SettingsSession::loaded, this, &MainWindow::begin);
    m_bar->setProgress({});
    setUsable(true);
    connect(m_list, &PageList::pageChosen, this, &MainWindow::showPage);
    showPage(m_list->chosen());
    m_list->setFocus();
}

void MainWindow::setUsable(bool usable)
{
    for (QWidget *part : std::initializer_list<QWidget *>{m_menu, m_searchField, m_list})
        part->setEnabled(usable);
}

void MainWindow::showPage(DBGroups group)
{
    m_stack->setCurrentWidget(openArea(group));
}

PageArea *MainWindow::openArea(DBGroups group)
{
    PageArea *&area = m_areas[int(group)];
    if (!area) {
        area = createPage(group);
        showLocks();
        showUnreadable();
    }
    return area;
}

PageArea *MainWindow::createPage(DBGroups group)
{
    auto *area = new PageArea;
    area->setPage(m_session.openPage(group, area->canvas()));
    connect(area, &PageArea::accessRequested, this, &MainWindow::showAccess);
    connect(area, &PageArea::repairRequested, this, [this, group] { repair(unreadableKey(group)); });
    m_stack->addWidget(area);
    // What is built last is last in the tab order, and belongs between the list and the bar.
    QWidget *last = previousInFocusChain();
    while (last->focusPolicy() == Qt::NoFocus)
        last = last->previousInFocusChain();
    m_bar->followInTabOrder(last);
    return area;
}

void MainWindow::showParameter(const SettingAddress &address)
{
    const DBGroups page = SettingAddress{address.key}.group();
    m_list->choose(page);
    DBParamWidget *editor = m_session.editor(address);
    if (!editor)
        return;
    m_areas.value(int(page))->reveal(editor);
    Spotlight::pointAt(editor);
    if (m_session.mayEdit(page))
        editorOrSwitch(address)->setFocus(Qt::TabFocusReason); // what is typed replaces the value
    else
        m_areas.value(int(page))->focusLock();
}

/// What is switched off takes no keys, but what turns it on does.
DBParamWidget *MainWindow::editorOrSwitch(const SettingAddress &address) const
{
    DBParamWidget *editor = m_session.editor(address);
    const auto parent = DisabledHints::switchOf(address);
    return editor->isEnabled() || !parent ? editor : m_session.editor(*parent);
}

void MainWindow::edit(const SettingAddress &address, const QString &text)
{
    openArea(SettingAddress{address.key}.group());
    m_session.replaceStored(address, text);
}

void MainWindow::showLocks()
{
    for (const SettingsPageName &page : settingsPages) {
        const bool isLocked = !m_session.mayEdit(page.group);
        m_list->setLocked(page.group, isLocked);
        if (PageArea *area = m_areas.value(int(page.group)))
            area->setLockReason(isLocked ? PageAccessWords::lockReason(m_session.access()) : QString());
    }
}

void MainWindow::showUnreadable()
{
    for (const SettingsPageName &page : settingsPages) {
        PageArea *area = m_areas.value(int(page.group));
        const QString key = area ? unreadableKey(page.group) : QString();
        if (!area)
            continue;
        area->setRepairReason(key.isNull() ? QString()
                                           : tr("Запись «%1» в базе данных не читается целиком. Страница показывает "
                                                "то, что в ней удалось разобрать.")
                                                 .arg(SettingAddress{key}.caption()));
    }
}

/// Of a JSON setting on the page that waits for a repair; null if there is none.
QString MainWindow::unreadableKey(DBGroups page) const
{
    for (const QString &key : DBSettingsHelper::groupParams(page)) {
        if (m_session.mayEdit(page) && m_session.isUnreadable(key) && !m_session.isRepaired(key))
            return key;
    }
    return {};
}

void MainWindow::showAccess()
{
    AccessDialog(m_session, this).exec();
}

void MainWindow::findStoredProblems()
{
    m_storedProblems.clear();
    for (const SettingFinding &finding : m_session.findings()) {
        // A broken rule is judged by what is edited, and no page shows what the catalogue does not have.
        if (finding.problem != SettingProblem::Kind::BrokenRule && finding.address.isKnown())
            m_storedProblems.append(finding.address);
    }
    showProblems();
}

void MainWindow::showProblems()
{
    QVector<SettingAddress> problems = m_storedProblems;
    for (const SettingRules::Violation &violation : m_session.violations()) {
        for (const SettingAddress &address : {violation.lower, violation.upper}) {
            if (!problems.contains(address))
                problems.append(address);
        }
    }
    m_searchField->setProblematic(problems);
}

void MainWindow::showChanges()
{
    const QVector<SettingAddress> changed = m_session.changedAddresses();
    const int count = changed.count();
    m_searchField->setChanged(changed);
    showProblems();
    showUnreadable();
    setWindowModified(count > 0);
    m_bar->setChangeCount(count, m_session.conflicts().count());
    for (const SettingsPageName &page : settingsPages)
        m_list->setChanged(page.group, m_session.hasChanges(page.group));
}

void MainWindow::showNotice(const QString &words)
{
    m_notice->setText(words);
    m_notice->setVisible(!words.isNull());
}

void MainWindow::showHistory(const std::optional<SettingAddress> &address)
{
    HistoryDialog dialog(address, this);
    dialog.setAccess(m_session.access());
    connect(&dialog, &HistoryDialog::restoreRequested, this, &MainWindow::restore);
    const QPointer<HistoryDialog> shown(&dialog);
    const QString key = address ? address->key : QString();
    m_database.history(key, [shown](const DatabaseResult<QVector<HistoryRecord>> &read) {
        if (!shown)
            return;
        if (read.error)
            shown->setProblem(read.error->text());
        else
            shown->setRecords(read.value);
    });
    dialog.exec();
}

void MainWindow::restore(const SettingAddress &address, const QString &text)
{
    // What was stored once need not be right today.
    const auto judgement = SettingValue::judge(address, text, ObjectIndex(m_session.stored().objects));
    if (!judgement.stored) {
        SaveQuestions::refuseRestored(QApplication::activeModalWidget(), judgement.error);
        return;
    }
    edit(address, *judgement.stored);
    showParameter(address);
}

void MainWindow::repair(const QString &key)
{
    QString problem;
    for (const SettingFinding &finding : m_session.findings()) {
        if (finding.address.key == key && problem.isEmpty())
            problem = finding.words;
    }
    RepairDialog dialog(SettingAddress{key}.caption(), problem, m_session.stored().settings.value(key),
                        m_session.repairedText(key), this);
    const qint64 seen = m_session.stored().revisions.value(key);
    // Meanwhile somebody else may have stored something that nobody here has seen.
    if (dialog.exec() == QDialog::Accepted && m_session.stored().revisions.value(key) == seen)
        m_session.repair(key);
}

void MainWindow::importSettings()
{
    for (const SettingChange &change : m_files->chooseImported())
        edit(change.address, change.after);
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!m_save->mayLeave()) {
        event->ignore();
        return;
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
