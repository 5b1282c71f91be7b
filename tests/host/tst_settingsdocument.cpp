#include <host/settingsdocument.h>

#include <host/sampleinstallation.h>

#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace db::database;
using Secrets = SettingsDocument::Secrets;
using vantorix::OBJECT_PARAMETERS;

class TestSettingsDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theFormat();
    void secretsAreLeftOut();
    void theSameBytesAgain_data();
    void theSameBytesAgain();
    void theOrderOfStoringDoesNotMatter();
    void refused_data();
    void refused();
    void accepted_data();
    void accepted();
    void aFile();
    void filesThatCannotBeRead_data();
    void filesThatCannotBeRead();
};

namespace {

QByteArray document(const QByteArray &settings)
{
    return R"({"format": "vxsettings-export", "version": 1, "settings": )" + settings + '}';
}
} // namespace

void TestSettingsDocument::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingsDocument::theFormat()
{
    const OBJECT_PARAMETERS stored{
        {MOBILE_PORT, "8443"}, {VERSION, "7.4"}, {PASSWORD_DEF, "canary"}, {PIN_STRENGTH, "{\"zone\":1}\n"},
        {"PT_ДРУГАЯ", "«ё»"},
    };
    const char *const expected = R"({
    "format": "vxsettings-export",
    "settings": {
        "PT_MOBILE_PORT": "8443",
        "PT_PIN_STRENGTH": "{\"zone\":1}\n",
        "PT_ДРУГАЯ": "«ё»"
    },
    "version": 1
}
)";
    QCOMPARE(SettingsDocument::of(stored, Secrets::LeaveOut).toJson(), QByteArray(expected));
}

void TestSettingsDocument::secretsAreLeftOut()
{
    const OBJECT_PARAMETERS stored{{PASSWORD_DEF, "canary"}, {LOCKER_ACCESS_TOKEN, "canary"}, {MOBILE_PORT, "1"}};
    QCOMPARE(SettingsDocument::of(stored, Secrets::LeaveOut).settings(), (OBJECT_PARAMETERS{{MOBILE_PORT, "1"}}));
    QCOMPARE(SettingsDocument::of(stored, Secrets::Include).settings(), stored);
}

void TestSettingsDocument::theSameBytesAgain_data()
{
    QTest::addColumn<OBJECT_PARAMETERS>("stored");

    QTest::newRow("nothing") << OBJECT_PARAMETERS();
    QTest::newRow("sample") << SampleInstallation::make().settings;

    // Every plane and every control character; the seed makes a failure repeatable.
    QRandomGenerator random(20240229);
    OBJECT_PARAMETERS nasty{{"", ""}, {"\"", "\\"}, {"PT_A.b", QString(QChar(0))}};
    for (int i = 0; i < 300; ++i) {
        QString text;
        for (int length = random.bounded(40); length > 0; --length) {
            char32_t character = random.bounded(random.bounded(2) ? 0x110000 : 0x180);
            if (QChar::isSurrogate(character))
                character = '\n';
            text += QString::fromUcs4(&character, 1);
        }
        nasty.insert(QStringLiteral("PT_%1%2").arg(i).arg(text), text);
    }
    QTest::newRow("nasty texts") << nasty;
}

void TestSettingsDocument::theSameBytesAgain()
{
    QFETCH(OBJECT_PARAMETERS, stored);
    const SettingsDocument exported = SettingsDocument::of(stored, Secrets::Include);
    const auto imported = SettingsDocument::fromJson(exported.toJson());
    QVERIFY2(imported.document, qPrintable(imported.error));
    QCOMPARE(imported.document->settings(), exported.settings());
    QCOMPARE(SettingsDocument::of(imported.document->settings(), Secrets::Include).toJson(), exported.toJson());
}

void TestSettingsDocument::theOrderOfStoringDoesNotMatter()
{
    OBJECT_PARAMETERS forwards, backwards;
    backwards.reserve(1000); // another hash order
    for (int i = 0; i < 50; ++i) {
        forwards.insert(QString::number(i), "x");
        backwards.insert(QString::number(49 - i), "x");
    }
    QCOMPARE(SettingsDocument::of(forwards, Secrets::LeaveOut).toJson(),
             SettingsDocument::of(backwards, Secrets::LeaveOut).toJson());
}

