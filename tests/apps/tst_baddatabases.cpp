#include "boundedprogram.h"
#include "host/testdatabase.h"
#include "messages.h"
#include "testrun.h"

#include <host/installationdatabase.h>
#include <host/sampleinstallation.h>
#include <host/settingsstore.h>

#include <QCoreApplication>
#include <QTest>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

/// Whatever is found in the place of a database: both programs and the host library either use it or say in words why
/// they cannot, in time, and leave it as it is.
class TestBadDatabases : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cutOff();
    void flippedBytes();
    void flippedBytesInThePrograms();
    void otherThings_data();
    void otherThings();
    void withoutRights_data();
    void withoutRights();

private:
    QByteArray m_good;
};

namespace {

constexpr int pageSize = 4096;

struct Way
{
    QString program;
    QStringList arguments;
};

/// All that reads, and one that writes. @p folder is for what is written elsewhere.
QVector<Way> ways(const QString &folder)
{
    return {
        {CTL, {"list"}},
        {CTL, {"check", "--repair"}},
        {CTL, {"export", "--with-secrets", folder + "/export.json"}},
        {CTL, {"set", "PT_MOBILE_PORT=1"}},
        {MANAGER, {"--self-test"}},
        {MANAGER, {"--render", folder + "/pictures"}},
    };
}

/// What became of a database in the host library.
struct HostUse
{
    std::optional<DatabaseError> loadError;
    std::optional<SaveResult> save;
    bool isRead = false; ///< after the save, with what was saved
};

/// Waits for what the callback of an asynchronous call is given.
template <typename Result, typename Call>
std::optional<Result> answer(const Call &call)
{
    std::optional<Result> result;
    call([&result](const Result &given) { result.emplace(given); });
    if (!QTest::qWaitFor([&result] { return result.has_value(); }, 30000))
        throw std::runtime_error("there was no answer in time");
    return result;
}

HostUse use(const TestDatabase &place)
{
    using Loaded = DatabaseResult<Installation>;
    InstallationDatabase database(DatabaseLocation::ofFile(place.path()));
    const auto loaded = answer<Loaded>([&](const auto &done) { database.load(done); });
    HostUse use;
    use.loadError = loaded->error;
    if (use.loadError)
        return use;

    const QString value = database.installation().settings.value("PT_MOBILE_PORT") == "1" ? "2" : "1";
    use.save = *answer<SaveResult>([&](const auto &done) {
        database.save({{"PT_MOBILE_PORT", value}}, database.installation(), {}, done);
    });
    const auto again = answer<Loaded>([&](const auto &done) { database.load(done); });
    use.isRead = !again->error && again->value.settings.value("PT_MOBILE_PORT") == value;
    return use;
}

bool isInWords(const DatabaseError &error, const TestDatabase &place)
{
    return error.path == place.path() && !error.reason.isEmpty() && !error.advice.isEmpty();
}

bool isInWords(const QByteArray &message, const TestDatabase &place)
{
    return message.contains(place.path().toUtf8()) && message.count('\n') >= 2;
}

/// An index that has lost a setting makes it look as if somebody had removed it.
bool isExplained(const SaveResult &result, const TestDatabase &place)
{
    return result.error ? isInWords(*result.error, place) : !result.conflicts.isEmpty();
}

/// What stands at a path, be it a file or not.
QByteArray outline(const QString &path)
{
    struct stat status = {};
    if (lstat(path.toUtf8().constData(), &status) != 0)
        return "nothing";
    QByteArray outline = QByteArray::number(status.st_mode, 8) + ' ' + QByteArray::number(qulonglong(status.st_ino));
    QFile file(path);
    if (S_ISREG(status.st_mode) && file.open(QIODevice::ReadOnly))
        outline += ' ' + file.readAll();
    return outline;
}

/// Everything in the folder of the database.
QByteArray outline(const TestDatabase &place)
{
    QByteArray all;
    for (const QString &file : place.files())
        all += file.toUtf8() + ' ' + outline(place.folder() + '/' + file) + '\n';
    return all;
}

void makeSocket(const QString &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, path.toUtf8().constData(), sizeof(address.sun_path));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const bool isMade = ::bind(socket, reinterpret_cast<sockaddr *>(&address), sizeof(address)) == 0;
    ::close(socket);
    if (!isMade)
        throw std::runtime_error("no socket");
}

