#include "childprocess.h"
#include "host/testdatabase.h"
#include "messages.h"

#include <host/sampleinstallation.h>

#include <QImage>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr uid_t nobody = 65534;

/// The program, run without a display, in an environment without any settings of the person who tests.
class Program : public ChildProcess
{
public:
    explicit Program(const QStringList &arguments, const QStringList &variables = {})
    {
        QProcessEnvironment environment;
        for (const char *kept : {"PATH", "LSAN_OPTIONS", "UBSAN_OPTIONS"})
            environment.insert(kept, qEnvironmentVariable(kept));
        environment.insert("HOME", m_home.path());
        for (const QString &variable : variables)
            environment.insert(variable.section('=', 0, 0), variable.section('=', 1));
        setProcessEnvironment(environment);
        setProgram(MANAGER);
        setArguments(arguments);
    }

    /// The rights of root are no rights of a user.
    void runAsNobody() { m_asNobody = true; }

    /// The exit status; -1 if it crashed or did not end.
    int run()
    {
        start();
        const bool ended = waitForFinished(60000);
        out = QString::fromUtf8(readAllStandardOutput());
        err = QString::fromUtf8(readAllStandardError());
        return ended && exitStatus() == NormalExit ? exitCode() : -1;
    }

    QString home() const { return m_home.path(); }

    QString out;
    QString err;

protected:
    void prepareChild() override
    {
        if (m_asNobody && (setgroups(0, nullptr) != 0 || setgid(nobody) != 0 || setuid(nobody) != 0))
            _exit(99);
    }

private:
    QTemporaryDir m_home;
    bool m_asNobody = false;
};

void makeSample(const TestDatabase &database)
{
    Program program({"--render", database.folder() + "/pictures", "--database", database.path()});
    if (program.run() != 0)
        throw std::runtime_error(program.err.toStdString());
    QDir(database.folder() + "/pictures").removeRecursively();
}

const QStringList pictureNames = {
    "connection.png",           "database.png",        "employees.png",     "face-scanning.png",
    "fingerprint-scanning.png", "integration.png",     "mobile-id.png",     "palm-scanning.png",
    "pass-requests.png",        "scanning-common.png", "studio-mobile.png", "users.png"};
} // namespace

class TestProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void help();
    void version();
    void usageErrors_data();
    void usageErrors();
    void aWindowNeedsADisplay();
    void pictures_data();
    void pictures();
    void picturesShowTexts();
    void picturesAreAsLargeAsTheScale();
    void picturesThatCannotBeWritten();
    void aDatabaseIsCreatedWhereItIsWanted_data();
    void aDatabaseIsCreatedWhereItIsWanted();
    void selfTestOnACopy();
    void selfTestWithoutADatabase();
    void selfTestOnOddContent();
    void selfTestOnLockedPages();
    void badDatabases_data();
    void badDatabases();
    void withoutRights_data();
    void withoutRights();
    void secretsAreNotLogged();
};

void TestProgram::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestProgram::help()
{
    Program program({"--help"});
    QCOMPARE(program.run(), 0);
    QVERIFY2(program.out.contains("--self-test"), qPrintable(program.out));
    QVERIFY2(program.out.contains("Код завершения: 0 — выполнено, 1 — не выполнено, 2 — ошибка в командной строке, 5"),
             qPrintable(program.out));
    QCOMPARE(program.err, QString());
}

void TestProgram::version()
{
    Program program({"--version"});
    QCOMPARE(program.run(), 0);
    QVERIFY2(QRegularExpression("^vxsettings-manager \\d+\\.\\d+\\.\\d+\n$").match(program.out).hasMatch(),
             qPrintable(program.out));
    QCOMPARE(program.err, QString());
}

void TestProgram::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("unknown option") << QStringList{"--self-test", "--nonsense"};
    QTest::newRow("no database") << QStringList{"--self-test", "--database", ""};
    QTest::newRow("another kind of database") << QStringList{"--self-test", "--database", "mysql://host/name"};
}

