#include "boundedprogram.h"
#include "host/editors.h"
#include "host/testdatabase.h"
#include "loggingrules.h"
#include "messages.h"
#include "secretsearch.h"

#include <host/installationdatabase.h>
#include <host/sampleinstallation.h>
#include <host/settingssession.h>
#include <host/settingsstore.h>

#include <vxsettings/dbkeys.h>

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QUuid>

/// A secret that cannot be anywhere by chance, entered in every way, and looked for everywhere.
class TestCanary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void whatIsPlantedIsFound();
    void enteredByStandardInput();
    void enteredByAFile();
    void enteredOnAPage();
    void refused_data();
    void refused();
    void notRestored();
    void replacedByStandardInput();
    void replacedOnAPage();

private:
    const LoggingRules m_asInAHost{QStringLiteral("gui.lib.dbsettings.debug=false")};
};

namespace {

using db::database::PASSWORD_DEF;

const QString allMessages = QStringLiteral("*.debug=true");
/// The editors write every value they are given; only who asks for this category is to see it.
const QString allButEditors = QStringLiteral("*.debug=true\ngui.lib.dbsettings.debug=false");

/// Long, so that a shorter text in its place does not cover all of it.
QString newCanary()
{
    QString canary;
    for (int i = 0; i < 6; ++i)
        canary += QUuid::createUuid().toString(QUuid::Id128);
    return canary;
}

/// A database, a home and a place for temporary files, and the programs that are run there.
class Place
{
public:
    Place()
        : search(canary)
    {
        for (const char *folder : {"store", "home", "tmp", "out"})
            QDir(m_root.path()).mkdir(folder);
        if (SettingsStore::create(DatabaseLocation::ofFile(databasePath()), SampleInstallation::make()))
            throw std::runtime_error("no database");
    }

    QString folder(const QString &name) const { return m_root.filePath(name); }
    QString databasePath() const { return m_root.filePath("store/installation.db"); }

    /// The exit status; everything that was printed is kept.
    int ctl(const QStringList &arguments, const QByteArray &input = {})
    {
        BoundedProgram program(CTL, arguments, databasePath());
        prepare(program, allMessages);
        program.start();
        // The program waits for its input, and its arguments are there for everybody to see.
        if (!program.waitForStarted() || !search.processes().isEmpty())
            throw std::runtime_error("the secret is an argument");
        const int status = program.finish(input);
        printed += program.out + program.err;
        return status;
    }
    int manager(const QStringList &arguments)
    {
        BoundedProgram program(MANAGER, arguments, databasePath());
        prepare(program, allButEditors.split('\n').join(';'));
        const int status = program.run();
        printed += program.out + program.err;
        return status;
    }

    /// Runs everything that reads the database and tells of it.
    void tellEverything()
    {
        const QVector<QStringList> commands = {{"list"},
                                               {"list", "--json"},
                                               {"list", "users"},
                                               {"get", PASSWORD_DEF},
                                               {"get", PASSWORD_DEF, "--json"},
                                               {"describe", PASSWORD_DEF},
                                               {"describe", "--json"},
                                               {"check"},
                                               {"check", "--json"},
                                               {"history"},
                                               {"history", "--json"},
                                               {"history", PASSWORD_DEF},
                                               {"export", folder("out/export.json")},
                                               {"diff", folder("out/export.json")},
                                               {"import", folder("out/export.json"), "--dry-run"},
                                               {"set", "PT_MOBILE_PORT=4711", "--dry-run"},
                                               {"set", "PT_MOBILE_PORT=4711"}};
        for (const QStringList &command : commands)
            statuses.append(ctl(command));
        statuses.append(manager({"--self-test", "--render", folder("out/pictures")}));
    }

    /// The places outside the store where the secret is.
    QStringList leaks() const
    {
        QStringList leaks;
        if (search.isIn(printed))
            leaks << "printed";
        for (const char *name : {"home", "tmp", "out"})
            leaks << search.files(folder(name));
        SqlConnection connection(DatabaseLocation::ofFile(databasePath()), SqlConnection::Mode::ReadOnly);
        auto rows = connection.select("SELECT * FROM history");
        while (rows && rows->next()) {
            for (int column = 0; column < 11; ++column) {
                if (search.isIn(rows->value(column).toString()))
                    leaks << "history";
            }
        }
        return leaks;
    }
    /// Also in the store, the logs of the database included.
    QStringList filesOfTheStore() const { return search.files(folder("store")); }

