#include <host/settingvalue.h>

#include <host/objectindex.h>

#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

class TestSettingValue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void accepted_data();
    void accepted();
    void refused_data();
    void refused();
    void secretsStayOutOfErrors_data();
    void secretsStayOutOfErrors();
};

namespace {

SettingValue::Judgement judge(const QString &address, const QString &words)
{
    const ObjectIndex objects({{vantorix::ORGSTRUCTURE_DATANAME,
                                {{3, 0, "OT_DEPARTMENT", "Archive"}, {5, 0, "OT_FIRM", "Secret works", false}}}});
    return SettingValue::judge(SettingAddress::fromText(address), words, objects);
}
} // namespace

void TestSettingValue::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingValue::accepted_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("stored");

    QTest::newRow("number") << "PT_MAX_CARD_COUNT"
                            << "20"
                            << "20";
    QTest::newRow("number of a member") << "PT_PIN_STRENGTH.min_len"
                                        << "04"
                                        << "4";
    QTest::newRow("choice by caption") << "PT_IDENT_TYPE"
                                       << "логин + пароль"
                                       << "0";
    QTest::newRow("flag") << "PT_PIN_STRENGTH.deny_equal"
                          << "нет"
                          << "false";
    QTest::newRow("object") << "PT_DEFAULT_DEPARTMENT"
                            << "3"
                            << "3";
    QTest::newRow("object that the operator may not see") << "PT_DEFAULT_DEPARTMENT"
                                                          << "5"
                                                          << "5";
    QTest::newRow("no object") << "PT_DEFAULT_DEPARTMENT"
                               << ""
                               << "0";
    QTest::newRow("text") << "PT_PASS_REQUEST_SEQUENCE"
                          << "РОГ-${num}"
                          << "РОГ-${num}";
    QTest::newRow("secret") << "PT_PASSWORD_DEF"
                            << " s3cret "
                            << " s3cret ";
    QTest::newRow("JSON object stays letter by letter") << "PT_PIN_STRENGTH"
                                                        << R"({ "min_len":4, "zone": {"x": [1]} })"
                                                        << R"({ "min_len":4, "zone": {"x": [1]} })";
    QTest::newRow("access with a stranger") << "VX_PAGE_ACCESS"
                                            << R"({"zone": true})"
                                            << R"({"zone": true})";
    QTest::newRow("JSON object without members") << "PT_PIN_STRENGTH"
                                                 << "{}"
                                                 << "{}";
}

void TestSettingValue::accepted()
{
    QFETCH(QString, address);
    QFETCH(QString, words);
    QFETCH(QString, stored);
    const SettingValue::Judgement judgement = judge(address, words);
    QCOMPARE(judgement.error, QString());
    QCOMPARE(judgement.stored, std::optional<QString>(stored));
}