void TestProgram::usageErrors()
{
    QFETCH(QStringList, arguments);
    Program program(arguments);
    QCOMPARE(program.run(), 2);
    QCOMPARE(program.out, QString());
    QVERIFY2(program.err.endsWith("Справка: vxsettings-manager --help\n"), qPrintable(program.err));
}

void TestProgram::aWindowNeedsADisplay()
{
    const TestDatabase database;
    Program program({"--database", database.path()});
    QCOMPARE(program.run(), 1);
    QVERIFY2(program.err.startsWith("Нет дисплея."), qPrintable(program.err));
    QCOMPARE(database.files(), QStringList());
}

void TestProgram::pictures_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << "light" << false;
    QTest::newRow("dark") << "dark" << true;
}

void TestProgram::pictures()
{
    QFETCH(QString, theme);
    QFETCH(bool, dark);
    const TestDatabase database;
    const QString folder = database.folder() + "/deep/pictures";
    Program program({"--render", folder, "--database", database.path(), "--theme", theme});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.err, QString());

    QStringList printed = program.out.split('\n', Qt::SkipEmptyParts);
    printed.sort();
    QCOMPARE(printed, QStringList(pictureNames).replaceInStrings(QRegularExpression("^"), folder + '/'));
    QCOMPARE(QDir(folder).entryList(QDir::Files), pictureNames);
    for (const QString &path : printed) {
        const QImage image(path);
        QVERIFY2(image.width() >= 960 && image.height() >= 80, qPrintable(path));
        QCOMPARE(image.pixelColor(2, 2).lightness() < 128, dark);
        QSet<QRgb> colours;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                colours.insert(image.pixel(x, y));
        }
        QVERIFY2(colours.count() > 20, qPrintable(path));
    }
}

void TestProgram::picturesShowTexts()
{
    const TestDatabase database;
    makeSample(database);
    const auto picture = [&](const QString &name) {
        const QString folder = database.folder() + "/" + name;
        Program program({"--render", folder, "--database", database.path()});
        return program.run() == 0 ? QImage(folder + "/connection.png") : QImage();
    };
    const QImage before = picture("before");
    database.store("PT_MOBILE_HOST", "x");
    const QImage after = picture("after");
    QVERIFY(!before.isNull() && !after.isNull());
    QCOMPARE(after.size(), before.size());
    QVERIFY(after != before);
}

void TestProgram::picturesAreAsLargeAsTheScale()
{
    const TestDatabase database;
    const auto size = [&](const QString &scale) {
        const QString folder = database.folder() + "/x" + scale;
        Program program({"--render", folder, "--database", database.path()}, {"QT_SCALE_FACTOR=" + scale});
        return program.run() == 0 ? QImage(folder + "/users.png").size() : QSize();
    };
    const QSize once = size("1");
    QVERIFY(!once.isEmpty());
    const QSize twice = size("2");
    QCOMPARE(twice.width(), 2 * once.width());
}

void TestProgram::picturesThatCannotBeWritten()
{
    const TestDatabase database;
    Program folder({"--render", "/proc/pictures", "--database", database.path()});
    QCOMPARE(folder.run(), 1);
    QCOMPARE(folder.err, QString("Не удаётся создать папку «/proc/pictures».\n"));

    QVERIFY(QDir(database.folder()).mkdir("users.png"));
    Program file({"--render", database.folder(), "--database", database.path()});
    QCOMPARE(file.run(), 1);
    QCOMPARE(file.err, QString("Не удаётся записать файл «%1/users.png».\n").arg(database.folder()));
}

void TestProgram::aDatabaseIsCreatedWhereItIsWanted_data()
{
    QTest::addColumn<QStringList>("arguments"); // %1 is a folder
    QTest::addColumn<QStringList>("variables");
    QTest::addColumn<QString>("path"); // %2 is the home folder
    QTest::newRow("command line") << QStringList{"--database", "%1/a/b.db"}
                                  << QStringList{"VXSETTINGS_DATABASE=%1/c.db"} << "%1/a/b.db";
    QTest::newRow("URL") << QStringList{"--database", "sqlite:%1/база данных.db"} << QStringList()
                         << "%1/база данных.db";
    QTest::newRow("environment") << QStringList() << QStringList{"VXSETTINGS_DATABASE=%1/c.db"} << "%1/c.db";
    QTest::newRow("data folder") << QStringList() << QStringList{"XDG_DATA_HOME=%1/data"}
                                 << "%1/data/vxsettings/installation.db";
    QTest::newRow("home") << QStringList() << QStringList() << "%2/.local/share/vxsettings/installation.db";
}

