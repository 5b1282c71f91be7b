#include <host/settingssearch.h>

#include "messages.h"
#include "translation.h"

#include <host/settingsynonyms.h>

#include <vxsettings/dbkeys.h>

#include <QElapsedTimer>
#include <QTest>
#include <QTranslator>

using namespace db::database;
using Source = SettingsSearch::Source;

class TestSettingsSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theBestHit_data();
    void theBestHit();
    void everyHit_data();
    void everyHit();
    void nothingIsFound_data();
    void nothingIsFound();
    void captionsComeBeforeChoicesBeforeToolTips();
    void aHitTellsItsPageAndItsText();
    void theInstalledLanguageDoesNotMatter();
    void everyParameterIsFoundByItsCaptionAndKey();
    void everyParameterHasSynonyms();
    void aKeyStrokeTakesMicroseconds();
};

Q_DECLARE_METATYPE(SettingsSearch::Source)

namespace {

/// English of a few texts.
class English : public QTranslator
{
public:
    QString translate(const char *, const char *source, const char *, int) const override
    {
        static const QHash<QString, QString> texts = {
            {"Порт", "Port"},
            {"Граница фотографии сотрудника", "Frame of the employee's photograph"},
            {"Прямоугольная", "Rectangular"},
            {"Настройки подключения", "Connection settings"},
            {"Срок действия пароля (дней)", "Password validity (days)"},
        };
        return texts.value(QString::fromUtf8(source));
    }
    bool isEmpty() const override { return false; }
};

const English english;

QStringList addresses(const QVector<SettingsSearch::Hit> &hits)
{
    QStringList addresses;
    for (const auto &hit : hits)
        addresses << hit.address.text();
    return addresses;
}

const QStringList fingerprintPage = {ENABLE_FINGERPRINT_SCANNING, ENROLL_FINGERPRINT_SEARCH_CORE,
                                     ENROLL_FINGERPRINT_QUALITY, ENROLL_FINGERPRINT_MAX_COUNT,
                                     ENROLL_LIVE_FINGER_DETECTION};
} // namespace

void TestSettingsSearch::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingsSearch::theBestHit_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("address");
    QTest::addColumn<Source>("source");

    QTest::newRow("whole caption") << "порт" << MOBILE_PORT << Source::Caption;
    QTest::newRow("upper case") << "ПОРТ" << MOBILE_PORT << Source::Caption;
    QTest::newRow("beginning of a word") << "пор" << MOBILE_PORT << Source::Caption;
    QTest::newRow("English caption") << "port" << MOBILE_PORT << Source::Caption;
    QTest::newRow("two words in another order") << "пароля срок действия" << PASSWORD_EXPIRED << Source::Caption;
    QTest::newRow("beginnings of two words") << "мак карт" << MAX_CARD_COUNT << Source::Caption;
    QTest::newRow("words of two languages") << "password срок" << PASSWORD_EXPIRED << Source::Caption;
    QTest::newRow("another form of a word") << "пустые пароли"
                                            << "PT_PASSWORD_STRENGTH.admit_empty_password" << Source::Caption;
    QTest::newRow("choice") << "шестнадцатеричный" << CARD_VIEW_FORMAT << Source::Choice;
    QTest::newRow("English choice") << "rectang" << EMPLOYEE_PHOTO_TYPE << Source::Choice;
    QTest::newRow("what the lowest number stands for") << "без ограничений" << USER_SESSION_COUNT << Source::Choice;
    QTest::newRow("page title") << "интеграция" << INTEGRATION_DEFAULT_DEPARTMENT << Source::Title;
    QTest::newRow("synonym") << "таймаут" << USER_SESSION_TIMEOUT << Source::Synonym;
    QTest::newRow("English synonym") << "timeout" << USER_SESSION_TIMEOUT << Source::Synonym;
    QTest::newRow("synonym with ё") << "счётчик" << PASS_REQUEST_SEQUENCE << Source::Synonym;
    QTest::newRow("synonym with е for ё") << "счетчик" << PASS_REQUEST_SEQUENCE << Source::Synonym;
    QTest::newRow("synonym of two parts") << "тайм-аут" << USER_SESSION_TIMEOUT << Source::Synonym;
    QTest::newRow("key") << "PT_MOBILE_STYLE" << MOBILE_STYLE_INDEX << Source::Key;
    QTest::newRow("address of a member") << "PT_PIN_STRENGTH.deny_equal"
                                         << "PT_PIN_STRENGTH.deny_equal" << Source::Key;
    QTest::newRow("tool tip") << "zero8" << PASS_REQUEST_SEQUENCE << Source::ToolTip;
}

void TestSettingsSearch::theBestHit()
{
    QFETCH(QString, words);
    const auto hits = SettingsSearch({&english}).find(words);
    QVERIFY(!hits.isEmpty());
    QTEST(hits.first().address.text(), "address");
    QTEST(hits.first().source, "source");
}