void TestSettingValue::refused_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("error");

    QTest::newRow("number out of range")
        << "PT_MAX_CARD_COUNT"
        << "25"
        << "Максимальное количество карт сотрудника (PT_MAX_CARD_COUNT): значение «25» не подходит. Число вне "
           "допустимых границ. Допустимы целые числа от 1 до 20.";
    QTest::newRow("no choice")
        << "PT_ENROLL_LIVE_PALM_DETECTION"
        << "да"
        << "Сканирование вен ладоней: Антифейк при сканировании (PT_ENROLL_LIVE_PALM_DETECTION): значение «да» не "
           "подходит. Такого варианта нет. Допустимые значения: 0 (Выкл.), 1 (Вкл.).";
    QTest::newRow("object that is gone")
        << "PT_DEFAULT_DEPARTMENT"
        << "77"
        << "Заявки: Подразделение по умолчанию (PT_DEFAULT_DEPARTMENT): значение «77» не подходит. Объекта с таким "
           "номером нет. Допустим номер объекта, который предлагает страница настроек, или 0: не выбран.";
    QTest::newRow("a long text is told in short")
        << "PT_MOBILE_HOST" << QString(80, 'x') + "\n"
        << "Хост (PT_MOBILE_HOST): значение «" + QString(60, 'x') +
               "…» не подходит. В тексте есть перевод строки, другой управляющий или недопустимый знак. Допустима "
               "одна строка длиной до 32767 знаков.";
    QTest::newRow("read-only") << "PT_VERSION"
                               << "8"
                               << "Версия базы данных (PT_VERSION): только для чтения. Уберите эту настройку.";
    QTest::newRow("unknown key")
        << "PT_MAX_CARDS"
        << "5"
        << "Настройки «PT_MAX_CARDS» нет. Проверьте имя: прописные и строчные буквы различаются.";
    QTest::newRow("unknown member")
        << "PT_PIN_STRENGTH.length"
        << "5"
        << "У настройки «PT_PIN_STRENGTH» нет поля «length». Её поля: min_len, max_len, deny_sequence, deny_equal.";
    QTest::newRow("member of no object") << "PT_MOBILE_PORT.low"
                                         << "5"
                                         << "У настройки «PT_MOBILE_PORT» нет полей. Укажите имя без «.low».";
    QTest::newRow("no JSON object")
        << "PT_PIN_STRENGTH"
        << "min_len=4"
        << "Сложность пин-кода (PT_PIN_STRENGTH): значение «min_len=4» не подходит. Текст не читается как объект JSON.";
    QTest::newRow("empty text for a JSON object")
        << "PT_PIN_STRENGTH"
        << ""
        << "Сложность пин-кода (PT_PIN_STRENGTH): значение «» не подходит. Текст не читается как объект JSON.";
    QTest::newRow("JSON object with a duplicate") << "PT_PIN_STRENGTH"
                                                  << R"({"min_len": 4, "min_len": 5})"
                                                  << "Сложность пин-кода: Минимальная длина (PT_PIN_STRENGTH.min_len): "
                                                     "значение «4, 5» не подходит. Поле записано "
                                                     "несколько раз; действует одно из значений.";
    QTest::newRow("JSON object with a duplicate that no editor shows")
        << "PT_PIN_STRENGTH"
        << R"({"zone": 1, "zone": 2})"
        << "Сложность пин-кода: zone (PT_PIN_STRENGTH.zone): значение «1, 2» не подходит. Поле записано несколько раз; "
           "действует одно из значений.";
    QTest::newRow("JSON object with a flag in words")
        << "PT_PIN_STRENGTH"
        << R"({"zone": 1, "deny_equal": "да"})"
        << "Запрещать одинаковые цифры подряд (PT_PIN_STRENGTH.deny_equal): значение «да» не подходит. Это не «да» и "
           "не "
           "«нет». Допустимые значения: true (да), false (нет).";
    QTest::newRow("JSON object with a nested value")
        << "PT_PIN_STRENGTH"
        << R"({"max_len": [8]})"
        << "Сложность пин-кода: Максимальная длина (PT_PIN_STRENGTH.max_len): значение «[8]» не подходит. Значение "
           "поля — "
           "не текст, не число и не true или false. Допустимы целые числа от 4 до 2147483647.";
}

void TestSettingValue::refused()
{
    QFETCH(QString, address);
    QFETCH(QString, words);
    const SettingValue::Judgement judgement = judge(address, words);
    QVERIFY(!judgement.stored);
    QTEST(judgement.error, "error");
}

void TestSettingValue::secretsStayOutOfErrors_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("words");

    QTest::newRow("two lines") << "PT_PASSWORD_DEF"
                               << "canary\nsecret";
    QTest::newRow("too long") << "PT_LOCKER_ACCESS_TOKEN" << QString("canary").repeated(10000);
    QTest::newRow("as a member") << "PT_PASSWORD_DEF.value"
                                 << "canary";
    QTest::newRow("another key") << "PT_PASSWORD_DEFAULT"
                                 << "canary";
}

void TestSettingValue::secretsStayOutOfErrors()
{
    QFETCH(QString, address);
    QFETCH(QString, words);
    const SettingValue::Judgement judgement = judge(address, words);
    QVERIFY(!judgement.stored);
    QVERIFY(!judgement.error.isEmpty());
    QVERIFY2(!judgement.error.contains("canary"), qPrintable(judgement.error));
}

QTEST_MAIN(TestSettingValue)
#include "tst_settingvalue.moc"
