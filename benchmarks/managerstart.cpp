#include "commandline.h"
#include "manager.h"
#include "startstopwatch.h"

#include <host/databaselocation.h>
#include <host/hostenvironment.h>
#include <host/installationdatabase.h>
#include <host/sampleinstallation.h>
#include <host/translations.h>

#include <vxsettings/dbkeys.h>

#include <QApplication>
#include <QEventLoop>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

// How long a person waits for the manager, from the start of its process until the window is on the screen, until pages
// can be chosen in it, and until the first page is painted. The process is this program once more, with the manager
// inside. Files are in the system's cache.
//
//   managerstart     milliseconds, medians, for installations of several sizes

namespace {

using Clock = StartStopwatch::Clock;
using Times = std::vector<double>;

constexpr int starts = 15;
constexpr unsigned int firstUid = 1000000;
constexpr unsigned int objectsOfOne = 50; // below each

Installation installation(int objectCount)
{
    Installation installation = SampleInstallation::make();
    QVector<vantorix::ObjectRecord> &objects = installation.objects[vantorix::ORGSTRUCTURE_DATANAME];
    const int known = objects.count();
    const unsigned int root = objects.first().uid;
    for (unsigned int i = 0; int(i) < objectCount - known; ++i) {
        const unsigned int parent = i == 0 ? root : firstUid + (i - 1) / objectsOfOne;
        objects.append({firstUid + i, parent, db::orgstructure::DEPARTMENT, QStringLiteral("Отдел %1").arg(i), true});
    }
    return installation;
}

bool create(const QString &path, int objectCount)
{
    InstallationDatabase database(DatabaseLocation::ofFile(path));
    QEventLoop wait;
    bool isDone = false;
    database.create(installation(objectCount), [&](const DatabaseResult<int> &created) {
        isDone = !created.error;
        wait.quit();
    });
    wait.exec();
    return isDone;
}

/// The milestones of one start; empty if it did not come so far.
Times start(const QString &database)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {database, QString::number(Clock::now().time_since_epoch().count())});
    process.waitForFinished();
    Times times;
    for (const QByteArray &time : process.readAllStandardOutput().simplified().split(' '))
        times.push_back(time.toDouble());
    return times.size() == StartStopwatch::milestones ? times : Times();
}

double median(Times times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

bool measure(const char *title, const QString &database)
{
    std::vector<Times> columns(StartStopwatch::milestones);
    for (int i = 0; i < starts; ++i) {
        const Times times = start(database);
        if (times.empty())
            return false;
        for (int milestone = 0; milestone < StartStopwatch::milestones; ++milestone)
            columns[milestone].push_back(times[milestone]);
    }
    std::printf("%-44s", title);
    for (const Times &column : columns)
        std::printf(" %9.0f", median(column));
    std::printf("\n");
    return true;
}

int measureAll()
{
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path()));
    const QString few = folder.filePath(QStringLiteral("few.db"));
    const QString many = folder.filePath(QStringLiteral("many.db"));
    if (!create(few, 0) || !create(many, 100000))
        return 1;
    std::printf("%-44s %9s %9s %9s\n", "start of the manager, milliseconds", "window", "usable", "page");
    bool isDone = measure("the sample installation", few) && measure("100,000 objects", many);
    // Where the person was when the manager was closed.
    QSettings(folder.filePath(QStringLiteral("vxsettings/vxsettings-manager.conf")), QSettings::NativeFormat)
        .setValue(QStringLiteral("window/page"), QStringLiteral("integration"));
    isDone = isDone && measure("100,000 objects, on a page that shows them", many);
    return isDone ? 0 : 1;
}

int showManager(const QString &database, Clock::time_point start)
{
    StartStopwatch stopwatch(start);
    Translations translations(QStringLiteral("vxsettings-manager"));
    const CommandLine commandLine({QCoreApplication::applicationFilePath(), QStringLiteral("--database"), database,
                                   QStringLiteral("--theme"), QStringLiteral("light")});
    const int status = Manager(commandLine, translations).run();
    for (const double time : stopwatch.reached())
        std::printf("%f ", time);
    return status;
}
} // namespace

int main(int argc, char *argv[])
{
    HostEnvironment::prepare();
    QCoreApplication::setOrganizationName(QStringLiteral("vxsettings"));
    QCoreApplication::setApplicationName(QStringLiteral("vxsettings-manager"));
    const QApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.count() < 3)
        return measureAll();
    return showManager(arguments[1], Clock::time_point(Clock::duration(arguments[2].toLongLong())));
}