void TestProgram::aDatabaseIsCreatedWhereItIsWanted()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, variables);
    QFETCH(QString, path);
    const QTemporaryDir folder;
    arguments.replaceInStrings("%1", folder.path());
    variables.replaceInStrings("%1", folder.path());
    Program program(QStringList{"--render", folder.path() + "/pictures"} + arguments, variables);
    QCOMPARE(program.run(), 0);
    path.replace("%1", folder.path()).replace("%2", program.home());

    struct stat status = {};
    QCOMPARE(stat(path.toUtf8().constData(), &status), 0);
    QCOMPARE(status.st_mode & 0777u, 0600u);
    SqlConnection connection(DatabaseLocation::ofFile(path), SqlConnection::Mode::ReadOnly);
    QCOMPARE(connection.selectOne("SELECT count(*) FROM settings").toInt(), 41);
}

void TestProgram::selfTestOnACopy()
{
    const TestDatabase database;
    makeSample(database);
    const QByteArray before = database.bytes();
    Program program({"--self-test", "--database", database.path()});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.err, QString());
    QVERIFY2(program.out.contains("временной копии базы данных «" + database.path() + "»"), qPrintable(program.out));
    QVERIFY2(program.out.contains("верно:  изменено настроек: 40, замечено: 40\n"), qPrintable(program.out));
    QVERIFY2(program.out.endsWith("Самопроверка пройдена.\n"), qPrintable(program.out));
    QVERIFY(!program.out.contains("ОШИБКА"));
    QCOMPARE(database.bytes(), before);
    QCOMPARE(database.files(), QStringList{"installation.db"});
}

void TestProgram::selfTestWithoutADatabase()
{
    const TestDatabase database;
    Program program({"--self-test", "--database", database.path()});
    QCOMPARE(program.run(), 0);
    QVERIFY2(program.out.endsWith("Самопроверка пройдена.\n"), qPrintable(program.out));
    QCOMPARE(database.files(), QStringList());
}

void TestProgram::selfTestOnOddContent()
{
    const TestDatabase database;
    makeSample(database);
    database.store("PT_PIN_STRENGTH", "not JSON");
    database.store("PT_PASSWORD_STRENGTH", R"({"min_len": 3, "min_len": 4, "other": []})");
    database.store("PT_MAX_CARD_COUNT", "many");
    database.execute("DELETE FROM objects");
    database.execute("DELETE FROM settings WHERE key = 'PT_MOBILE_HOST'");
    const QByteArray before = database.bytes();
    Program program({"--self-test", "--database", database.path()});
    QCOMPARE(program.run(), 0);
    // There is nothing to choose on the three pages with objects.
    QVERIFY2(program.out.contains("верно:  изменено настроек: 37, замечено: 37\n"), qPrintable(program.out));
    QCOMPARE(database.bytes(), before);
}

void TestProgram::selfTestOnLockedPages()
{
    const TestDatabase database;
    makeSample(database);
    for (const char *access : {R"({"connection": false, "users": false})", "spoilt"}) {
        database.store("VX_PAGE_ACCESS", access);
        const QByteArray before = database.bytes();
        Program program({"--self-test", "--database", database.path()});
        QCOMPARE(program.run(), 0);
        QVERIFY2(program.out.contains("верно:  изменено настроек: 40, замечено: 40\n"), qPrintable(program.out));
        QCOMPARE(database.bytes(), before);
    }
}

void TestProgram::badDatabases_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const TestDatabase sample;
    makeSample(sample);
    const QByteArray good = sample.bytes();
    const TestDatabase foreign;
    foreign.setBytes({});
    foreign.execute("CREATE TABLE people(name TEXT)");

    QTest::newRow("text") << QByteArray("just a text\n") << "Файл не является базой данных SQLite.";
    QTest::newRow("empty") << QByteArray() << "Файл пуст.";
    QTest::newRow("cut off") << good.left(good.size() / 2) << "Файл базы данных повреждён";
    QTest::newRow("of another program") << foreign.bytes() << "Это база данных с другой схемой";
}