void make(const QString &what, const TestDatabase &place, const QByteArray &good)
{
    const QByteArray path = place.path().toUtf8();
    if (what == "folder")
        QDir().mkdir(place.path());
    if (what == "pipe")
        mkfifo(path.constData(), 0600);
    if (what == "socket")
        makeSocket(place.path());
    if (what == "endless device")
        QFile::link("/dev/zero", place.path());
    if (what == "empty device")
        QFile::link("/dev/null", place.path());
    if (what == "link to itself")
        QFile::link(place.path(), place.path());
    if (what == "empty")
        place.setBytes({});
    if (what == "of another program") {
        place.setBytes({});
        place.execute("CREATE TABLE settings(name TEXT, content BLOB)");
    }
    if (what.startsWith("future schema") || what.contains(" beside ")) {
        place.setBytes(good);
        if (what.startsWith("future schema"))
            place.execute("PRAGMA user_version = 1000");
    }
    for (const QString suffix : {"-wal", "-journal", "-shm"}) {
        if (what == "pipe beside it, " + suffix)
            mkfifo((path + suffix.toUtf8()).constData(), 0600);
        if (what == "folder beside it, " + suffix)
            QDir().mkdir(place.path() + suffix);
    }
}
} // namespace

void TestBadDatabases::initTestCase()
{
    failOnUnexpectedMessages();
    const TestDatabase sample;
    QVERIFY(!SettingsStore::create(DatabaseLocation::ofFile(sample.path()), SampleInstallation::make()));
    m_good = sample.bytes();
    QVERIFY(use(sample).isRead);
    m_good = sample.bytes(); // with a row of history
    QVERIFY(m_good.size() > 10 * pageSize && m_good.size() % pageSize == 0);
}

void TestBadDatabases::cutOff()
{
    int refused = 0;
    for (int size = 0; size < m_good.size(); size += pageSize / 2) {
        const TestDatabase place;
        place.setBytes(m_good.left(size));
        const QByteArray before = outline(place);
        const HostUse host = use(place);
        QVERIFY2(host.loadError && isInWords(*host.loadError, place), qPrintable(QString::number(size)));
        QCOMPARE(outline(place), before);
        for (const Way &way : ways(place.folder() + "/no-such-folder").mid(3, 2)) {
            BoundedProgram program(way.program, way.arguments, place.path());
            QCOMPARE(program.run(), 5);
            QVERIFY2(isInWords(program.err, place), program.err);
            QCOMPARE(outline(place), before);
        }
        ++refused;
    }
    qInfo("%d pages, cut off at %d sizes: every time refused in words and left as it was",
          int(m_good.size()) / pageSize, refused);
}

void TestBadDatabases::flippedBytes()
{
    const quint32 seed = testrun::seed();
    QRandomGenerator random(seed);
    int refused = 0, saved = 0, failed = 0;
    const int count = testrun::times(100);
    for (int i = 0; i < count; ++i) {
        QByteArray bytes = m_good;
        const int position = random.bounded(bytes.size());
        bytes[position] = char(bytes[position] ^ random.bounded(1, 256));
        const QByteArray about = QStringLiteral("seed %1, byte %2").arg(seed).arg(position).toUtf8();
        const TestDatabase place;
        place.setBytes(bytes);

        const HostUse host = use(place);
        if (host.loadError) {
            QVERIFY2(isInWords(*host.loadError, place), about);
            QVERIFY2(place.bytes() == bytes, about);
            QCOMPARE(place.files(), QStringList{"installation.db"});
            ++refused;
        } else if (host.save->isDone()) {
            QVERIFY2(host.isRead, about);
            ++saved;
        } else {
            QVERIFY2(isExplained(*host.save, place), about);
            QVERIFY2(place.bytes() == bytes, about);
            ++failed;
        }
    }
    qInfo("seed %u: of %d databases with one byte flipped %d were refused, %d failed to save, all left as they were; "
          "%d could be used",
          seed, count, refused, failed, saved);
    QVERIFY(saved > 0);
}

