#include <host/databasefile.h>

#include "messages.h"
#include "testdatabase.h"

#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr uid_t nobody = 65534;

/// For its lifetime, a program of root has the rights of nobody, or meets them where it asks whether it has rights.
class RightsOfNobody
{
public:
    enum class Where { WhenAsking, WhenActing };

    explicit RightsOfNobody(Where where)
    {
        const uid_t unchanged = uid_t(-1);
        const bool isAsking = where == Where::WhenAsking;
        if (geteuid() == 0 && setreuid(isAsking ? nobody : unchanged, isAsking ? unchanged : nobody) != 0)
            throw std::runtime_error("the rights cannot be given up");
    }
    ~RightsOfNobody()
    {
        if (getuid() != geteuid() && (seteuid(0) != 0 || setreuid(0, 0) != 0))
            qFatal("the rights cannot be taken back");
    }
    Q_DISABLE_COPY(RightsOfNobody)
};
} // namespace

class TestDatabaseFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void problem_data();
    void problem();
    void aFileThatStartsLikeADatabaseHasNone();
    void rightsThatAreMissingAreAProblem_data();
    void rightsThatAreMissingAreAProblem();
    void aFileThatCannotBeReadAfterAllIsNoDatabase();
    void aPipeInThePlaceOfALogIsAProblem_data();
    void aPipeInThePlaceOfALogIsAProblem();
    void createdFileBelongsToItsOwnerAlone();
    void createdFileAppearsWhenItIsComplete();
    void foldersAreMade();
    void failedFillLeavesNothing();
    void aFileThatAppearedMeanwhileStays();
    void aDraftThatIsTakenAwayIsAnError();
    void aLogOfAnotherDatabaseIsNotTakenIn_data();
    void aLogOfAnotherDatabaseIsNotTakenIn();
    void createFails_data();
    void createFails();
};

void TestDatabaseFile::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestDatabaseFile::problem_data()
{
    QTest::addColumn<QString>("make"); // what stands at the path
    QTest::addColumn<QString>("reason");

    QTest::newRow("folder") << "folder"
                            << "Это папка, а не файл.";
    QTest::newRow("link to nowhere") << "link"
                                     << "Файла, на который указывает ссылка, нет.";
    QTest::newRow("pipe") << "pipe"
                          << "Это не обычный файл.";
    QTest::newRow("empty file") << "empty"
                                << "Файл пуст.";
    QTest::newRow("text file") << "text"
                               << "Файл не является базой данных SQLite.";
    QTest::newRow("shorter than a signature") << "short"
                                              << "Файл не является базой данных SQLite.";
}

void TestDatabaseFile::problem()
{
    QFETCH(QString, make);
    const TestDatabase place;
    if (make == "folder")
        QVERIFY(QDir().mkdir(place.path()));
    else if (make == "link")
        QVERIFY(QFile::link(place.folder() + "/nowhere", place.path()));
    else if (make == "pipe")
        QCOMPARE(mkfifo(place.path().toUtf8().constData(), 0600), 0);
    else
        place.setBytes(make == "text" ? "[settings]\nthis is a text file\n" : make == "short" ? "SQLite" : "");

    const DatabaseFile file(place.path());
    QVERIFY(file.exists());
    const auto problem = file.problem();
    QVERIFY(problem);
    QTEST(problem->reason, "reason");
    QCOMPARE(problem->path, place.path());
    QVERIFY(!problem->advice.isEmpty());
    QVERIFY(problem->text().contains(place.path()));
    QCOMPARE(place.files(), QStringList{"installation.db"});
}

void TestDatabaseFile::aFileThatStartsLikeADatabaseHasNone()
{
    const TestDatabase place;
    place.setBytes(QByteArray("SQLite format 3\0 and so on", 26));
    QVERIFY(!DatabaseFile(place.path()).problem());
}

