// A host program that knows the styles library only through another library. It starts in the way that its first
// argument names, prints what it finds and every message of the toolkit, a line each, and saves the icon it draws as
// its second argument.

#include "iconlibrary.h"

#include <qtcompat.h>

#include <QGuiApplication>
#include <QIcon>
#include <QTextStream>

static void report(const QString &line)
{
    QTextStream(stdout) << line << '\n';
}

static void reportMessage(QtMsgType, const QMessageLogContext &, const QString &text)
{
    report("message " + text);
}

static int runWithoutGui(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    report("theme " + QIcon::themeName());
    report("fallback " + QIcon::fallbackThemeName());
    return 0;
}

static int runWithGui(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    report("theme " + QIcon::themeName());
    report("fallback " + QIcon::fallbackThemeName());
    report(QString("search paths %1").arg(QIcon::themeSearchPaths().count(":/icons")));
    report(QString("fallback paths %1").arg(QIcon::fallbackSearchPaths().count()));

    const QPixmap pixmap = themeIconPixmap("common-db");
    report(QString("pixmap %1x%2 at %3").arg(pixmap.width()).arg(pixmap.height()).arg(pixmap.devicePixelRatio()));
    return pixmap.save(application.arguments().value(2)) ? 0 : 1;
}

int main(int argc, char **argv)
{
    qInstallMessageHandler(reportMessage);
    const QByteArray start = argc > 1 ? argv[1] : "";
    if (start == "without-gui")
        return runWithoutGui(argc, argv);
    if (start == "own-icons") {
        QIcon::setThemeName("hosttheme");
        QIcon::setFallbackThemeName("hostfallback");
        QIcon::setThemeSearchPaths({":/hostthemes"});
        QIcon::setFallbackSearchPaths({":/hosticons"});
    }
    if (start == "hicolor-fallback")
        QIcon::setFallbackThemeName("hicolor");
    if (start == "high-dpi-pixmaps")
        qtcompat::useHighDpiPixmaps();
    if (start == "second-application")
        delete new QGuiApplication(argc, argv);
    return runWithGui(argc, argv);
}
