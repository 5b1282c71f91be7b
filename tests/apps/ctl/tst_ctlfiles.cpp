#include "ctlprogram.h"
#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;

namespace {

class SettingsFolder : public SampleDatabase
{
public:
    QString file(const QString &name = QStringLiteral("settings.json")) const { return folder() + '/' + name; }
    QByteArray read(const QString &name = QStringLiteral("settings.json")) const
    {
        QFile settings(file(name));
        return settings.open(QIODevice::ReadOnly) ? settings.readAll() : QByteArray("no such file");
    }
    void write(const QByteArray &bytes) const
    {
        QFile settings(file());
        if (!settings.open(QIODevice::WriteOnly) || settings.write(bytes) != bytes.size())
            throw std::runtime_error("the file cannot be written");
    }
    /// A document with these settings.
    void write(const QJsonObject &settings) const
    {
        write(QJsonDocument({{"format", "vxsettings-export"}, {"version", 1}, {"settings", settings}}).toJson());
    }
};
} // namespace

class TestCtlFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void exportLeavesSecretsOut();
    void exportWithSecrets();
    void exportIsStable();
    void exportDestroysNoDatabase_data();
    void exportDestroysNoDatabase();
    void exportThatCannotBeWritten();
    void roundTripToAnotherInstallation();
    void import();
    void importIsAllOrNothing_data();
    void importIsAllOrNothing();
    void importOfNoDocument_data();
    void importOfNoDocument();
    void importDryRun();
    void importTellsOfUnknownKeys();
    void filesThatCannotBeRead_data();
    void filesThatCannotBeRead();
    void diffOfEqualSettings();
    void diff();
    void diffHidesSecrets();
};

void TestCtlFiles::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCtlFiles::exportLeavesSecretsOut()
{
    const SettingsFolder folder;
    CtlProgram program(folder, {"export", folder.file(), "--json"});
    QCOMPARE(program.run(), 0);
    const QJsonObject expected{{"file", folder.file()}, {"settings", 38}, {"withSecrets", false}};
    QCOMPARE(program.json().object(), expected);
    const QJsonObject settings = QJsonDocument::fromJson(folder.read())["settings"].toObject();
    QCOMPARE(settings.size(), 38);
    QCOMPARE(settings[MOBILE_PORT].toString(), QString("8443"));
    QVERIFY(!settings.contains(PASSWORD_DEF));
    QVERIFY(!folder.read().contains("Vhod-2024"));
}

void TestCtlFiles::exportWithSecrets()
{
    const SettingsFolder folder;
    CtlProgram program(folder, {"export", "--with-secrets", folder.file()});
    QCOMPARE(program.run(), 0);
    QVERIFY(!program.out.contains("Vhod-2024"));
    QCOMPARE(QJsonDocument::fromJson(folder.read())["settings"][PASSWORD_DEF].toString(), QString("Vhod-2024"));
    QVERIFY(!(QFile::permissions(folder.file()) & (QFile::ReadGroup | QFile::ReadOther)));
}

void TestCtlFiles::exportIsStable()
{
    const SettingsFolder folder;
    CtlProgram first(folder, {"export", "first.json"});
    CtlProgram second(folder, {"export", "second.json"});
    QCOMPARE(first.run(), 0);
    QCOMPARE(second.run(), 0);
    QVERIFY(folder.read("first.json").size() > 1000);
    QCOMPARE(folder.read("first.json"), folder.read("second.json"));
}

void TestCtlFiles::exportDestroysNoDatabase_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("the database") << "installation.db";
    QTest::newRow("by another path") << "./../x/installation.db";
    QTest::newRow("its log") << "installation.db-wal";
    QTest::newRow("its shared memory") << "installation.db-shm";
    QTest::newRow("its journal") << "installation.db-journal";
    QTest::newRow("through a link") << "link";
}

void TestCtlFiles::exportDestroysNoDatabase()
{
    QFETCH(QString, name);
    const SettingsFolder folder;
    QVERIFY(QFile::link(folder.path(), folder.file("link")));
    const auto before = folder.settings();
    CtlProgram program(folder, {"export", name.replace("x", QFileInfo(folder.folder()).fileName())});
    QCOMPARE(program.run(), 2);
    QVERIFY2(program.err.contains("принадлежит базе данных"), qPrintable(program.err));
    QCOMPARE(folder.settings(), before);
}

void TestCtlFiles::exportThatCannotBeWritten()
{
    const SettingsFolder folder;
    for (const QString &path : {folder.folder(), folder.file("no/such/folder.json"), QString()}) {
        CtlProgram program(folder, {"export", path});
        QCOMPARE(program.run(), 5);
        QVERIFY2(program.err.contains("«" + path + "»"), qPrintable(program.err));
    }
}

