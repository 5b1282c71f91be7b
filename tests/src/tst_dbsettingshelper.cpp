#include <vxsettings/dbsettingshelper.h>

#include "loggingrules.h"
#include "messages.h"
#include "translation.h"

#include <vxsettings/dbkeys.h>

#include <QTest>
#include <QVariant>

#include <limits>

using namespace db::database;
using Choices = std::map<unsigned int, QString>;
using Range = std::pair<int, int>;
using Type = DBSettingsType;
template <typename Value>
using Table = QVector<QPair<QString, Value>>;

Q_DECLARE_METATYPE(DBGroups)
Q_DECLARE_METATYPE(DBSettingsType)
Q_DECLARE_METATYPE(LabelPosition)
Q_DECLARE_METATYPE(Choices)
Q_DECLARE_METATYPE(Range)

namespace {

// What the catalogue has to know. The first table names every parameter, the others those that have such an entry.
// clang-format off
const Table<Type> types()
{
    return {
        {VERSION, Type::Readonly},
        {CARD_VIEW_FORMAT, Type::ComboBox},
        {PIN_STRENGTH, Type::JsonGroup},
        {MAX_CARD_COUNT, Type::SpinBox},
        {USE_STRICT_COMPARE_CARD_NUMBER, Type::ComboBox},
        {EMPLOYEE_PHOTO_TYPE, Type::ComboBox},
        {PASSWORD_STRENGTH, Type::JsonGroup},
        {PASSWORD_DEF, Type::Password},
        {PASSWORD_EXPIRED, Type::SpinBox},
        {PASSWORD_NOTIFY, Type::SpinBox},
        {IDENT_TYPE, Type::ComboBox},
        {USER_SESSION_COUNT, Type::SpinBox},
        {USER_SESSION_TIMEOUT, Type::SpinBox},
        {ENROLL_USE_DB_SETTINGS, Type::ComboBox},
        {ENROLL_AUTO_CHECK_TEMPLATES_TYPE, Type::ComboBox},
        {ENROLL_MANUAL_CHECK_TEMPLATES_TYPE, Type::ComboBox},
        {ENABLE_FINGERPRINT_SCANNING, Type::ComboBox},
        {ENROLL_FINGERPRINT_SEARCH_CORE, Type::ComboBox},
        {ENROLL_FINGERPRINT_QUALITY, Type::SpinBox},
        {ENROLL_FINGERPRINT_MAX_COUNT, Type::SpinBox},
        {ENROLL_LIVE_FINGER_DETECTION, Type::ComboBox},
        {ENABLE_PALM_SCANNING, Type::ComboBox},
        {ENROLL_PALM_QUALITY, Type::SpinBox},
        {ENROLL_SKYHAND_QUALITY, Type::SpinBox},
        {ENROLL_LIVE_PALM_DETECTION, Type::ComboBox},
        {PALM_TEMPLATES_AMOUNT_SETTINGS, Type::JsonGroup},
        {json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS, Type::CheckBox},
        {json::ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS, Type::CheckBox},
        {json::CONTACT_LEFT_PALM_MIN_AMOUNT, Type::SpinBox},
        {json::NON_CONTACT_LEFT_PALM_MIN_AMOUNT, Type::SpinBox},
        {json::CONTACT_RIGHT_PALM_MIN_AMOUNT, Type::SpinBox},
        {json::NON_CONTACT_RIGHT_PALM_MIN_AMOUNT, Type::SpinBox},
        {json::CONTACT_LEFT_PALM_MAX_AMOUNT, Type::SpinBox},
        {json::NON_CONTACT_LEFT_PALM_MAX_AMOUNT, Type::SpinBox},
        {json::CONTACT_RIGHT_PALM_MAX_AMOUNT, Type::SpinBox},
        {json::NON_CONTACT_RIGHT_PALM_MAX_AMOUNT, Type::SpinBox},
        {ENABLE_FACE_SCANNING, Type::ComboBox},
        {ENROLL_SHOW_FACE_QUALITY, Type::ComboBox},
        {ENROLL_FACE_BLUR_QUALITY, Type::SpinBox},
        {ENROLL_FACE_COLOR_QUALITY, Type::SpinBox},
        {ENROLL_FACE_MIN_SIZE, Type::SpinBox},
        {DEFAULT_DEPARTMENT, Type::OrgstructureSelector},
        {PASS_REQUEST_SEQUENCE, Type::LineEdit},
        {MOBILE_HOST, Type::LineEdit},
        {MOBILE_PORT, Type::SpinBox},
        {MOBILE_VERIFY_FACE, Type::ComboBox},
        {MOBILE_WITHOUT_PHOTO, Type::ComboBox},
        {MOBILE_STYLE_INDEX, Type::ComboBox},
        {MOBILE_SMARTCARD_PROFILE_ID, Type::SmartCardProfileSelector},
        {LOCKER_ACCESS_TOKEN, Type::Password},
        {INTEGRATION_DEFAULT_DEPARTMENT, Type::OrgstructureSelector},
        {json::MAX_LEN, Type::SpinBox},
        {json::MIN_LEN, Type::SpinBox},
        {json::DENY_SEQUENCE, Type::CheckBox},
        {json::DENY_EQUAL, Type::CheckBox},
        {json::USE_PASSWORD_STRENGTH, Type::CheckBox},
        {json::ADMIT_EMPTY_PASSWORD, Type::CheckBox},
        {json::MIN_AMOUNT_NUMBERS, Type::CheckBox},
        {json::MIN_AMOUNT_PUNCTUATION_MARKS, Type::CheckBox},
        {json::MIN_AMOUNT_LETTERS, Type::CheckBox},
        {json::MIN_AMOUNT_LETTERS_UPPER_CASE, Type::CheckBox},
        {json::MIN_AMOUNT_LETTERS_LOWER_CASE, Type::CheckBox},
        {json::ADMIT_NON_LATIN_LETTERS, Type::CheckBox},
    };
}

const Table<QString> captions()
{
    return {
        {VERSION, "Версия базы данных"},
        {CARD_VIEW_FORMAT, "Формат отображения номеров карт"},
        {MAX_CARD_COUNT, "Максимальное количество карт сотрудника"},
        {USE_STRICT_COMPARE_CARD_NUMBER, "Строгое сравнение номеров карт"},
        {EMPLOYEE_PHOTO_TYPE, "Граница фотографии сотрудника"},
        {PASSWORD_DEF, "Пароль по умолчанию"},
        {PASSWORD_EXPIRED, "Срок действия пароля (дней)"},
        {PASSWORD_NOTIFY, "Срок уведомления об изменении пароля (дней)"},
        {IDENT_TYPE, "Тип идентификации для входа в Vantorix-Studio"},
        {USER_SESSION_COUNT, "Количество одновременных сессий пользователя"},
        {USER_SESSION_TIMEOUT, "Время бездействия пользователя (минут)"},
        {ENROLL_USE_DB_SETTINGS, "Использовать настройки БД"},
        {ENROLL_AUTO_CHECK_TEMPLATES_TYPE, "Автоматическая проверка шаблонов"},
        {ENROLL_MANUAL_CHECK_TEMPLATES_TYPE, "Ручная проверка шаблонов"},
        {ENABLE_FINGERPRINT_SCANNING, "Включить возможность сканирования по отпечатку пальца"},
        {ENROLL_FINGERPRINT_SEARCH_CORE, "Поиск ядра"},
        {ENROLL_FINGERPRINT_QUALITY, "Требуемое качество шаблона отпечатка пальца"},
        {ENROLL_FINGERPRINT_MAX_COUNT, "Максимальное количество шаблонов отпечатков для сотрудника"},
        {ENROLL_LIVE_FINGER_DETECTION, "Антифейк при сканировании"},
        {ENABLE_PALM_SCANNING, "Включить возможность сканирования по ладони"},
        {ENROLL_PALM_QUALITY, "Требуемое качество шаблона ладони KLV-RT"},
        {ENROLL_SKYHAND_QUALITY, "Требуемое качество шаблона ладони SkyHand"},
        {ENROLL_LIVE_PALM_DETECTION, "Антифейк при сканировании"},
        {json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS, "Требование количества ладоней для контактных вен"},
        {json::ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS, "Требование количества ладоней для бесконтактных вен"},
        {json::CONTACT_LEFT_PALM_MIN_AMOUNT, "Минимальное количество левых ладоней"},
        {json::NON_CONTACT_LEFT_PALM_MIN_AMOUNT, "Минимальное количество левых ладоней"},
        {json::CONTACT_RIGHT_PALM_MIN_AMOUNT, "Минимальное количество правых ладоней"},
        {json::NON_CONTACT_RIGHT_PALM_MIN_AMOUNT, "Минимальное количество правых ладоней"},
        {json::CONTACT_LEFT_PALM_MAX_AMOUNT, "Максимальное количество левых ладоней"},
        {json::NON_CONTACT_LEFT_PALM_MAX_AMOUNT, "Максимальное количество левых ладоней"},
        {json::CONTACT_RIGHT_PALM_MAX_AMOUNT, "Максимальное количество правых ладоней"},
        {json::NON_CONTACT_RIGHT_PALM_MAX_AMOUNT, "Максимальное количество правых ладоней"},
        {ENABLE_FACE_SCANNING, "Включить возможность сканирования по лицу"},
        {ENROLL_SHOW_FACE_QUALITY, "Показывать параметры качества"},
        {ENROLL_FACE_BLUR_QUALITY, "Требуемое качество размытости изображения лица"},
        {ENROLL_FACE_COLOR_QUALITY, "Требуемое качество цветности изображения лица"},
        {ENROLL_FACE_MIN_SIZE, "Минимальный размер диагонали лица (px)"},
        {DEFAULT_DEPARTMENT, "Подразделение по умолчанию"},
        {PASS_REQUEST_SEQUENCE, "Формат номера заявки"},
        {MOBILE_HOST, "Хост"},
        {MOBILE_PORT, "Порт"},
        {MOBILE_WITHOUT_PHOTO, "Отправлять фотографию"},
        {MOBILE_VERIFY_FACE, "Выполнять верификацию"},
        {MOBILE_STYLE_INDEX, "Стиль мобильного приложения"},
        {MOBILE_SMARTCARD_PROFILE_ID, "Профиль смарткарт"},
        {LOCKER_ACCESS_TOKEN, "Токен доступа"},
        {INTEGRATION_DEFAULT_DEPARTMENT, "Подразделение по умолчанию"},
        {json::MAX_LEN, "Максимальная длина"},
        {json::MIN_LEN, "Минимальная длина"},
        {json::DENY_SEQUENCE, "Запрещать последовательные цифры"},
        {json::DENY_EQUAL, "Запрещать одинаковые цифры подряд"},
        {json::USE_PASSWORD_STRENGTH, "Использовать ограничения для пароля"},
        {json::ADMIT_EMPTY_PASSWORD, "Запрет пустого пароля"},
        {json::MIN_AMOUNT_NUMBERS, "Использовать цифры"},
        {json::MIN_AMOUNT_PUNCTUATION_MARKS, "Использовать специальные знаки"},
        {json::MIN_AMOUNT_LETTERS, "Использовать буквы"},
        {json::MIN_AMOUNT_LETTERS_UPPER_CASE, "Использовать буквы в верхнем регистре"},
        {json::MIN_AMOUNT_LETTERS_LOWER_CASE, "Использовать буквы в нижнем регистре"},
        {json::ADMIT_NON_LATIN_LETTERS, "Запрет использования нелатинских букв"},
    };
}

const Table<Choices> choices()
{
    return {
        {CARD_VIEW_FORMAT, {{0, "Десятичный"}, {1, "Шестнадцатеричный"}, {2, "Семейство-код"}}},
        {USE_STRICT_COMPARE_CARD_NUMBER, {{0, "Нет"}, {1, "Да"}}},
        {EMPLOYEE_PHOTO_TYPE, {{0, "Круглая"}, {1, "Прямоугольная"}}},
        {IDENT_TYPE, {{0, "Логин + пароль"}, {1, "Логин + биометрическая информация"}, {2, "Логин + пароль + биометрическая информация"}}},
        {ENROLL_USE_DB_SETTINGS, {{0, "Нет"}, {1, "Да"}}},
        {ENROLL_AUTO_CHECK_TEMPLATES_TYPE, {{0, "Нет"}, {1, "По всей базе"}, {2, "По предприятию"}, {3, "По подразделению"}}},
        {ENROLL_MANUAL_CHECK_TEMPLATES_TYPE, {{1, "По всей базе"}, {2, "По предприятию"}, {3, "По подразделению"}, {4, "По своим шаблонам"}}},
        {ENROLL_FINGERPRINT_SEARCH_CORE, {{0, "Нет"}, {1, "Да"}}},
        {ENROLL_LIVE_FINGER_DETECTION, {{0, "Выкл."}, {1, "Вкл."}}},
        {ENROLL_LIVE_PALM_DETECTION, {{0, "Выкл."}, {1, "Вкл."}}},
        {ENROLL_SHOW_FACE_QUALITY, {{0, "Нет"}, {1, "Да"}}},
        {ENABLE_FINGERPRINT_SCANNING, {{0, "Нет"}, {1, "Да"}}},
        {ENABLE_PALM_SCANNING, {{0, "Нет"}, {1, "Да"}}},
        {ENABLE_FACE_SCANNING, {{0, "Нет"}, {1, "Да"}}},
        {MOBILE_VERIFY_FACE, {{0, "Нет"}, {1, "Да"}}},
        {MOBILE_WITHOUT_PHOTO, {{0, "Да"}, {1, "Нет"}}},
        {MOBILE_STYLE_INDEX, {{0, "Vantorix"}, {1, "Corvalen"}}},
    };
}

const Table<Range> ranges()
{
    return {
        {MAX_CARD_COUNT, {1, 20}},
        {PASSWORD_EXPIRED, {0, 9999}},
        {PASSWORD_NOTIFY, {0, 9999}},
        {USER_SESSION_COUNT, {0, 2147483647}},
        {USER_SESSION_TIMEOUT, {0, 1440}},
        {ENROLL_FINGERPRINT_QUALITY, {0, 100}},
        {ENROLL_FINGERPRINT_MAX_COUNT, {0, 100}},
        {ENROLL_PALM_QUALITY, {0, 100}},
        {ENROLL_SKYHAND_QUALITY, {0, 100}},
        {ENROLL_FACE_BLUR_QUALITY, {0, 100}},
        {ENROLL_FACE_COLOR_QUALITY, {0, 100}},
        {ENROLL_FACE_MIN_SIZE, {10, 1024}},
        {json::CONTACT_LEFT_PALM_MIN_AMOUNT, {2, 8}},
        {json::CONTACT_LEFT_PALM_MAX_AMOUNT, {2, 8}},
        {json::CONTACT_RIGHT_PALM_MIN_AMOUNT, {2, 8}},
        {json::CONTACT_RIGHT_PALM_MAX_AMOUNT, {2, 8}},
        {json::NON_CONTACT_LEFT_PALM_MIN_AMOUNT, {2, 18}},
        {json::NON_CONTACT_LEFT_PALM_MAX_AMOUNT, {2, 18}},
        {json::NON_CONTACT_RIGHT_PALM_MIN_AMOUNT, {2, 18}},
        {json::NON_CONTACT_RIGHT_PALM_MAX_AMOUNT, {2, 18}},
        {json::MIN_LEN, {0, 2147483647}},
        {json::MAX_LEN, {4, 2147483647}},
        {MOBILE_PORT, {0, 65535}},
    };
}

const Table<QString> specialValues()
{
    return {
        {USER_SESSION_COUNT, "Без ограничений"},
        {USER_SESSION_TIMEOUT, "Без ограничений"},
    };
}

const Table<QString> toolTips()
{
    return {
        {PASS_REQUEST_SEQUENCE, "<html>Возможные параметры:<br/><b>${year}</b> - текущий год<br/><b>${month}</b> - текущий месяц<br/><b>${day}</b> - текущий день<br/><b>${num} ${zero6-num} ${zero8-num} ${zero10-num}</b> - следующий номер<br/>Например: <b>РОГ-${year}${month}-${zero8-num}</b></html>"},
    };
}

const Table<QStringList> dependents()
{
    return {
        {json::USE_PASSWORD_STRENGTH, {json::MIN_LEN, json::MAX_LEN, json::ADMIT_EMPTY_PASSWORD, json::MIN_AMOUNT_NUMBERS, json::MIN_AMOUNT_PUNCTUATION_MARKS, json::MIN_AMOUNT_LETTERS, json::MIN_AMOUNT_LETTERS_UPPER_CASE, json::MIN_AMOUNT_LETTERS_LOWER_CASE, json::ADMIT_NON_LATIN_LETTERS}},
        {MOBILE_WITHOUT_PHOTO, {MOBILE_VERIFY_FACE}},
        {ENABLE_FINGERPRINT_SCANNING, {ENROLL_FINGERPRINT_SEARCH_CORE, ENROLL_FINGERPRINT_QUALITY, ENROLL_FINGERPRINT_MAX_COUNT, ENROLL_LIVE_FINGER_DETECTION}},
        {ENABLE_PALM_SCANNING, {ENROLL_PALM_QUALITY, ENROLL_SKYHAND_QUALITY, ENROLL_LIVE_PALM_DETECTION}},
        {json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS, {json::CONTACT_LEFT_PALM_MIN_AMOUNT, json::CONTACT_RIGHT_PALM_MIN_AMOUNT, json::CONTACT_LEFT_PALM_MAX_AMOUNT, json::CONTACT_RIGHT_PALM_MAX_AMOUNT}},
        {json::ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS, {json::NON_CONTACT_LEFT_PALM_MIN_AMOUNT, json::NON_CONTACT_RIGHT_PALM_MIN_AMOUNT, json::NON_CONTACT_LEFT_PALM_MAX_AMOUNT, json::NON_CONTACT_RIGHT_PALM_MAX_AMOUNT}},
        {ENABLE_FACE_SCANNING, {ENROLL_FACE_BLUR_QUALITY, ENROLL_FACE_MIN_SIZE, ENROLL_FACE_COLOR_QUALITY, ENROLL_SHOW_FACE_QUALITY}},
    };
}
// clang-format on

/// Texts that look like keys of the catalogue and are none.
const QVector<QPair<const char *, QString>> unknownKeys()
{
    return {
        {"unknown key", "X"},
        {"empty key", ""},
        {"null key", QString()},
        {"case differs", "pt_version"},
        {"case of a member name differs", "MIN_LEN"},
        {"space behind", "PT_VERSION "},
        {"beginning of a key", "PT_ENROLL"},
        {"name of a constant whose key is another", "PT_ENROLL_SHOW_FACE_QUALITY"},
    };
}

/// One row for every parameter of the catalogue and for every unknown key; a default value for those without an entry.
template <typename Value>
void addRows(const Table<Value> &entries)
{
    QHash<QString, Value> expected;
    for (const auto &entry : entries)
        expected.insert(entry.first, entry.second);

    QTest::addColumn<QString>("key");
    QTest::addColumn<Value>("expected");
    for (const auto &parameter : types())
        QTest::newRow(qPrintable(parameter.first)) << parameter.first << expected.value(parameter.first);
    for (const auto &key : unknownKeys())
        QTest::newRow(key.first) << key.second << Value();
}

/// Shows a translation of @p source for as long as a translator is installed.
template <typename LookUp>
void checkFollowsTheLanguage(const QString &source, const LookUp &lookUp)
{
    QCOMPARE(lookUp(), source);
    {
        const InstalledTranslation other({{"DBSettingsHelper", source, "of another context"}});
        QCOMPARE(lookUp(), source);
        const InstalledTranslation first({{"QObject", source, "first"}});
        QCOMPARE(lookUp(), QString("first"));
        const InstalledTranslation second({{"QObject", source, "second"}});
        QCOMPARE(lookUp(), QString("second"));
    }
    QCOMPARE(lookUp(), source);
}

void checkMiss(const CapturedMessage &message, int line, const QString &function, const QString &text)
{
    QCOMPARE(message.type, QtCriticalMsg);
    QCOMPARE(message.category, QString("gui.lib.dbsettings"));
    QCOMPARE(message.file, QString("src/dbsettingshelper"));
    QCOMPARE(message.line, line);
    QCOMPARE(message.function, function);
    QCOMPARE(message.text, text);
}
} // namespace

class TestDBSettingsHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void groupName_data() { addGroups(); }
    void groupName();
    void groupNameFollowsTheLanguage_data() { addGroups(); }
    void groupNameFollowsTheLanguage();
    void groupIconName_data() { addGroups(); }
    void groupIconName();
    void labelsPosition_data() { addGroups(); }
    void labelsPosition();
    void groupLayout_data() { addGroups(); }
    void groupLayout();
    void groupLayoutIsACopy();
    void groupParams_data();
    void groupParams();
    void groupParamsIsACopy();
    void everyParameterOfAGroupHasAnEditor_data() { addGroups(); }
    void everyParameterOfAGroupHasAnEditor();
    void jsonParam_data() { addGroups(); }
    void jsonParam();
    void jsonGroup_data();
    void jsonGroup();
    void groupLookUpsWriteNothing_data() { addGroups(); }
    void groupLookUpsWriteNothing();

    void paramName_data() { addRows(captions()); }
    void paramName();
    void paramNameFollowsTheLanguage_data();
    void paramNameFollowsTheLanguage();
    void paramNameReportsAMissEveryTime_data();
    void paramNameReportsAMissEveryTime();
    void paramNameIsSilentWithoutCriticalLevel();

    void paramType_data() { addRows(types()); }
    void paramType();
    void paramTypeReportsAMissOnce_data();
    void paramTypeReportsAMissOnce();
    void paramTypeRemembersASilentMiss();
    void lookUpsReportTheirMissesApart();

    void toolTip_data() { addRows(toolTips()); }
    void toolTip();
    void toolTipFollowsTheLanguage();

    void paramValues_data() { addRows(choices()); }
    void paramValues();
    void paramValuesFollowTheLanguage_data();
    void paramValuesFollowTheLanguage();
    void paramValuesIsACopy();
    void paramRange_data() { addRows(ranges()); }
    void paramRange();
    void paramSpecialValue_data() { addRows(specialValues()); }
    void paramSpecialValue();
    void paramSpecialValueFollowsTheLanguage_data();
    void paramSpecialValueFollowsTheLanguage();
    void isInvertedValue_data() { addRows(types()); }
    void isInvertedValue();

    void paramChilds_data() { addRows(dependents()); }
    void paramChilds();
    void dependentsHaveNoDependents_data();
    void dependentsHaveNoDependents();
    void paramChildIsEnabled_data();
    void paramChildIsEnabled();

    void parameterLookUpsWriteNothing_data() { addRows(types()); }
    void parameterLookUpsWriteNothing();