    QString stored() const
    {
        SqlConnection connection(DatabaseLocation::ofFile(databasePath()), SqlConnection::Mode::ReadOnly);
        return connection.selectOne("SELECT value FROM settings WHERE key = ?", {PASSWORD_DEF}).toString();
    }
    /// On one connection.
    void execute(const QStringList &statements) const
    {
        SqlConnection connection(DatabaseLocation::ofFile(databasePath()), SqlConnection::Mode::ReadWrite);
        for (const QString &statement : statements) {
            if (!connection.execute(statement))
                throw std::runtime_error(connection.error().text().toStdString());
        }
    }

    const QString canary = newCanary();
    const SecretSearch search;
    QByteArray printed;
    QVector<int> statuses;

private:
    void prepare(BoundedProgram &program, const QString &rules) const
    {
        program.setVariable("HOME", folder("home"));
        program.setVariable("TMPDIR", folder("tmp"));
        program.setVariable("QT_LOGGING_RULES", rules);
        program.setWorkingDirectory(folder("home"));
    }

    QTemporaryDir m_root;
};

/// A host with the page that has the secret's editor.
class Page
{
public:
    explicit Page(const QString &databasePath)
        : m_database(DatabaseLocation::ofFile(databasePath))
        , m_session(m_database)
    {
        QSignalSpy loaded(&m_session, &SettingsSession::loaded);
        m_session.load();
        if (!loaded.wait())
            throw std::runtime_error("the database cannot be read");
    }

    /// Types the text into its editor and saves.
    bool enter(const QString &text)
    {
        QWidget *page = m_session.openPage(DBGroups::Users, &m_window);
        m_window.show();
        editors::retype(editors::input<QLineEdit>(page, PASSWORD_DEF), text);
        bool isDone = false;
        const auto connection = QObject::connect(&m_session, &SettingsSession::saveFinished,
                                                 [&isDone](const SaveResult &result) { isDone = result.isDone(); });
        m_session.save();
        const bool isSaved = QTest::qWaitFor([this] { return !m_session.isSaving(); }) && isDone;
        QObject::disconnect(connection);
        return isSaved;
    }

private:
    InstallationDatabase m_database;
    QWidget m_window;
    SettingsSession m_session;
};

QByteArray document(const QString &secret)
{
    return QStringLiteral(R"({"format": "vxsettings-export", "settings": {"%1": "%2"}, "version": 1})")
        .arg(PASSWORD_DEF, secret)
        .toUtf8();
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("no file");
}
} // namespace

void TestCanary::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCanary::whatIsPlantedIsFound()
{
    Place place;
    QCOMPARE(place.leaks(), QStringList());
    QCOMPARE(place.filesOfTheStore(), QStringList());
    QCOMPARE(place.search.processes(), QStringList());

    place.printed = "key: " + place.canary.toUtf8() + '\n';
    writeFile(place.folder("tmp/draft"), "x" + place.canary.toUtf8());
    QDir(place.folder("home")).mkpath(".cache/deep");
    writeFile(place.folder("home/.cache/deep/.log"), QByteArray(place.canary.toUtf8()).toBase64());
    writeFile(place.folder("out/") + place.canary, {});
    place.execute(
        {"INSERT INTO history(save_id, key, revision, new_value, changed_at, changed_by, workstation, program) "
         "VALUES('s', 'k', 1, '" +
         place.canary + "', 't', 'b', 'w', 'p')"});
    QCOMPARE(place.leaks(), (QStringList{"printed", ".cache/deep/.log", "draft", place.canary, "history"}));

    place.execute({"DROP TRIGGER history_is_not_deleted", "PRAGMA secure_delete = OFF", "DELETE FROM history"});
    QCOMPARE(place.filesOfTheStore(), QStringList{"installation.db"});

    BoundedProgram process("sh", {"-c", "read line", place.canary}, {});
    process.start();
    QVERIFY(process.waitForStarted());
    QTRY_COMPARE(place.search.processes(), QStringList{QString::number(process.processId())});
    process.finish("\n");
}

void TestCanary::enteredByStandardInput()
{
    Place place;
    QCOMPARE(place.ctl({"set", "--stdin", PASSWORD_DEF, "--dry-run"}, place.canary.toUtf8()), 0);
    QCOMPARE(place.ctl({"set", "--stdin", PASSWORD_DEF, "--json", "--reason", "new"}, place.canary.toUtf8()), 0);
    QCOMPARE(place.stored(), place.canary);
    place.tellEverything();
    QVERIFY(!place.statuses.contains(-1));
    QCOMPARE(place.leaks(), QStringList());
    QCOMPARE(place.filesOfTheStore(), QStringList{"installation.db"});

    // Only who asks for it gets it.
    QCOMPARE(place.ctl({"export", "--with-secrets", place.folder("out/secrets.json")}), 0);
    QCOMPARE(place.leaks(), QStringList{"secrets.json"});
    QCOMPARE(QFile::permissions(place.folder("out/secrets.json")) & (QFile::ReadGroup | QFile::ReadOther), 0);
}