void TestCtlFiles::roundTripToAnotherInstallation()
{
    const SettingsFolder folder;
    folder.store("PT_OTHER", "a\n\"\x01 \xD1\x91");
    folder.store(PIN_STRENGTH, R"({"min_len":4,  "future": [1.50]})");
    CtlProgram first(folder, {"export", "--with-secrets", "first.json"});
    QCOMPARE(first.run(), 0);

    const QString other = folder.file("other.db");
    CtlProgram init(folder, {"init", "--sample", "--database", other});
    QCOMPARE(init.run(), 0);
    CtlProgram import(folder, {"import", "first.json", "--database", other});
    QCOMPARE(import.run(), 0);
    CtlProgram second(folder, {"export", "--with-secrets", "second.json", "--database", other});
    QCOMPARE(second.run(), 0);
    QCOMPARE(folder.read("second.json"), folder.read("first.json"));
}

void TestCtlFiles::import()
{
    const SettingsFolder folder;
    auto expected = folder.settings();
    expected[MOBILE_PORT] = "1";
    expected[PASSWORD_DEF] = "Geheim-1";
    folder.write(QJsonObject{{MOBILE_PORT, "1"}, {PASSWORD_DEF, "Geheim-1"}, {MOBILE_HOST, expected[MOBILE_HOST]}});
    CtlProgram program(folder, {"import", folder.file(), "--json"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(folder.settings(), expected);
    const QJsonArray changes = program.json()["changes"].toArray();
    QCOMPARE(changes.size(), 2);
    QCOMPARE(changes[0]["new"].toString(), QString("1"));
    QCOMPARE(changes[1]["new"], QJsonValue());
    QVERIFY(!program.out.contains("Geheim-1") && !program.out.contains("Vhod-2024"));
}

void TestCtlFiles::importIsAllOrNothing_data()
{
    QTest::addColumn<QJsonObject>("settings");
    QTest::addColumn<QString>("part"); // of the message
    QTest::newRow("a bad value") << QJsonObject{{MOBILE_PORT, "1"}, {MAX_CARD_COUNT, "21"}} << "PT_MAX_CARD_COUNT";
    QTest::newRow("a caption") << QJsonObject{{MOBILE_PORT, "1"}, {CARD_VIEW_FORMAT, "Десятичный"}}
                               << "PT_CARD_VIEW_FORMAT";
    QTest::newRow("a bad member") << QJsonObject{{MOBILE_PORT, "1"}, {PIN_STRENGTH, R"({"min_len": "x"})"}}
                                  << "Минимальная длина";
    QTest::newRow("a broken rule") << QJsonObject{{MOBILE_PORT, "1"}, {PASSWORD_NOTIFY, "91"}} << "больше, чем";
    QTest::newRow("a read-only setting") << QJsonObject{{MOBILE_PORT, "1"}, {VERSION, "8"}} << "только для чтения";
    QTest::newRow("a bad secret") << QJsonObject{{MOBILE_PORT, "1"}, {PASSWORD_DEF, "Geheim-1\n"}} << "PT_PASSWORD_DEF";
}

void TestCtlFiles::importIsAllOrNothing()
{
    QFETCH(QJsonObject, settings);
    QFETCH(QString, part);
    const SettingsFolder folder;
    const auto before = folder.settings();
    folder.write(settings);
    CtlProgram program(folder, {"import", folder.file()});
    QCOMPARE(program.run(), 3);
    QVERIFY2(program.err.contains(part), qPrintable(program.err));
    QVERIFY(!program.err.contains("Geheim-1"));
    QCOMPARE(folder.settings(), before);
}

void TestCtlFiles::importOfNoDocument_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("PT_MOBILE_PORT=1");
    QTest::newRow("half") << QByteArray(R"({"format": "vxsettings-export", "version": 1, "settings": {)");
    QTest::newRow("another format") << QByteArray(R"({"PT_MOBILE_PORT": "1"})");
    QTest::newRow("version of the future")
        << QByteArray(R"({"format": "vxsettings-export", "version": 2, "settings": {"PT_MOBILE_PORT": "1"}})");
    QTest::newRow("a number as a value") << QByteArray(
        R"({"format": "vxsettings-export", "version": 1, "settings": {"PT_MOBILE_PORT": 1}})");
    QTest::newRow("a key twice") << QByteArray(
        R"({"format": "vxsettings-export", "version": 1, "settings": {"PT_MOBILE_PORT": "1", "PT_MOBILE_PORT": "2"}})");
    QTest::newRow("not UTF-8") << QByteArray(
        "{\"format\": \"vxsettings-export\", \"version\": 1, \"settings\": {\"PT_MOBILE_HOST\": \"\xff\"}}");
    QTest::newRow("endless depth") << QByteArray(100000, '[');
}

void TestCtlFiles::importOfNoDocument()
{
    QFETCH(QByteArray, bytes);
    const SettingsFolder folder;
    const auto before = folder.settings();
    folder.write(bytes);
    CtlProgram program(folder, {"import", folder.file()});
    QCOMPARE(program.run(), 3);
    QVERIFY2(program.err.contains(folder.file()), qPrintable(program.err));
    QCOMPARE(folder.settings(), before);
}

void TestCtlFiles::importDryRun()
{
    const SettingsFolder folder;
    const auto before = folder.settings();
    folder.write(QJsonObject{{MOBILE_PORT, "1"}});
    CtlProgram program(folder, {"import", folder.file(), "--dry-run"});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.out, QString("PT_MOBILE_PORT (Порт): «8443» → «1»\n"));
    QCOMPARE(folder.settings(), before);
}