private:
    static void addGroups();
};

// clang-format off
void TestDBSettingsHelper::addGroups()
{
    QTest::addColumn<DBGroups>("group");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<LabelPosition>("labels");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("jsonKey");

    const QString none;
    QTest::newRow("database") << DBGroups::Database << "База данных" << "common-db" << LabelPosition::Left << 1 << none;
    QTest::newRow("employees") << DBGroups::Employees << "Сотрудники" << "object-OT_WORKER" << LabelPosition::Right << 2 << none;
    QTest::newRow("users") << DBGroups::Users << "Пользователи" << "object-OT_USER" << LabelPosition::Bottom << 3 << none;
    QTest::newRow("scanning in general") << DBGroups::ScanningCommon << "Сканирование общие" << "action-scan" << LabelPosition::Bottom << 3 << none;
    QTest::newRow("fingerprint scanning") << DBGroups::FingerprintScanning << "Сканирование отпечатков пальцев" << "common-fingerprint" << LabelPosition::Right << 2 << none;
    QTest::newRow("palm scanning") << DBGroups::PalmScanning << "Сканирование вен ладоней" << "common-palm" << LabelPosition::Right << 2 << none;
    QTest::newRow("face scanning") << DBGroups::FaceScanning << "Сканирование лица" << "common-face" << LabelPosition::Right << 2 << none;
    QTest::newRow("pass requests") << DBGroups::PassRequests << "Заявки" << "object-OT_PASS_REQUEST" << LabelPosition::Right << 1 << none;
    QTest::newRow("connection") << DBGroups::Connection << "Настройки подключения" << "common-sphere" << LabelPosition::Bottom << 2 << none;
    QTest::newRow("mobile options of the application") << DBGroups::StudioMobile << "Vantorix Studio" << "object-OT_WORKER" << LabelPosition::Right << 2 << none;
    QTest::newRow("mobile identification") << DBGroups::MobileId << "Vantorix ID" << "object-OT_RFID" << LabelPosition::Right << 2 << none;
    QTest::newRow("integration") << DBGroups::Integration << "Интеграция" << "common-filter_2" << LabelPosition::Right << 1 << none;
    QTest::newRow("pin strength") << DBGroups::PinStrength << "Сложность пин-кода" << none << LabelPosition::Right << 2 << "PT_PIN_STRENGTH";
    QTest::newRow("password strength") << DBGroups::PasswordStrength << "Сложность пароля" << none << LabelPosition::Right << 2 << "PT_PASSWORD_STRENGTH";
    QTest::newRow("amount of palm templates") << DBGroups::PalmTemplatesAmount << "Настройки количества шаблонов" << none << LabelPosition::Right << 2 << "PT_PALM_TEMPLATES_AMOUNT_SETTINGS";

    for (int unassigned : {9, 13, 17, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        QTest::addRow("unassigned number %d", unassigned)
            << DBGroups(unassigned) << none << none << LabelPosition::None << 1 << none;
    }
}

void TestDBSettingsHelper::groupParams_data()
{
    QTest::addColumn<DBGroups>("group");
    QTest::addColumn<QStringList>("expected");

    const QVector<QPair<DBGroups, QStringList>> lists = {
        {DBGroups::Database, {VERSION}},
        {DBGroups::Employees, {MAX_CARD_COUNT, USE_STRICT_COMPARE_CARD_NUMBER, CARD_VIEW_FORMAT, EMPLOYEE_PHOTO_TYPE, PIN_STRENGTH}},
        {DBGroups::Users, {PASSWORD_STRENGTH, PASSWORD_DEF, PASSWORD_EXPIRED, PASSWORD_NOTIFY, IDENT_TYPE, USER_SESSION_COUNT, USER_SESSION_TIMEOUT}},
        {DBGroups::ScanningCommon, {ENROLL_USE_DB_SETTINGS, ENROLL_AUTO_CHECK_TEMPLATES_TYPE, ENROLL_MANUAL_CHECK_TEMPLATES_TYPE}},
        {DBGroups::FingerprintScanning, {ENABLE_FINGERPRINT_SCANNING, ENROLL_FINGERPRINT_SEARCH_CORE, ENROLL_FINGERPRINT_QUALITY, ENROLL_FINGERPRINT_MAX_COUNT, ENROLL_LIVE_FINGER_DETECTION}},
        {DBGroups::PalmScanning, {ENABLE_PALM_SCANNING, ENROLL_PALM_QUALITY, ENROLL_SKYHAND_QUALITY, ENROLL_LIVE_PALM_DETECTION, PALM_TEMPLATES_AMOUNT_SETTINGS}},
        {DBGroups::FaceScanning, {ENABLE_FACE_SCANNING, ENROLL_FACE_BLUR_QUALITY, ENROLL_FACE_MIN_SIZE, ENROLL_FACE_COLOR_QUALITY, ENROLL_SHOW_FACE_QUALITY}},
        {DBGroups::PassRequests, {DEFAULT_DEPARTMENT, PASS_REQUEST_SEQUENCE}},
        {DBGroups::Connection, {MOBILE_HOST, MOBILE_PORT, LOCKER_ACCESS_TOKEN}},
        {DBGroups::StudioMobile, {MOBILE_WITHOUT_PHOTO, MOBILE_VERIFY_FACE}},
        {DBGroups::MobileId, {MOBILE_STYLE_INDEX, MOBILE_SMARTCARD_PROFILE_ID}},
        {DBGroups::Integration, {INTEGRATION_DEFAULT_DEPARTMENT}},
        {DBGroups::PinStrength, {json::MIN_LEN, json::MAX_LEN, json::DENY_SEQUENCE, json::DENY_EQUAL}},
        {DBGroups::PasswordStrength, {json::USE_PASSWORD_STRENGTH, json::ADMIT_EMPTY_PASSWORD, json::MIN_LEN, json::MAX_LEN, json::MIN_AMOUNT_NUMBERS, json::MIN_AMOUNT_PUNCTUATION_MARKS, json::MIN_AMOUNT_LETTERS, json::MIN_AMOUNT_LETTERS_UPPER_CASE, json::MIN_AMOUNT_LETTERS_LOWER_CASE, json::ADMIT_NON_LATIN_LETTERS}},
        {DBGroups::PalmTemplatesAmount, {json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS, json::ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS, json::CONTACT_LEFT_PALM_MIN_AMOUNT, json::NON_CONTACT_LEFT_PALM_MIN_AMOUNT, json::CONTACT_RIGHT_PALM_MIN_AMOUNT, json::NON_CONTACT_RIGHT_PALM_MIN_AMOUNT, json::CONTACT_LEFT_PALM_MAX_AMOUNT, json::NON_CONTACT_LEFT_PALM_MAX_AMOUNT, json::CONTACT_RIGHT_PALM_MAX_AMOUNT, json::NON_CONTACT_RIGHT_PALM_MAX_AMOUNT}},
    };
    for (const auto &list : lists)
        QTest::addRow("group %d", int(list.first)) << list.first << list.second;
    for (int unassigned : {9, 13, 17, -1})
        QTest::addRow("unassigned number %d", unassigned) << DBGroups(unassigned) << QStringList();
}
// clang-format on

void TestDBSettingsHelper::groupName()
{
    QFETCH(DBGroups, group);
    QTEST(DBSettingsHelper::groupName(group), "title");
    QTEST(DBSettingsHelper::groupName(group), "title");
}

void TestDBSettingsHelper::groupNameFollowsTheLanguage()
{
    QFETCH(DBGroups, group);
    QFETCH(QString, title);
    if (!title.isEmpty())
        checkFollowsTheLanguage(title, [=] { return DBSettingsHelper::groupName(group); });

    const InstalledTranslation ofNothing({{"QObject", "", "a text for no text"}});
    QTEST(DBSettingsHelper::groupName(group), "title");
}

void TestDBSettingsHelper::groupIconName()
{
    QFETCH(DBGroups, group);
    QFETCH(QString, icon);
    for (int time = 1; time <= 2; ++time) {
        QCOMPARE(DBSettingsHelper::groupIconName(group), icon);
        QCOMPARE(DBSettingsHelper::groupIconName(group).isNull(), icon.isNull());
    }
}

void TestDBSettingsHelper::labelsPosition()
{
    QFETCH(DBGroups, group);
    QTEST(DBSettingsHelper::labelsPosition(group), "labels");
    QTEST(DBSettingsHelper::labelsPosition(group), "labels");
}

void TestDBSettingsHelper::groupLayout()
{
    QFETCH(DBGroups, group);
    for (int time = 1; time <= 2; ++time) {
        const LayoutConcrete layout = DBSettingsHelper::groupLayout(group);
        QTEST(layout.columnCount, "columns");
        QVERIFY(layout.children.empty());
    }
}

void TestDBSettingsHelper::groupLayoutIsACopy()
{
    for (DBGroups group : {DBGroups::Users, DBGroups::PassRequests, DBGroups(9)}) {
        const int columns = DBSettingsHelper::groupLayout(group).columnCount;
        LayoutConcrete layout = DBSettingsHelper::groupLayout(group);
        layout.columnCount = 7;
        layout.children.push_back({});
        QCOMPARE(DBSettingsHelper::groupLayout(group).columnCount, columns);
        QVERIFY(DBSettingsHelper::groupLayout(group).children.empty());
    }
}

void TestDBSettingsHelper::groupParams()
{
    QFETCH(DBGroups, group);
    QTEST(DBSettingsHelper::groupParams(group), "expected");
    QTEST(DBSettingsHelper::groupParams(group), "expected");
}

void TestDBSettingsHelper::groupParamsIsACopy()
{
    for (DBGroups group : {DBGroups::Database, DBGroups(9)}) {
        const QStringList before = DBSettingsHelper::groupParams(group);
        DBSettingsHelper::groupParams(group).append("PT_NEW");
        QCOMPARE(DBSettingsHelper::groupParams(group), before);
    }
}

void TestDBSettingsHelper::everyParameterOfAGroupHasAnEditor()
{
    QFETCH(DBGroups, group);
    for (const QString &key : DBSettingsHelper::groupParams(group))
        QVERIFY2(DBSettingsHelper::paramType(key) != DBSettingsType::Unknown, qPrintable(key));
}

void TestDBSettingsHelper::jsonParam()
{
    QFETCH(DBGroups, group);
    QTEST(DBSettingsHelper::jsonParam(group), "jsonKey");
    QTEST(DBSettingsHelper::jsonParam(group), "jsonKey");
}

void TestDBSettingsHelper::jsonGroup_data()
{
    addRows<DBGroups>({{PIN_STRENGTH, DBGroups::PinStrength},
                       {PASSWORD_STRENGTH, DBGroups::PasswordStrength},
                       {PALM_TEMPLATES_AMOUNT_SETTINGS, DBGroups::PalmTemplatesAmount}});
}

void TestDBSettingsHelper::jsonGroup()
{
    QFETCH(QString, key);
    QTEST(DBSettingsHelper::jsonGroup(key), "expected");
    QTEST(DBSettingsHelper::jsonGroup(key), "expected");
}

void TestDBSettingsHelper::groupLookUpsWriteNothing()
{
    QFETCH(DBGroups, group);
    QFETCH(QString, jsonKey);
    const LoggingRules everything("gui.lib.dbsettings=true");
    const CapturedMessages messages;

    DBSettingsHelper::groupName(group);
    DBSettingsHelper::groupIconName(group);
    DBSettingsHelper::groupParams(group);
    DBSettingsHelper::labelsPosition(group);
    DBSettingsHelper::groupLayout(group);
    DBSettingsHelper::jsonParam(group);
    DBSettingsHelper::jsonGroup(jsonKey);

    QCOMPARE(messages.texts(), QStringList());
}

void TestDBSettingsHelper::paramName()
{
    QFETCH(QString, key);
    QFETCH(QString, expected);
    const CapturedMessages misses;

    QCOMPARE(DBSettingsHelper::paramName(key), expected);
    QCOMPARE(DBSettingsHelper::paramName(key).isNull(), expected.isNull());
    QCOMPARE(misses.count(), expected.isNull() ? 2 : 0);
}

void TestDBSettingsHelper::paramNameFollowsTheLanguage_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("caption");
    for (const auto &caption : captions())
        QTest::newRow(qPrintable(caption.first)) << caption.first << caption.second;
}