void TestBadDatabases::flippedBytesInThePrograms()
{
    const quint32 seed = testrun::seed();
    QRandomGenerator random(seed);
    int refused = 0, used = 0;
    const int count = testrun::times(10);
    for (int i = 0; i < count; ++i) {
        QByteArray bytes = m_good;
        const int position = random.bounded(bytes.size());
        bytes[position] = char(bytes[position] ^ random.bounded(1, 256));
        const TestDatabase place;
        place.setBytes(bytes);
        for (const Way &way : ways(place.folder())) {
            const QByteArray before = place.bytes();
            BoundedProgram program(way.program, way.arguments, place.path());
            const int status = program.run();
            const QByteArray about =
                QStringLiteral("seed %1, byte %2: %3 ").arg(seed).arg(position).arg(status).toUtf8() + program.err;
            QVERIFY2(status >= 0 && status <= 5, about);
            if (status == 5) {
                // A self-test says first of what it makes its copy, and then what is wrong with the copy.
                QVERIFY2(isInWords(program.out + program.err, place), about);
                QVERIFY2(place.bytes() == before, about);
            }
            (status == 5 ? refused : used) += 1;
        }
    }
    qInfo("seed %u: %d databases with one byte flipped: programs refused them %d times in words and left them as they "
          "were, used them %d times",
          seed, count, refused, used);
}

void TestBadDatabases::otherThings_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what :
         {"folder", "pipe", "socket", "endless device", "empty device", "link to itself", "empty", "of another program",
          "future schema", "pipe beside it, -wal", "pipe beside it, -journal", "pipe beside it, -shm",
          "folder beside it, -wal", "folder beside it, -journal", "folder beside it, -shm"})
        QTest::newRow(what) << what;
}

void TestBadDatabases::otherThings()
{
    QFETCH(QString, what);
    const TestDatabase place;
    make(what, place, m_good);
    const QByteArray before = outline(place);

    const HostUse host = use(place);
    QVERIFY(host.loadError && isInWords(*host.loadError, place));
    QCOMPARE(outline(place), before);
    const QTemporaryDir elsewhere;
    for (const Way &way : ways(elsewhere.path())) {
        BoundedProgram program(way.program, way.arguments, place.path());
        QCOMPARE(program.run(), 5);
        QVERIFY2(isInWords(program.err, place), program.err);
        QCOMPARE(outline(place), before);
    }
    BoundedProgram init(CTL, {"init"}, place.path());
    QCOMPARE(init.run(), 5);
    QVERIFY2(isInWords(init.err, place), init.err);
}

void TestBadDatabases::withoutRights_data()
{
    QTest::addColumn<int>("fileMode");
    QTest::addColumn<int>("folderMode");
    QTest::newRow("file not readable") << 0000 << 0777;
    QTest::newRow("file not writable") << 0444 << 0777;
    QTest::newRow("folder not writable") << 0666 << 0555;
    QTest::newRow("folder not searchable") << 0666 << 0666;
    QTest::newRow("neither writable") << 0444 << 0555;
}

void TestBadDatabases::withoutRights()
{
    QFETCH(int, fileMode);
    QFETCH(int, folderMode);
    const TestDatabase place;
    BoundedProgram probe(CTL, {"--version"}, place.path());
    probe.runAsNobody();
    probe.setWorkingDirectory("/");
    if (geteuid() == 0 && probe.run() != 0)
        QSKIP("the user \"nobody\" cannot reach the programs");

    place.setBytes(m_good);
    const QByteArray folder = place.folder().toUtf8();
    QCOMPARE(chmod(place.path().toUtf8().constData(), mode_t(fileMode)), 0);
    QCOMPARE(chmod(folder.constData(), mode_t(folderMode)), 0);

    for (const Way &way : ways("/tmp/no-such-folder")) {
        // Nobody can tell a file in there from one that is not there, and without one there is another self-test.
        if (folderMode == 0666 && way.arguments.contains("--self-test"))
            continue;
        BoundedProgram program(way.program, way.arguments, place.path());
        if (geteuid() == 0)
            program.runAsNobody();
        program.setWorkingDirectory("/");
        QCOMPARE(program.run(), 5);
        QVERIFY2(program.err.contains(place.path().toUtf8()), program.err);
    }
    QCOMPARE(chmod(folder.constData(), 0755), 0);
    QCOMPARE(chmod(place.path().toUtf8().constData(), 0600), 0);
    QVERIFY(place.bytes() == m_good);
    QCOMPARE(place.files(), QStringList{"installation.db"});
}

QTEST_MAIN(TestBadDatabases)
#include "tst_baddatabases.moc"