void TestDatabaseFile::rightsThatAreMissingAreAProblem_data()
{
    QTest::addColumn<int>("ofFile");
    QTest::addColumn<int>("ofFolder");
    QTest::addColumn<QString>("reason");
    QTest::newRow("file that cannot be read") << 0200 << 0700 << "Нет прав на чтение файла.";
    QTest::newRow("file that cannot be written") << 0400 << 0700 << "Файл доступен только для чтения.";
    QTest::newRow("folder that cannot be written") << 0600 << 0500 << "Папка файла доступна только для чтения.";
    QTest::newRow("nothing is missing") << 0600 << 0700 << "";
}

void TestDatabaseFile::rightsThatAreMissingAreAProblem()
{
    QFETCH(int, ofFile);
    QFETCH(int, ofFolder);
    QFETCH(QString, reason);
    const TestDatabase place;
    place.setBytes(QByteArray("SQLite format 3\0 and so on", 26));
    for (const auto &[path, mode] : {std::pair(place.path(), ofFile), std::pair(place.folder(), ofFolder)}) {
        const QByteArray name = path.toUtf8();
        QVERIFY(geteuid() != 0 || chown(name.constData(), nobody, gid_t(-1)) == 0);
        QCOMPARE(chmod(name.constData(), mode_t(mode)), 0);
    }
    {
        const RightsOfNobody rights(RightsOfNobody::Where::WhenAsking);
        const auto problem = DatabaseFile(place.path()).problem();
        QCOMPARE(problem ? problem->reason : QString(), reason);
    }
    QCOMPARE(chmod(place.folder().toUtf8().constData(), 0700), 0);
}

void TestDatabaseFile::aFileThatCannotBeReadAfterAllIsNoDatabase()
{
    if (geteuid() != 0)
        QSKIP("Only root can have rights and lack them");
    const TestDatabase place;
    place.setBytes(QByteArray("SQLite format 3\0 and so on", 26));
    QCOMPARE(chmod(place.folder().toUtf8().constData(), 0755), 0);
    QCOMPARE(chmod(place.path().toUtf8().constData(), 0600), 0);
    const RightsOfNobody rights(RightsOfNobody::Where::WhenActing);
    const auto problem = DatabaseFile(place.path()).problem();
    QVERIFY(problem);
    QCOMPARE(problem->reason, QString("Файл не является базой данных SQLite."));
}

void TestDatabaseFile::aPipeInThePlaceOfALogIsAProblem_data()
{
    QTest::addColumn<QString>("suffix");
    for (const char *suffix : {"-wal", "-journal", "-shm"})
        QTest::newRow(suffix) << suffix;
}

void TestDatabaseFile::aPipeInThePlaceOfALogIsAProblem()
{
    QFETCH(QString, suffix);
    const TestDatabase place;
    place.setBytes(QByteArray("SQLite format 3\0 and so on", 26));
    QCOMPARE(mkfifo((place.path() + suffix).toUtf8().constData(), 0600), 0);
    const auto problem = DatabaseFile(place.path()).problem();
    QVERIFY(problem);
    QCOMPARE(problem->path, place.path());
    QVERIFY2(problem->reason.contains(place.path() + suffix), qPrintable(problem->reason));
}

void TestDatabaseFile::createdFileBelongsToItsOwnerAlone()
{
    const TestDatabase place;
    const auto error = DatabaseFile(place.path()).create([](const QString &path) -> std::optional<DatabaseError> {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write("x") == 1 ? std::nullopt
                                                                       : std::make_optional(DatabaseError());
    });
    QVERIFY(!error);
    QCOMPARE(place.bytes(), QByteArray("x"));
    struct stat status = {};
    QCOMPARE(stat(place.path().toUtf8().constData(), &status), 0);
    QCOMPARE(status.st_mode & 0777u, 0600u);
    QCOMPARE(place.files(), QStringList{"installation.db"});
}