void TestDBSettingsHelper::paramNameFollowsTheLanguage()
{
    QFETCH(QString, key);
    QFETCH(QString, caption);
    checkFollowsTheLanguage(caption, [=] { return DBSettingsHelper::paramName(key); });
}

void TestDBSettingsHelper::paramNameReportsAMissEveryTime_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");

    QTest::newRow("json setting") << PIN_STRENGTH << R"(dbsettings does not contain parameter "PT_PIN_STRENGTH")";
    QTest::newRow("another json setting")
        << PASSWORD_STRENGTH << R"(dbsettings does not contain parameter "PT_PASSWORD_STRENGTH")";
    QTest::newRow("third json setting")
        << PALM_TEMPLATES_AMOUNT_SETTINGS
        << R"(dbsettings does not contain parameter "PT_PALM_TEMPLATES_AMOUNT_SETTINGS")";
    QTest::newRow("unknown") << "X"
                             << R"(dbsettings does not contain parameter "X")";
    QTest::newRow("empty") << ""
                           << R"(dbsettings does not contain parameter "")";
    QTest::newRow("null") << QString() << R"(dbsettings does not contain parameter "")";
    QTest::newRow("quotes and line break") << "a \"b\"\n"
                                           << R"(dbsettings does not contain parameter "a \"b\"\n")";
    QTest::newRow("not ascii") << "Ключ"
                               << R"(dbsettings does not contain parameter "Ключ")";
}