void TestProgram::badDatabases()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const TestDatabase database;
    database.setBytes(bytes);
    const QVector<QStringList> ways{{"--self-test"}, {"--render", database.folder() + "/pictures"}};
    for (const QStringList &way : ways) {
        Program program(way + QStringList{"--database", database.path()});
        QCOMPARE(program.run(), 5);
        QVERIFY2(program.err.startsWith("Не удаётся использовать базу данных «" + database.path() + "».\n" + reason),
                 qPrintable(program.err));
        QCOMPARE(program.err.count('\n'), 3);
        QCOMPARE(database.bytes(), bytes);
        QCOMPARE(database.files(), QStringList{"installation.db"});
    }
    // With a window that nobody sees there is no dialog that would wait for an answer.
    Program window({"--database", database.path()}, {"QT_QPA_PLATFORM=offscreen"});
    QCOMPARE(window.run(), 5);
    QCOMPARE(database.bytes(), bytes);
}

void TestProgram::withoutRights_data()
{
    QTest::addColumn<int>("fileMode");
    QTest::addColumn<int>("folderMode");
    QTest::addColumn<QString>("reason");
    QTest::newRow("file not readable") << 0000 << 0755 << "Нет прав на чтение файла.";
    QTest::newRow("file not writable") << 0444 << 0777 << "Файл доступен только для чтения.";
    QTest::newRow("folder not writable") << 0666 << 0555 << "Папка файла доступна только для чтения.";
    QTest::newRow("no file and no right to make one") << -1 << 0555 << "Не удаётся создать файл";
}

void TestProgram::withoutRights()
{
    QFETCH(int, fileMode);
    QFETCH(int, folderMode);
    QFETCH(QString, reason);
    const TestDatabase database;
    makeSample(database);
    const QByteArray before = database.bytes();
    if (fileMode < 0)
        QVERIFY(QFile::remove(database.path()));
    else
        QCOMPARE(chmod(database.path().toUtf8().constData(), mode_t(fileMode)), 0);
    QCOMPARE(chmod(database.folder().toUtf8().constData(), mode_t(folderMode)), 0);

    Program program({"--render", "/tmp", "--database", database.path()});
    if (geteuid() == 0) {
        program.runAsNobody();
        Program probe({"--version"});
        probe.runAsNobody();
        if (probe.run() != 0)
            QSKIP("the user \"nobody\" cannot reach the program");
    }
    QCOMPARE(program.run(), 5);
    QVERIFY2(program.err.startsWith("Не удаётся использовать базу данных «" + database.path() + "».\n" + reason),
             qPrintable(program.err));

    QCOMPARE(chmod(database.folder().toUtf8().constData(), 0755), 0);
    if (fileMode < 0) {
        QCOMPARE(database.files(), QStringList());
    } else {
        QCOMPARE(chmod(database.path().toUtf8().constData(), 0600), 0);
        QCOMPARE(database.bytes(), before);
        QCOMPARE(database.files(), QStringList{"installation.db"});
    }
}

void TestProgram::secretsAreNotLogged()
{
    const TestDatabase database;
    makeSample(database);
    database.store("PT_PASSWORD_DEF", "canary");
    database.store("PT_LOCKER_ACCESS_TOKEN", "canary");
    const QStringList arguments{"--self-test", "--render", database.folder() + "/pictures", "--database",
                                database.path()};
    Program quiet(arguments);
    QCOMPARE(quiet.run(), 0);
    QVERIFY(!(quiet.out + quiet.err).contains("canary"));

    Program asked(arguments, {"QT_LOGGING_RULES=gui.lib.dbsettings.debug=true"});
    QCOMPARE(asked.run(), 0);
    QVERIFY(asked.err.contains("canary"));
}

QTEST_MAIN(TestProgram)
#include "tst_program.moc"