void TestCanary::enteredByAFile()
{
    Place place;
    writeFile(place.folder("store/settings.json"), document(place.canary));
    QCOMPARE(place.ctl({"diff", place.folder("store/settings.json")}), 1);
    QCOMPARE(place.ctl({"import", place.folder("store/settings.json"), "--dry-run"}), 0);
    QCOMPARE(place.ctl({"import", place.folder("store/settings.json"), "--json"}), 0);
    QCOMPARE(place.stored(), place.canary);
    place.tellEverything();
    QVERIFY(!place.statuses.contains(-1));
    QCOMPARE(place.leaks(), QStringList());
    QCOMPARE(place.filesOfTheStore(), (QStringList{"installation.db", "settings.json"}));
}

void TestCanary::enteredOnAPage()
{
    Place place;
    const LoggingRules everything(allButEditors);
    CapturedMessages messages;
    {
        Page page(place.databasePath());
        QVERIFY(page.enter(place.canary));
    }
    QCOMPARE(place.stored(), place.canary);
    QVERIFY(!place.search.isIn(messages.texts().join('\n')));
    place.tellEverything();
    QCOMPARE(place.leaks(), QStringList());

    // The same look into the log finds what the editors write when they are asked to.
    const LoggingRules editorsToo(allMessages);
    Page page(place.databasePath());
    QVERIFY(page.enter(place.canary + "2"));
    QVERIFY(place.search.isIn(messages.texts().join('\n')));
}

void TestCanary::refused_data()
{
    QTest::addColumn<QString>("text"); // %1 is the canary
    QTest::newRow("two lines") << "%1\nx";
    QTest::newRow("too long") << QString("%1").repeated(1000);
}

void TestCanary::refused()
{
    QFETCH(QString, text);
    Place place;
    text.replace("%1", place.canary);
    QCOMPARE(place.ctl({"set", "--stdin", PASSWORD_DEF}, text.toUtf8()), 3);
    QCOMPARE(place.ctl({"set", "--stdin", PASSWORD_DEF + "X"}, text.toUtf8()), 3);
    writeFile(place.folder("store/settings.json"), document(QString(text).replace("\n", "\\n")));
    QCOMPARE(place.ctl({"import", place.folder("store/settings.json")}), 3);
    writeFile(place.folder("store/settings.json"), document(place.canary) + "}");
    QCOMPARE(place.ctl({"import", place.folder("store/settings.json"), "--json"}), 3);
    QCOMPARE(place.leaks(), QStringList());
}

void TestCanary::notRestored()
{
    Place place;
    QCOMPARE(place.ctl({"set", "--stdin", PASSWORD_DEF}, place.canary.toUtf8()), 0);
    QCOMPARE(place.ctl({"set", "--stdin", PASSWORD_DEF}, "another"), 0);
    for (const char *revision : {"1", "2"})
        QCOMPARE(place.ctl({"restore", PASSWORD_DEF + "@" + revision, "--json"}), 1);
    QCOMPARE(place.stored(), QString("another"));
    QCOMPARE(place.leaks(), QStringList());
}

void TestCanary::replacedByStandardInput()
{
    Place place;
    QCOMPARE(place.ctl({"set", "--stdin", PASSWORD_DEF}, place.canary.toUtf8()), 0);
    QCOMPARE(place.filesOfTheStore(), QStringList{"installation.db"});
    QCOMPARE(place.ctl({"set", "--stdin", PASSWORD_DEF}, "short"), 0);
    QCOMPARE(place.filesOfTheStore(), QStringList());
    QCOMPARE(place.leaks(), QStringList());
}

void TestCanary::replacedOnAPage()
{
    Place place;
    {
        Page page(place.databasePath());
        QVERIFY(page.enter(place.canary));
        QVERIFY(page.enter("short"));
    }
    QCOMPARE(place.filesOfTheStore(), QStringList());
    QCOMPARE(place.leaks(), QStringList());
}

QTEST_MAIN(TestCanary)
#include "tst_canary.moc"