void TestDBSettingsHelper::paramNameReportsAMissEveryTime()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    for (int time = 1; time <= 3; ++time) {
        const CapturedMessages misses;
        QVERIFY(DBSettingsHelper::paramName(key).isNull());
        QCOMPARE(misses.count(), 1);
        checkMiss(misses.all().first(), 345, "static QString DBSettingsHelper::paramName(const QString&)", text);
    }
}

void TestDBSettingsHelper::paramNameIsSilentWithoutCriticalLevel()
{
    const CapturedMessages messages;
    {
        const LoggingRules rules("gui.lib.dbsettings.critical=false");
        QVERIFY(DBSettingsHelper::paramName("silent").isNull());
        QCOMPARE(DBSettingsHelper::paramName(MOBILE_HOST), QString("Хост"));
        QCOMPARE(messages.count(), 0);
    }
    const LoggingRules rules("gui.lib.dbsettings=false\ngui.lib.dbsettings.critical=true");
    QVERIFY(DBSettingsHelper::paramName("silent").isNull());
    QCOMPARE(messages.count(), 1);
}

void TestDBSettingsHelper::paramType()
{
    QFETCH(QString, key);
    const CapturedMessages misses; // what they say is tested with keys that nobody asked for before
    QTEST(DBSettingsHelper::paramType(key), "expected");
    QTEST(DBSettingsHelper::paramType(key), "expected");
    QVERIFY(misses.count() <= 1);
}

