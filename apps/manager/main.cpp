#include "commandline.h"
#include "contextmenukey.h"
#include "exitstatus.h"
#include "manager.h"

#include <host/hostenvironment.h>
#include <host/translations.h>

#include <vxsettings/vxsettings_version.h>

#include <qtcompat.h>

#include <QApplication>
#include <QFont>
#include <QIcon>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

bool isOneOf(const char *argument, std::initializer_list<const char *> options)
{
    return std::any_of(options.begin(), options.end(),
                       [argument](const char *option) { return std::strncmp(argument, option, strlen(option)) == 0; });
}

QtMessageHandler nextHandler = nullptr;

/// Without a display the toolkit complains of every window that nobody will see.
void dropDisplaylessNoise(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    for (const char *noise : {"This plugin does not support", "QStandardPaths: XDG_RUNTIME_DIR not set"}) {
        if (text.startsWith(QLatin1String(noise)))
            return;
    }
    nextHandler(type, context, text);
}

void goWithoutDisplay()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    nextHandler = qInstallMessageHandler(dropDisplaylessNoise);
}

/// Whether there is a display for what is asked. Pages are drawn and tested, and help is given, without one. Asked
/// before there is an application, because that would end the program at once.
bool chooseDisplay(char **arguments, char **end)
{
    const bool isChosen = !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") ||
                          std::any_of(arguments, end, [](const char *a) { return isOneOf(a, {"-platform"}); });
    if (isChosen)
        return true;

    const bool wantsWindow = std::none_of(arguments, end, [](const char *argument) {
        return isOneOf(argument, {"--render", "--self-test", "--help", "-h", "--version", "-v"});
    });
    const bool hasDisplay = !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (!wantsWindow)
        goWithoutDisplay();
    return hasDisplay || !wantsWindow;
}

/// Follows the scale of the screen. Without a screen there is one only where QT_SCALE_FACTOR names it.
void followScreenScale()
{
    if (qgetenv("QT_QPA_PLATFORM") == "offscreen")
        return;
    qtcompat::useHighDpiScaling();
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

void nameApplication()
{
    QCoreApplication::setOrganizationName(QStringLiteral("vxsettings"));
    QCoreApplication::setApplicationName(QStringLiteral("vxsettings-manager"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VXSETTINGS_VERSION_STRING));
}

void setLanguage(Translations &translations)
{
    const QString wanted = CommandLine(QCoreApplication::arguments()).language();
    translations.setLanguage(Translations::preferred({wanted, Translations::remembered()}));
}

int refuseWithoutDisplay(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    Translations translations(QStringLiteral("vxsettings-manager"));
    setLanguage(translations);
    std::fprintf(stderr, "%s\n",
                 qPrintable(QCoreApplication::translate(
                     "Manager", "Нет дисплея. Без него доступны --render, --self-test, --help и --version.")));
    return ExitFailed;
}

void setUpApplication()
{
    // The project's drawings before those of the desktop, which may have another picture under one of these names.
    QIcon::setFallbackThemeName(QIcon::themeName());
    QIcon::setThemeName(QStringLiteral("vantorix"));
    // By this, desktops that draw windows themselves find the name and the picture of the program.
    QGuiApplication::setDesktopFileName(QStringLiteral("vxsettings-manager"));
    qApp->installEventFilter(new ContextMenuKey(qApp));
    // Where no desktop says how large texts are, they are larger than on any desktop.
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        QApplication::setFont(QFont(QStringLiteral("Sans Serif"), 10));
}
} // namespace

int main(int argc, char *argv[])
{
    HostEnvironment::prepare();
    nameApplication();
    if (!chooseDisplay(argv + 1, argv + argc))
        return refuseWithoutDisplay(argc, argv);
    followScreenScale();
    qtcompat::useHighDpiPixmaps();
    const QApplication app(argc, argv);
    setUpApplication();

    Translations translations(QStringLiteral("vxsettings-manager"));
    setLanguage(translations);
    const CommandLine commandLine(QCoreApplication::arguments());
    return Manager(commandLine, translations).run();
}
