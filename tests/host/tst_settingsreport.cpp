#include <host/settingsreport.h>

#include "messages.h"
#include "translation.h"

#include <host/sampleinstallation.h>

#include <vxsettings/dbkeys.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>

using namespace db::database;

class TestSettingsReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyPageAndParameterIsThere();
    void valuesAreWords_data();
    void valuesAreWords();
    void secretsAreMasked();
    void problemsAreTold();
    void theCurrentLanguage();
    void thePdfHasNumberedSheets();
    void aFileThatCannotBeWritten();
};

namespace {

const QDateTime noon(QDate(2024, 3, 5), QTime(12, 0));

SettingsReport report(const QHash<QString, QString> &settings)
{
    Installation installation;
    installation.settings = settings;
    return {installation, "/data/a & b.db", noon};
}

/// What somebody reads, a table cell a line.
QStringList lines(const SettingsReport &report)
{
    QTextDocument document;
    document.setHtml(report.toHtml());
    return document.toPlainText().split('\n');
}

/// The line behind the @p number-th one that says @p caption.
QString valueOf(const QStringList &lines, const QString &caption, int number = 0)
{
    int index = -1;
    do
        index = lines.indexOf(caption, index + 1);
    while (index >= 0 && number-- > 0);
    return index < 0 ? QString("missing: ") + caption : lines.value(index + 1);
}
} // namespace

void TestSettingsReport::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingsReport::everyPageAndParameterIsThere()
{
    const QStringList text = lines(report({}));
    QVERIFY(text.contains("База данных: /data/a & b.db"));
    for (const char *title : {"Сотрудники", "Пользователи", "Сканирование лица", "Vantorix ID", "Интеграция",
                              "Сложность пароля", "Сложность пин-кода"})
        QVERIFY2(text.contains(title), title);
    // 63 parameters, the two lengths twice, less the three JSON settings.
    QCOMPARE(text.count("не задано"), 62);
}

void TestSettingsReport::valuesAreWords_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("value");
    QTest::newRow("number") << "Порт"
                            << "8443";
    QTest::newRow("choice") << "Формат отображения номеров карт"
                            << "Шестнадцатеричный";
    QTest::newRow("what stands for a number") << "Количество одновременных сессий пользователя"
                                              << "Без ограничений";
    QTest::newRow("text with markup") << "Хост"
                                      << "«<b>host</b>»";
    QTest::newRow("member") << "Запрещать последовательные цифры"
                            << "да";
}

void TestSettingsReport::valuesAreWords()
{
    QFETCH(QString, caption);
    const QStringList text = lines(report({{MOBILE_PORT, "8443"},
                                           {CARD_VIEW_FORMAT, "1"},
                                           {USER_SESSION_COUNT, "0"},
                                           {MOBILE_HOST, "<b>host</b>"},
                                           {PIN_STRENGTH, R"({"deny_sequence": "true"})"}}));
    QTEST(valueOf(text, caption), "value");
}

void TestSettingsReport::secretsAreMasked()
{
    const auto secret = report({{PASSWORD_DEF, "canary"}, {LOCKER_ACCESS_TOKEN, "canary\n"}});
    QVERIFY(!secret.toHtml().contains("canary"));
    QCOMPARE(valueOf(lines(secret), "Пароль по умолчанию"), QString("скрыто"));
}

void TestSettingsReport::problemsAreTold()
{
    const QString text = report({{MOBILE_PORT, "70000"},
                                 {PASSWORD_EXPIRED, "5"},
                                 {PASSWORD_NOTIFY, "10"},
                                 {PIN_STRENGTH, R"({"zone": 1, "min_len": "x"})"},
                                 {"PT_OTHER", "canary"}})
                             .toHtml();
    QVERIFY(text.contains("Замечаний: 5"));
    for (const char *words : {"Число вне допустимых границ.", "Это не целое число.", "Такого поля нет в каталоге",
                              "Настройки, которых нет в каталоге", "PT_OTHER"})
        QVERIFY2(text.contains(words), words);
    QCOMPARE(text.count("class=\"problem\""), 4); // that of the unknown key is a row
    QVERIFY(!text.contains("canary"));
    QVERIFY(report({}).toHtml().contains("Замечаний: 0"));
}

void TestSettingsReport::theCurrentLanguage()
{
    const InstalledTranslation english(
        {{"QObject", "Порт", "Port"}, {"SettingsReport", "База данных: %1", "Database: %1"}});
    const QStringList text = lines(report({{MOBILE_PORT, "80"}}));
    QVERIFY(text.contains("Database: /data/a & b.db"));
    QCOMPARE(valueOf(text, "Port"), QString("80"));
}

void TestSettingsReport::thePdfHasNumberedSheets()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("report.pdf");
    QCOMPARE(SettingsReport(SampleInstallation::make(), "sample", noon).writePdf(path), std::nullopt);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray pdf = file.readAll();
    QVERIFY(pdf.startsWith("%PDF-"));
    const int sheets = pdf.count("/Type /Page\n");
    QVERIFY2(sheets >= 2 && sheets <= 6, qPrintable(QString::number(sheets)));
}

void TestSettingsReport::aFileThatCannotBeWritten()
{
    const auto problem = report({}).writePdf("/nowhere/report.pdf");
    QVERIFY(problem);
    QVERIFY(problem->contains("/nowhere/report.pdf"));
}

QTEST_MAIN(TestSettingsReport)
#include "tst_settingsreport.moc"