void TestDBSettingsHelper::paramTypeReportsAMissOnce_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");

    QTest::newRow("unknown") << "once"
                             << R"(dbsettings does not contain parameter "once")";
    QTest::newRow("the same in another case") << "Once"
                                              << R"(dbsettings does not contain parameter "Once")";
    QTest::newRow("case differs") << "pt_max_card_count"
                                  << R"(dbsettings does not contain parameter "pt_max_card_count")";
    QTest::newRow("quotes and line break") << "a \"b\"\n"
                                           << R"(dbsettings does not contain parameter "a \"b\"\n")";
    QTest::newRow("not ascii") << "Ключ"
                               << R"(dbsettings does not contain parameter "Ключ")";
}

void TestDBSettingsHelper::paramTypeReportsAMissOnce()
{
    QFETCH(QString, key);
    const CapturedMessages misses;

    for (int time = 1; time <= 3; ++time)
        QCOMPARE(DBSettingsHelper::paramType(key), DBSettingsType::Unknown);

    QCOMPARE(misses.count(), 1);
    QFETCH(QString, text);
    checkMiss(misses.all().first(), 262, "static DBSettingsType DBSettingsHelper::paramType(const QString&)", text);
}

void TestDBSettingsHelper::paramTypeRemembersASilentMiss()
{
    const CapturedMessages misses;
    {
        const LoggingRules rules("gui.lib.dbsettings.critical=false");
        QCOMPARE(DBSettingsHelper::paramType("never said"), DBSettingsType::Unknown);
        QCOMPARE(misses.count(), 0);
    }
    QCOMPARE(DBSettingsHelper::paramType("never said"), DBSettingsType::Unknown);
    QCOMPARE(misses.count(), 0);

    const LoggingRules rules("gui.lib.dbsettings=false\ngui.lib.dbsettings.critical=true");
    QCOMPARE(DBSettingsHelper::paramType("said"), DBSettingsType::Unknown);
    QCOMPARE(misses.count(), 1);
}