void TestDatabaseFile::createdFileAppearsWhenItIsComplete()
{
    const TestDatabase place;
    bool existed = true;
    const auto error = DatabaseFile(place.path()).create([&](const QString &path) {
        existed = QFileInfo::exists(place.path());
        return path == place.path() ? std::make_optional(DatabaseError()) : std::nullopt;
    });
    QVERIFY(!error);
    QVERIFY(!existed);
    QVERIFY(QFileInfo::exists(place.path()));
}

void TestDatabaseFile::foldersAreMade()
{
    const TestDatabase place;
    const QString path = place.folder() + "/a/б/c.db";
    QVERIFY(!DatabaseFile(path).create([](const QString &) { return std::nullopt; }));
    QVERIFY(QFileInfo::exists(path));
}

void TestDatabaseFile::failedFillLeavesNothing()
{
    const TestDatabase place;
    const auto error = DatabaseFile(place.path()).create([&](const QString &) -> std::optional<DatabaseError> {
        return DatabaseError{place.path(), "the reason", {}};
    });
    QVERIFY(error);
    QCOMPARE(error->reason, QString("the reason"));
    QCOMPARE(place.files(), QStringList());
}

void TestDatabaseFile::aFileThatAppearedMeanwhileStays()
{
    const TestDatabase place;
    const auto error = DatabaseFile(place.path()).create([&](const QString &) {
        place.setBytes("of somebody else");
        return std::nullopt;
    });
    QVERIFY(error);
    QCOMPARE(error->kind, DatabaseError::Kind::Exists);
    QCOMPARE(place.bytes(), QByteArray("of somebody else"));
    QCOMPARE(place.files(), QStringList{"installation.db"});
}

void TestDatabaseFile::aDraftThatIsTakenAwayIsAnError()
{
    const TestDatabase place;
    const auto error = DatabaseFile(place.path()).create([](const QString &path) {
        return QFile::remove(path) ? std::nullopt : std::make_optional(DatabaseError());
    });
    QVERIFY(error);
    QVERIFY2(error->reason.startsWith("Не удаётся создать файл"), qPrintable(error->reason));
    QCOMPARE(error->kind, DatabaseError::Kind::Refused);
    QCOMPARE(place.files(), QStringList());
}

void TestDatabaseFile::aLogOfAnotherDatabaseIsNotTakenIn_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::newRow("write-ahead log") << "-wal";
    QTest::newRow("rollback journal") << "-journal";
}

void TestDatabaseFile::aLogOfAnotherDatabaseIsNotTakenIn()
{
    QFETCH(QString, suffix);
    const QTemporaryDir folder;
    const QString path = folder.filePath("installation.db");
    QFile log(path + suffix);
    QVERIFY(log.open(QIODevice::WriteOnly));
    log.write("last changes");
    log.close();

    const auto error = DatabaseFile(path).create([](const QString &) -> std::optional<DatabaseError> {
        QTest::qFail("nothing is to be made", __FILE__, __LINE__);
        return {};
    });
    QVERIFY(error);
    QVERIFY(error->text().contains(path + suffix));
    QVERIFY(!QFile::exists(path));
    QVERIFY(log.open(QIODevice::ReadOnly));
    QCOMPARE(log.readAll(), QByteArray("last changes"));
}

void TestDatabaseFile::createFails_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");

    QTest::newRow("a file where a folder should be") << "%1/file/x.db"
                                                     << "Не удаётся создать папку";
    QTest::newRow("a folder where nothing can be made") << "/proc/x.db"
                                                        << "Не удаётся создать файл";
}

void TestDatabaseFile::createFails()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    const TestDatabase place;
    QFile file(place.folder() + "/file");
    QVERIFY(file.open(QIODevice::WriteOnly));

    const auto error =
        DatabaseFile(path.replace("%1", place.folder())).create([](const QString &) { return std::nullopt; });
    QVERIFY(error);
    QVERIFY2(error->reason.startsWith(reason), qPrintable(error->reason));
    QCOMPARE(place.files(), QStringList{"file"});
}

QTEST_MAIN(TestDatabaseFile)
#include "tst_databasefile.moc"