void TestSettingsDocument::refused_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");

    const QString noExport = "Это не выгрузка настроек: поле «format» должно содержать «vxsettings-export».";
    const QString otherVersion = "Версия выгрузки не поддерживается: поле «version» должно содержать число 1.";

    QTest::newRow("empty") << QByteArray() << "Это не документ JSON: ошибка в строке 1.";
    QTest::newRow("cut off") << QByteArray("{\n\"format\":\n") << "Это не документ JSON: ошибка в строке 3.";
    QTest::newRow("array") << QByteArray("[]") << "Это не выгрузка настроек: документ — не объект JSON.";
    QTest::newRow("too deep") << QByteArray(2000, '[') + QByteArray(2000, ']')
                              << "Это не документ JSON: ошибка в строке 1.";
    QTest::newRow("not UTF-8") << document("{\"PT_MOBILE_HOST\": \"\xd5\xee\xf1\xf2\"}")
                               << "Документ записан не в кодировке UTF-8.";
    QTest::newRow("UTF-8 cut off") << QByteArray("{}\xd0") << "Документ записан не в кодировке UTF-8.";
    QTest::newRow("no format") << QByteArray(R"({"version": 1, "settings": {}})") << noExport;
    QTest::newRow("another format") << QByteArray(R"({"format": "vxsettings", "version": 1, "settings": {}})")
                                    << noExport;
    QTest::newRow("no version") << QByteArray(R"({"format": "vxsettings-export", "settings": {}})") << otherVersion;
    QTest::newRow("a later version") << QByteArray(R"({"format": "vxsettings-export", "version": 2, "settings": {}})")
                                     << otherVersion;
    QTest::newRow("version as a text") << QByteArray(
                                              R"({"format": "vxsettings-export", "version": "1", "settings": {}})")
                                       << otherVersion;
    QTest::newRow("two versions")
        << QByteArray(R"({"format": "vxsettings-export", "version": 2, "version": 1, "settings": {}})")
        << "Поле «version» записано несколько раз.";
    QTest::newRow("two lists of settings")
        << QByteArray(R"({"format": "vxsettings-export", "version": 1, "settings": {}, "settings": {}})")
        << "Поле «settings» записано несколько раз.";
    QTest::newRow("a member too many")
        << QByteArray(R"({"format": "vxsettings-export", "version": 1, "settings": {}, "objects": {}})")
        << "Поле «objects» неизвестно: в выгрузке версии 1 его нет.";
    QTest::newRow("no settings") << QByteArray(R"({"format": "vxsettings-export", "version": 1})")
                                 << "Поле «settings» — не объект JSON.";
    QTest::newRow("settings in an array") << document("[]") << "Поле «settings» — не объект JSON.";
    QTest::newRow("a key twice") << document(R"({"PT_A": "1", "PT_B": "1", "PT_A": "1"})")
                                 << "Настройка «PT_A» записана несколько раз.";
    QTest::newRow("a key twice, once escaped")
        << document(R"({"PT_A": "1", "PT_\u0041": "2"})") << "Настройка «PT_A» записана несколько раз.";
    QTest::newRow("number") << document(R"({"PT_A": 1})") << "Значение настройки «PT_A» — не текст.";
    QTest::newRow("null") << document(R"({"PT_A": null})") << "Значение настройки «PT_A» — не текст.";
    QTest::newRow("object") << document(R"({"PT_A": {"min_len": "4"}})") << "Значение настройки «PT_A» — не текст.";
    QTest::newRow("half a character") << document(R"({"PT_A": "\ud83d"})") << "Значение настройки «PT_A» — не текст.";
}

void TestSettingsDocument::refused()
{
    QFETCH(QByteArray, json);
    const auto reading = SettingsDocument::fromJson(json);
    QVERIFY(!reading.document);
    QTEST(reading.error, "error");
}

void TestSettingsDocument::accepted_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<OBJECT_PARAMETERS>("settings");

    QTest::newRow("no settings") << document("{}") << OBJECT_PARAMETERS();
    QTest::newRow("another layout") << document("\r\n\t{ \"PT_A\":\"\\u0444\" }\n") << OBJECT_PARAMETERS{{"PT_A", "ф"}};
    QTest::newRow("byte order mark") << "\xef\xbb\xbf" + document(R"({"PT_A": "1"})")
                                     << OBJECT_PARAMETERS{{"PT_A", "1"}};
    QTest::newRow("a text with duplicates in it")
        << document(R"({"PT_A": "{\"a\":1,\"a\":2}"})") << OBJECT_PARAMETERS{{"PT_A", R"({"a":1,"a":2})"}};
}

void TestSettingsDocument::accepted()
{
    QFETCH(QByteArray, json);
    const auto reading = SettingsDocument::fromJson(json);
    QVERIFY2(reading.document, qPrintable(reading.error));
    QTEST(reading.document->settings(), "settings");
}

void TestSettingsDocument::aFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("settings.json");
    const OBJECT_PARAMETERS stored{{MOBILE_PORT, "8443"}, {PASSWORD_DEF, "canary"}};

    QVERIFY(!SettingsDocument::of(stored, Secrets::LeaveOut).write(path));
    QCOMPARE(SettingsDocument::read(path).document->settings(), (OBJECT_PARAMETERS{{MOBILE_PORT, "8443"}}));

    QVERIFY(QFile(path).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther));
    QVERIFY(!SettingsDocument::of(stored, Secrets::Include).write(path));
    QCOMPARE(SettingsDocument::read(path).document->settings(), stored);
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY(!(QFileInfo(path).permissions() & others));
}

void TestSettingsDocument::filesThatCannotBeRead_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");

    QTest::newRow("missing") << "missing.json"
                             << "Не удаётся прочитать файл";
    QTest::newRow("folder") << "."
                            << "Не удаётся прочитать файл";
    QTest::newRow("another content") << "other.json"
                                     << "нельзя использовать. Это не документ JSON";
}

void TestSettingsDocument::filesThatCannotBeRead()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    QFile other(folder.filePath("other.json"));
    QVERIFY(other.open(QIODevice::WriteOnly) && other.write("words") == 5);
    other.close();

    const auto reading = SettingsDocument::read(folder.filePath(name));
    QVERIFY(!reading.document);
    QVERIFY2(reading.error.contains(reason) && reading.error.contains(folder.filePath(name)),
             qPrintable(reading.error));
}

QTEST_MAIN(TestSettingsDocument)
#include "tst_settingsdocument.moc"