void TestDBSettingsHelper::lookUpsReportTheirMissesApart()
{
    const CapturedMessages misses;
    DBSettingsHelper::paramName("apart");
    DBSettingsHelper::paramRange("apart");
    DBSettingsHelper::jsonGroup("apart");
    QCOMPARE(misses.count(), 1);
    DBSettingsHelper::paramType("apart");
    QCOMPARE(misses.count(), 2);
    DBSettingsHelper::paramName("apart");
    QCOMPARE(misses.count(), 3);
    DBSettingsHelper::paramType("apart");
    QCOMPARE(misses.count(), 3);
}

void TestDBSettingsHelper::toolTip()
{
    QFETCH(QString, key);
    QFETCH(QString, expected);
    QCOMPARE(DBSettingsHelper::toolTip(key), expected);
    QCOMPARE(DBSettingsHelper::toolTip(key).isNull(), expected.isNull());
}

void TestDBSettingsHelper::toolTipFollowsTheLanguage()
{
    checkFollowsTheLanguage(toolTips().first().second,
                            [] { return DBSettingsHelper::toolTip("PT_PASS_REQUEST_SEQUENCE"); });
}

void TestDBSettingsHelper::paramValues()
{
    QFETCH(QString, key);
    QTEST(DBSettingsHelper::paramValues(key), "expected");
    QTEST(DBSettingsHelper::paramValues(key), "expected");
}

void TestDBSettingsHelper::paramValuesFollowTheLanguage_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<unsigned int>("number");
    QTest::addColumn<QString>("caption");
    for (const auto &list : choices()) {
        for (const auto &choice : list.second) {
            QTest::addRow("%s, %u", qPrintable(list.first), choice.first)
                << list.first << choice.first << choice.second;
        }
    }
}

void TestDBSettingsHelper::paramValuesFollowTheLanguage()
{
    QFETCH(QString, key);
    QFETCH(unsigned int, number);
    QFETCH(QString, caption);
    checkFollowsTheLanguage(caption, [=] { return DBSettingsHelper::paramValues(key).at(number); });
}

