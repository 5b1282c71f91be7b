#include "manager.h"

#include "commandline.h"
#include "desktopappearance.h"
#include "draftkeeper.h"
#include "exitstatus.h"
#include "mainwindow.h"
#include "pagepictures.h"
#include "savequestions.h"
#include "selftest.h"
#include "sessionwait.h"

#include <host/settingsdraft.h>

#include <QApplication>
#include <QTimer>

#include <optional>

namespace {

/// Whether somebody could see a window.
bool hasScreen()
{
    return QGuiApplication::platformName() != QLatin1String("offscreen") &&
           QGuiApplication::platformName() != QLatin1String("minimal");
}
} // namespace

Manager::Manager(const CommandLine &commandLine, Translations &translations)
    : m_commandLine(commandLine)
    , m_translations(translations)
    , m_location(DatabaseLocation::chosen(commandLine.database()))
    , m_database(m_location, InstallationDatabase::Missing::CreateSample)
    , m_session(m_database)
    , m_out(stdout)
    , m_err(stderr)
{}

int Manager::run()
{
    if (m_commandLine.isHelpWanted()) {
        m_out << m_commandLine.helpText();
        return ExitDone;
    }
    if (m_commandLine.isVersionWanted()) {
        m_out << QStringLiteral("vxsettings-manager %1\n").arg(QCoreApplication::applicationVersion());
        return ExitDone;
    }
    if (!m_commandLine.error().isNull())
        return usageError(m_commandLine.error());
    if (!m_location.isValid())
        return usageError(m_location.problem());

    // Pictures look alike whatever the person at the screen likes.
    const Theme::Kind usual = m_commandLine.isWindowWanted() ? Theme::remembered() : Theme::Kind::System;
    Theme::apply(m_commandLine.theme().value_or(usual));
    if (m_commandLine.isSelfTestWanted()) {
        const ExitStatus status = SelfTest(m_location, m_out, m_err).run();
        if (status != ExitDone || m_commandLine.pictureFolder().isNull())
            return status;
    }
    return m_commandLine.isWindowWanted() ? showWindow() : drawPages();
}

int Manager::usageError(const QString &message)
{
    m_err << message << '\n' << tr("Справка: vxsettings-manager --help") << '\n';
    return ExitUsage;
}

int Manager::databaseError(const DatabaseError &error)
{
    m_err << error.text() << '\n';
    m_err.flush();
    if (m_commandLine.isWindowWanted() && hasScreen() && error.kind != DatabaseError::Kind::Cancelled)
        SaveQuestions::showError(nullptr, error);
    return ExitDatabase;
}

int Manager::drawPages()
{
    if (auto error = SessionWait::load(m_session))
        return databaseError(*error);
    return PagePictures::write(m_session, m_commandLine.pictureFolder(), m_out, m_err) ? ExitDone : ExitFailed;
}

int Manager::showWindow()
{
    MainWindow window(m_database, m_session, &m_translations);
    SettingsDraft draft(m_location);
    std::optional<DraftKeeper> keeper;
    const QObject whileShown; // goes before what the handler uses
    QObject::connect(&m_session, &SettingsSession::loaded, &whileShown, [&] {
        m_database.watch();
        keeper.emplace(draft, m_session, window); // clazy:exclude=lambda-in-connect
        // Once the page can be seen, and the box lies over it.
        QTimer::singleShot(0, &*keeper, &DraftKeeper::offer);
    });
    QObject::connect(&m_session, &SettingsSession::failed, &window,
                     [this](const DatabaseError &error) { QApplication::exit(databaseError(error)); });
    const DesktopAppearance desktop;
    QObject::connect(&desktop, &DesktopAppearance::told, &window, &Theme::followDesktop);
    window.show();
    m_session.load();
    const int status = QApplication::exec();
    if (keeper)
        keeper->drop();
    return status;
}
