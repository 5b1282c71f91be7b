#include <host/settingsdifference.h>

#include <host/objectindex.h>
#include <host/pageaccess.h>
#include <host/sampleinstallation.h>
#include <host/settingsdocument.h>

#include "messages.h"

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;
using State = SettingsDifference::State;
using vantorix::OBJECT_PARAMETERS;

class TestSettingsDifference : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void state_data();
    void state();
    void errors_data();
    void errors();
    void aBackupMayComeBeforeItsObjects();
    void whatIsOnlyStored();
    void rowsAreSorted();
    void anExportDiffersInNothing();
};

Q_DECLARE_METATYPE(SettingsDifference::State)

namespace {

const ObjectIndex objects({{vantorix::ORGSTRUCTURE_DATANAME, {{5, 0, "OT_FIRM", "Secret works", false}}}});
} // namespace

void TestSettingsDifference::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingsDifference::state_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QString>("stored"); // null for nothing
    QTest::addColumn<State>("state");

    QTest::newRow("same text") << MAX_CARD_COUNT << "5"
                               << "5" << State::Unchanged;
    QTest::newRow("same wrong text") << MAX_CARD_COUNT << "25"
                                     << "25" << State::Unchanged;
    QTest::newRow("same text of an unknown key") << "PT_OTHER"
                                                 << "5"
                                                 << "5" << State::Unchanged;
    QTest::newRow("same version") << VERSION << "7"
                                  << "7" << State::Unchanged;
    QTest::newRow("another text") << MAX_CARD_COUNT << "5"
                                  << "6" << State::Changed;
    QTest::newRow("same number, written otherwise") << MAX_CARD_COUNT << "05"
                                                    << "5" << State::Changed;
    QTest::newRow("not stored yet") << MAX_CARD_COUNT << "5" << QString() << State::Changed;
    QTest::newRow("empty text, not stored yet") << MOBILE_HOST << "" << QString() << State::Changed;
    QTest::newRow("secret") << PASSWORD_DEF << "new"
                            << "old" << State::Changed;
    QTest::newRow("object that the operator may not see") << DEFAULT_DEPARTMENT << "5"
                                                          << "0" << State::Changed;
    QTest::newRow("JSON object with a stranger") << PIN_STRENGTH << R"({"zone": 1})"
                                                 << "{}" << State::Changed;
    QTest::newRow("unknown key") << "PT_OTHER"
                                 << "5"
                                 << "6" << State::Unknown;
    QTest::newRow("unknown key, not stored yet") << "PT_OTHER"
                                                 << "5" << QString() << State::Unknown;
    QTest::newRow("address of a member") << "PT_PIN_STRENGTH.min_len"
                                         << "5" << QString() << State::Unknown;
    QTest::newRow("number out of range") << MAX_CARD_COUNT << "25"
                                         << "5" << State::Invalid;
    QTest::newRow("caption in the place of a choice") << ENABLE_FACE_SCANNING << "Да"
                                                      << "0" << State::Invalid;
    QTest::newRow("access with a stranger") << PageAccess::KEY << R"({"zone": true})"
                                            << "{}" << State::Changed;
    QTest::newRow("access with a number") << PageAccess::KEY << R"({"zone": true, "users": 1})"
                                          << "{}" << State::Invalid;
    QTest::newRow("another version") << VERSION << "8"
                                     << "7" << State::Invalid;
}

void TestSettingsDifference::state()
{
    QFETCH(QString, key);
    QFETCH(QString, wanted);
    QFETCH(QString, stored);
    OBJECT_PARAMETERS settings;
    if (!stored.isNull())
        settings.insert(key, stored);
    const auto rows = SettingsDifference::rows({{key, wanted}}, settings, objects);
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.first().key, key);
    QTEST(rows.first().state, "state");
    QCOMPARE(rows.first().error.isNull(), rows.first().state != State::Invalid);
}

void TestSettingsDifference::errors_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QString>("error");

    QTest::newRow("number") << MAX_CARD_COUNT << "25"
                            << "Максимальное количество карт сотрудника: Число вне допустимых границ. Допустимы целые "
                               "числа от 1 до 20.";
    QTest::newRow("member")
        << PIN_STRENGTH << R"({"zone": 1, "min_len": "x"})"
        << "Сложность пин-кода: Минимальная длина: Это не целое число. Допустимы целые числа от 0 до "
           "2147483647.";
    QTest::newRow("member that no editor shows")
        << PIN_STRENGTH << R"({"zone": 1, "zone": 2})"
        << "Сложность пин-кода: zone: Поле записано несколько раз; действует одно из значений.";
    QTest::newRow("secret") << PASSWORD_DEF << "canary\n"
                            << "Пароль по умолчанию: В тексте есть перевод строки, другой управляющий или недопустимый "
                               "знак. Допустима одна строка длиной до 32767 знаков.";
    QTest::newRow("version") << VERSION << "8"
                             << "Настройка доступна только для чтения.";
}

void TestSettingsDifference::errors()
{
    QFETCH(QString, key);
    QFETCH(QString, wanted);
    QTEST(SettingsDifference::rows({{key, wanted}}, {}, objects).first().error, "error");
}

void TestSettingsDifference::aBackupMayComeBeforeItsObjects()
{
    const auto rows = SettingsDifference::rows({{DEFAULT_DEPARTMENT, "77"}}, {}, objects);
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.first().state, State::Changed);
    QCOMPARE(rows.first().error, QString("Заявки: Подразделение по умолчанию: Объекта с таким номером нет. Допустим "
                                         "номер объекта, который предлагает страница настроек, или 0: не выбран."));
}

void TestSettingsDifference::whatIsOnlyStored()
{
    const OBJECT_PARAMETERS stored{{MOBILE_PORT, "1"}, {PASSWORD_DEF, "canary"}, {VERSION, "7"}};
    const auto rows = SettingsDifference::rows({}, stored, objects);
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.first().key, MOBILE_PORT);
    QCOMPARE(rows.first().state, State::Missing);
}

void TestSettingsDifference::rowsAreSorted()
{
    QStringList keys;
    for (const auto &row :
         SettingsDifference::rows({{"PT_C", "1"}, {"PT_A", "1"}}, {{"PT_B", "1"}, {"PT_C", "1"}}, objects))
        keys << row.key;
    QCOMPARE(keys, QStringList({"PT_A", "PT_B", "PT_C"}));
}

void TestSettingsDifference::anExportDiffersInNothing()
{
    const Installation sample = SampleInstallation::make();
    const auto document = SettingsDocument::of(sample.settings, SettingsDocument::Secrets::LeaveOut);
    const auto rows = SettingsDifference::rows(document.settings(), sample.settings, ObjectIndex(sample.objects));
    QCOMPARE(rows.size(), 41 - 3); // without the version and two secrets
    for (const auto &row : rows)
        QVERIFY2(row.state == State::Unchanged, qPrintable(row.key));

    // All of it can be stored where nothing is.
    for (const auto &row : SettingsDifference::rows(document.settings(), {}, ObjectIndex(sample.objects)))
        QVERIFY2(row.state == State::Changed, qPrintable(row.key + ": " + row.error));
}

QTEST_MAIN(TestSettingsDifference)
#include "tst_settingsdifference.moc"