void TestDBSettingsHelper::paramValuesIsACopy()
{
    Choices values = DBSettingsHelper::paramValues(MOBILE_STYLE_INDEX);
    values[0] = "changed";
    values[2] = "added";
    QCOMPARE(DBSettingsHelper::paramValues(MOBILE_STYLE_INDEX), (Choices{{0, "Vantorix"}, {1, "Corvalen"}}));
}

void TestDBSettingsHelper::paramRange()
{
    QFETCH(QString, key);
    QTEST(DBSettingsHelper::paramRange(key), "expected");
    QTEST(DBSettingsHelper::paramRange(key), "expected");
}

void TestDBSettingsHelper::paramSpecialValue()
{
    QFETCH(QString, key);
    QFETCH(QString, expected);
    QCOMPARE(DBSettingsHelper::paramSpecialValue(key), expected);
    QCOMPARE(DBSettingsHelper::paramSpecialValue(key).isNull(), expected.isNull());
}

void TestDBSettingsHelper::paramSpecialValueFollowsTheLanguage_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("number of sessions") << USER_SESSION_COUNT;
    QTest::newRow("idle time") << USER_SESSION_TIMEOUT;
}

void TestDBSettingsHelper::paramSpecialValueFollowsTheLanguage()
{
    QFETCH(QString, key);
    checkFollowsTheLanguage("Без ограничений", [=] { return DBSettingsHelper::paramSpecialValue(key); });
}

void TestDBSettingsHelper::isInvertedValue()
{
    QFETCH(QString, key);
    QCOMPARE(DBSettingsHelper::isInvertedValue(key), false);
}

void TestDBSettingsHelper::paramChilds()
{
    QFETCH(QString, key);
    QTEST(DBSettingsHelper::paramChilds(key), "expected");
    QTEST(DBSettingsHelper::paramChilds(key), "expected");
}

void TestDBSettingsHelper::dependentsHaveNoDependents_data()
{
    QTest::addColumn<QString>("dependent");
    for (const auto &list : dependents()) {
        for (const QString &dependent : list.second)
            QTest::newRow(qPrintable(dependent)) << dependent;
    }
}

void TestDBSettingsHelper::dependentsHaveNoDependents()
{
    QFETCH(QString, dependent);
    QCOMPARE(DBSettingsHelper::paramChilds(dependent), QStringList());
}

void TestDBSettingsHelper::paramChildIsEnabled_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("expected");

    struct Case
    {
        const char *name;
        QVariant value;
        bool whenOne;  // by the number of a choice
        bool whenTrue; // by the state of a check box
    };
    // Text counts as a flag the way Qt takes it: any text but "", "0" and "false" is true.
    const QVector<Case> cases = {
        {"number 1", 1, true, true},
        {"unsigned 1", 1U, true, true},
        {"long 1", 1LL, true, true},
        {"floating 1", 1.0, true, true},
        {"text 1", "1", true, true},
        {"flag true", true, true, true},
        {"text true", "true", false, true},
        {"text True", "True", false, true},
        {"number 0", 0, false, false},
        {"unsigned 0", 0U, false, false},
        {"text 0", "0", false, false},
        {"flag false", false, false, false},
        {"text false", "false", false, false},
        {"text FALSE", "FALSE", false, false},
        {"number 2", 2, false, true},
        {"text 2", "2", false, true},
        {"number -1", -1, false, true},
        {"text -1", "-1", false, true},
        {"text 1.0", "1.0", false, true},
        {"empty text", "", false, false},
        {"null text", QString(), false, false},
        {"a word", "Да", false, true},
        {"invalid", QVariant(), false, false},
        {"a list", QStringList{"1"}, false, false},
    };
    const auto addParent = [&](const QString &parent, const auto &isEnabled) {
        for (const Case &one : cases)
            QTest::addRow("%s, %s", qPrintable(parent), one.name) << parent << one.value << bool(isEnabled(one));
    };
    const auto whenOne = [](const Case &one) { return one.whenOne; };
    const auto whenTrue = [](const Case &one) { return one.whenTrue; };
    const auto whenFalse = [](const Case &one) { return !one.whenTrue; };
    const auto always = [](const Case &) { return true; };

    addParent("PT_ENABLE_FINGERPRINT_SCANNING", whenOne);
    addParent("PT_ENABLE_PALM_SCANNING", whenOne);
    addParent("PT_ENABLE_FACE_SCANNING", whenOne);
    addParent("use_password_strength", whenTrue);
    addParent("enable_palm_contact_limit", whenTrue);
    addParent("enable_palm_non_contact_limit", whenTrue);
    addParent("PT_MOBILE_WITHOUT_PHOTO", whenFalse);
    // No parents.
    addParent("PT_MOBILE_VERIFY_FACE", always);
    addParent("PT_VERSION", always);
    addParent("pt_enable_face_scanning", always);
    addParent("USE_PASSWORD_STRENGTH", always);
    addParent("unknown", always);
    addParent("", always);
}

void TestDBSettingsHelper::paramChildIsEnabled()
{
    QFETCH(QString, parent);
    QFETCH(QVariant, value);
    // All dependents go together, and nobody checks whether it is one.
    for (const QString &child : DBSettingsHelper::paramChilds(parent) + QStringList{"PT_VERSION", "unknown", ""})
        QTEST(DBSettingsHelper::paramChildIsEnabled(parent, value, child), "expected");
}

void TestDBSettingsHelper::parameterLookUpsWriteNothing()
{
    QFETCH(QString, key);
    const LoggingRules everything("gui.lib.dbsettings=true");
    const CapturedMessages messages;

    DBSettingsHelper::toolTip(key);
    DBSettingsHelper::paramValues(key);
    DBSettingsHelper::paramRange(key);
    DBSettingsHelper::paramSpecialValue(key);
    DBSettingsHelper::isInvertedValue(key);
    DBSettingsHelper::paramChilds(key);
    DBSettingsHelper::paramChildIsEnabled(key, "1", key);

    QCOMPARE(messages.texts(), QStringList());
}

QTEST_MAIN(TestDBSettingsHelper)
#include "tst_dbsettingshelper.moc"