void TestCtlFiles::importTellsOfUnknownKeys()
{
    const SettingsFolder folder;
    folder.write(QJsonObject{{"PT_OTHER", "x"}});
    CtlProgram program(folder, {"import", folder.file()});
    QCOMPARE(program.run(), 0);
    QVERIFY2(program.err.contains("нет в каталоге") && program.err.contains("PT_OTHER"), qPrintable(program.err));
    QCOMPARE(folder.stored("PT_OTHER"), QString("x"));
}

void TestCtlFiles::filesThatCannotBeRead_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("path");
    for (const char *command : {"import", "diff"}) {
        QTest::addRow("%s: missing", command) << command << "no-such.json";
        QTest::addRow("%s: a folder", command) << command << "/tmp";
    }
}

void TestCtlFiles::filesThatCannotBeRead()
{
    QFETCH(QString, command);
    QFETCH(QString, path);
    const SettingsFolder folder;
    CtlProgram program(folder, {command, path});
    QCOMPARE(program.run(), 5);
    QVERIFY2(program.err.contains("«" + path + "»"), qPrintable(program.err));
}

void TestCtlFiles::diffOfEqualSettings()
{
    const SettingsFolder folder;
    CtlProgram exported(folder, {"export", folder.file()});
    QCOMPARE(exported.run(), 0);
    CtlProgram program(folder, {"diff", folder.file()});
    QCOMPARE(program.run(), 0);
    QCOMPARE(program.out, QString("Отличий нет.\n"));
    CtlProgram forPrograms(folder, {"diff", folder.file(), "--json"});
    QCOMPARE(forPrograms.run(), 0);
    QVERIFY(forPrograms.json().isArray() && forPrograms.json().array().isEmpty());
}

void TestCtlFiles::diff()
{
    const SettingsFolder folder;
    CtlProgram exported(folder, {"export", folder.file()});
    QCOMPARE(exported.run(), 0);
    QJsonObject settings = QJsonDocument::fromJson(folder.read())["settings"].toObject();
    settings[MOBILE_PORT] = "1";
    settings[MAX_CARD_COUNT] = "21";
    settings["PT_OTHER"] = "x";
    settings.remove(MOBILE_HOST);
    folder.write(settings);

    CtlProgram program(folder, {"diff", folder.file(), "--json"});
    QCOMPARE(program.run(), 1);
    QCOMPARE(program.json().array().size(), 4);
    const QJsonObject changed{
        {"key", MOBILE_PORT}, {"state", "changed"}, {"stored", "8443"}, {"file", "1"}, {"error", QJsonValue()}};
    QCOMPARE(program.row(MOBILE_PORT), changed);
    QCOMPARE(program.row(MAX_CARD_COUNT)["state"].toString(), QString("invalid"));
    QVERIFY(!program.row(MAX_CARD_COUNT)["error"].toString().isEmpty());
    QCOMPARE(program.row("PT_OTHER")["state"].toString(), QString("unknown"));
    QCOMPARE(program.row("PT_OTHER")["stored"], QJsonValue());
    QCOMPARE(program.row(MOBILE_HOST)["state"].toString(), QString("missing"));

    CtlProgram text(folder, {"diff", folder.file()});
    QCOMPARE(text.run(), 1);
    QCOMPARE(text.out.count('\n'), 5);
}

void TestCtlFiles::diffHidesSecrets()
{
    const SettingsFolder folder;
    folder.write(QJsonObject{{PASSWORD_DEF, "Geheim-1"}});
    for (const QStringList &form : {QStringList{}, QStringList{"--json"}}) {
        CtlProgram program(folder, QStringList{"diff", folder.file()} + form);
        QCOMPARE(program.run(), 1);
        QVERIFY(program.out.contains(PASSWORD_DEF));
        QVERIFY2(!program.out.contains("Geheim-1") && !program.out.contains("Vhod-2024"), qPrintable(program.out));
    }
}

QTEST_MAIN(TestCtlFiles)
#include "tst_ctlfiles.moc"