void TestSettingsSearch::everyHit_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QStringList>("all"); // alphabetical

    QTest::newRow("a pin has four settings")
        << "пин"
        << QStringList{"PT_PIN_STRENGTH.deny_equal", "PT_PIN_STRENGTH.deny_sequence", "PT_PIN_STRENGTH.max_len",
                       "PT_PIN_STRENGTH.min_len"};
    QTest::newRow("pin in English") << "pin"
                                    << QStringList{"PT_PIN_STRENGTH.deny_equal", "PT_PIN_STRENGTH.deny_sequence",
                                                   "PT_PIN_STRENGTH.max_len", "PT_PIN_STRENGTH.min_len"};
    QTest::newRow("port") << "порт" << QStringList{MOBILE_PORT};
    QTest::newRow("host") << "хост" << QStringList{MOBILE_HOST};
    QTest::newRow("both words must be found") << "палец качество" << QStringList{ENROLL_FINGERPRINT_QUALITY};
    QStringList fingers = fingerprintPage;
    fingers.sort();
    QTest::newRow("a finger") << "палец" << fingers;
    QTest::newRow("fingers") << "пальцы" << fingers;
}

void TestSettingsSearch::everyHit()
{
    QFETCH(QString, words);
    QStringList found = addresses(SettingsSearch().find(words));
    found.sort();
    QTEST(found, "all");
}

void TestSettingsSearch::nothingIsFound_data()
{
    QTest::addColumn<QString>("words");
    QTest::newRow("no text") << QString();
    QTest::newRow("blanks") << "  ";
    QTest::newRow("no letters") << "-.;";
    QTest::newRow("the middle of a word") << "орт";
    QTest::newRow("one of two words is nowhere") << "порт крокодил";
    QTest::newRow("a much longer word") << "портвейн";
    QTest::newRow("markup of a tool tip") << "html";
}

void TestSettingsSearch::nothingIsFound()
{
    QFETCH(QString, words);
    QCOMPARE(addresses(SettingsSearch({&english}).find(words)), QStringList());
}

void TestSettingsSearch::captionsComeBeforeChoicesBeforeToolTips()
{
    // A caption, two choices of other parameters, titles of a page.
    QVector<Source> sources;
    const auto hits = SettingsSearch().find("пароль");
    for (const auto &hit : hits)
        sources << hit.source;
    QVERIFY(std::is_sorted(sources.begin(), sources.end()));
    for (const Source source : {Source::Caption, Source::Choice, Source::Title, Source::Synonym})
        QVERIFY2(sources.contains(source), qPrintable(QString::number(int(source))));
    QCOMPARE(hits.first().address.text(), PASSWORD_DEF); // it begins with the word, and in this form

    const auto numbers = SettingsSearch().find("номер");
    QCOMPARE(numbers.first().source, Source::Caption);
    const auto years = SettingsSearch().find("год");
    QCOMPARE(years.last().source, Source::ToolTip);
}

void TestSettingsSearch::aHitTellsItsPageAndItsText()
{
    const SettingsSearch search({&english});
    const auto member = search.find("1234").first();
    QCOMPARE(member.address.text(), QString("PT_PIN_STRENGTH.deny_sequence"));
    QCOMPARE(member.page, DBGroups::Employees);
    QCOMPARE(member.text, QString("1234"));
    QCOMPARE(search.find("шестнадц").first().text, QString("Шестнадцатеричный"));
    QCOMPARE(search.find("rectang").first().text, QString("Rectangular"));
    QVERIFY(!search.find("zero8").first().text.contains('<'));
}

void TestSettingsSearch::theInstalledLanguageDoesNotMatter()
{
    const InstalledTranslation german({{"QObject", "Порт", "Anschluss"}});
    const SettingsSearch search({&english});
    QCOMPARE(search.find("порт").first().text, QString("Порт"));
    QCOMPARE(search.find("port").first().text, QString("Port"));
    QVERIFY(search.find("Anschluss").isEmpty());
}

void TestSettingsSearch::everyParameterIsFoundByItsCaptionAndKey()
{
    const SettingsSearch search;
    for (const SettingAddress &address : SettingAddress::all()) {
        if (address.isJsonObject())
            continue;
        QVERIFY2(addresses(search.find(address.caption())).contains(address.text()), qPrintable(address.text()));
        QVERIFY2(addresses(search.find(address.text())).contains(address.text()), qPrintable(address.text()));
    }
}

void TestSettingsSearch::everyParameterHasSynonyms()
{
    for (const SettingAddress &address : SettingAddress::all()) {
        QVERIFY2(!SettingSynonyms::of(address).isEmpty(), qPrintable(address.text()));
        for (const QString &synonym : SettingSynonyms::of(address))
            QCOMPARE(synonym, synonym.trimmed());
    }
    QCOMPARE(SettingSynonyms::of({"PT_OTHER"}), QStringList());
}

void TestSettingsSearch::aKeyStrokeTakesMicroseconds()
{
    const SettingsSearch search({&english});
    QElapsedTimer timer;
    timer.start();
    search.find("п");
    qInfo("index and first search: %lld us", timer.nsecsElapsed() / 1000);

    constexpr int rounds = 50;
    constexpr int keyStrokes = 4;
    timer.restart();
    for (int round = 0; round < rounds; ++round) {
        for (const char *typed : {"п", "па", "пар", "пароль"})
            search.find(typed);
    }
    const qint64 microseconds = timer.nsecsElapsed() / 1000 / (rounds * keyStrokes);
    qInfo("a key stroke: %lld us", microseconds);
    QVERIFY(microseconds < 5000); // a sanitizer on a busy machine
}

QTEST_MAIN(TestSettingsSearch)
#include "tst_settingssearch.moc"
