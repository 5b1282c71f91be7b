#include "catalogue.h"

#include <vxsettings/dbkeys.h>

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <climits>

using namespace db::database;

namespace catalogue {
namespace {

// One maker per editor kind: it is impossible to write a check box with a range.
// Uncovered from here: all of them run in the compiler.

constexpr Parameter readOnly(const QString &key, const char *caption)
{
    return {&key, DBSettingsType::Readonly, caption};
}

constexpr Parameter lineEdit(const QString &key, const char *caption, const char *toolTip = nullptr)
{
    return {&key, DBSettingsType::LineEdit, caption, {}, nullptr, {}, toolTip};
}

constexpr Parameter password(const QString &key, const char *caption)
{
    return {&key, DBSettingsType::Password, caption};
}

constexpr Parameter checkBox(const QString &key, const char *caption)
{
    return {&key, DBSettingsType::CheckBox, caption};
}

constexpr Parameter comboBox(const QString &key, const char *caption, View<Choice> choices)
{
    return {&key, DBSettingsType::ComboBox, caption, {}, nullptr, choices};
}

constexpr Parameter spinBox(const QString &key, const char *caption, std::pair<int, int> range,
                            const char *specialValue = nullptr)
{
    return {&key, DBSettingsType::SpinBox, caption, range, specialValue};
}

constexpr Parameter orgstructureSelector(const QString &key, const char *caption)
{
    return {&key, DBSettingsType::OrgstructureSelector, caption};
}

constexpr Parameter smartCardProfileSelector(const QString &key, const char *caption)
{
    return {&key, DBSettingsType::SmartCardProfileSelector, caption};
}

/// Has no caption: it is shown as a nested group with a title of its own.
constexpr Parameter jsonGroup(const QString &key)
{
    return {&key, DBSettingsType::JsonGroup};
}
// Uncovered to here

// clang-format off

constexpr Choice noYes[] = {
    {0, QT_TRANSLATE_NOOP("QObject", "Нет")},
    {1, QT_TRANSLATE_NOOP("QObject", "Да")},
};
constexpr Choice offOn[] = {
    {0, QT_TRANSLATE_NOOP("QObject", "Выкл.")},
    {1, QT_TRANSLATE_NOOP("QObject", "Вкл.")},
};
constexpr Choice cardFormats[] = {
    {0, QT_TRANSLATE_NOOP("QObject", "Десятичный")},
    {1, QT_TRANSLATE_NOOP("QObject", "Шестнадцатеричный")},
    //: A card number in two parts: the family (facility) and the code of the card in it.
    {2, QT_TRANSLATE_NOOP("QObject", "Семейство-код")},
};
constexpr Choice photoFrames[] = {
    //: The outline of a photograph.
    {0, QT_TRANSLATE_NOOP("QObject", "Круглая")},
    //: The outline of a photograph.
    {1, QT_TRANSLATE_NOOP("QObject", "Прямоугольная")},
};
constexpr Choice identifications[] = {
    //: What an operator signs in with.
    {0, QT_TRANSLATE_NOOP("QObject", "Логин + пароль")},
    {1, QT_TRANSLATE_NOOP("QObject", "Логин + биометрическая информация")},
    {2, QT_TRANSLATE_NOOP("QObject", "Логин + пароль + биометрическая информация")},
};
constexpr Choice automaticChecks[] = {
    {0, QT_TRANSLATE_NOOP("QObject", "Нет")},
    {1, QT_TRANSLATE_NOOP("QObject", "По всей базе")},
    {2, QT_TRANSLATE_NOOP("QObject", "По предприятию")},
    {3, QT_TRANSLATE_NOOP("QObject", "По подразделению")},
};
// A manual check is always some check: there is no 0, and only a person asks for "their own templates".
constexpr Choice manualChecks[] = {
    {1, QT_TRANSLATE_NOOP("QObject", "По всей базе")},
    {2, QT_TRANSLATE_NOOP("QObject", "По предприятию")},
    {3, QT_TRANSLATE_NOOP("QObject", "По подразделению")},
    //: Against which templates a new one is checked: only the other templates of the same person.
    {4, QT_TRANSLATE_NOOP("QObject", "По своим шаблонам")},
};
// Stored is whether the photograph is withheld, asked is whether it is sent: "Да" belongs to 0.
constexpr Choice sendsPhoto[] = {
    {0, QT_TRANSLATE_NOOP("QObject", "Да")},
    {1, QT_TRANSLATE_NOOP("QObject", "Нет")},
};
constexpr Choice mobileStyles[] = {
    {0, QT_TRANSLATE_NOOP("QObject", "Vantorix")},
    {1, QT_TRANSLATE_NOOP("QObject", "Corvalen")},
};

//: Shown instead of 0 for a number of sessions and for minutes of inactivity.
constexpr char noLimit[] = QT_TRANSLATE_NOOP("QObject", "Без ограничений");

//: What stands in ${} and between <> stays as it is. РОГ is the prefix of an example: any letters.
constexpr char requestNumberToolTip[] = QT_TRANSLATE_NOOP("QObject", "<html>Возможные параметры:<br/><b>${year}</b> - текущий год<br/><b>${month}</b> - текущий месяц<br/><b>${day}</b> - текущий день<br/><b>${num} ${zero6-num} ${zero8-num} ${zero10-num}</b> - следующий номер<br/>Например: <b>РОГ-${year}${month}-${zero8-num}</b></html>");

constexpr Parameter minLen = spinBox(json::MIN_LEN, QT_TRANSLATE_NOOP("QObject", "Минимальная длина"), {0, INT_MAX});
constexpr Parameter maxLen = spinBox(json::MAX_LEN, QT_TRANSLATE_NOOP("QObject", "Максимальная длина"), {4, INT_MAX});

constexpr std::pair<int, int> percent = {0, 100};
constexpr std::pair<int, int> contactPalms = {2, 8};
constexpr std::pair<int, int> contactlessPalms = {2, 18};

// The parameters of each group in display order.

constexpr Parameter database[] = {
    readOnly(VERSION, QT_TRANSLATE_NOOP("QObject", "Версия базы данных")),
};
constexpr Parameter employees[] = {
    spinBox  (MAX_CARD_COUNT,                QT_TRANSLATE_NOOP("QObject", "Максимальное количество карт сотрудника"), {1, 20}),
    comboBox (USE_STRICT_COMPARE_CARD_NUMBER, QT_TRANSLATE_NOOP("QObject", "Строгое сравнение номеров карт"), noYes),
    comboBox (CARD_VIEW_FORMAT,              QT_TRANSLATE_NOOP("QObject", "Формат отображения номеров карт"), cardFormats),
    //: The choices are "Круглая" (round) and "Прямоугольная" (rectangular).
    comboBox (EMPLOYEE_PHOTO_TYPE,           QT_TRANSLATE_NOOP("QObject", "Граница фотографии сотрудника"), photoFrames),
    jsonGroup(PIN_STRENGTH),
};
constexpr Parameter users[] = {
    jsonGroup(PASSWORD_STRENGTH),
    password (PASSWORD_DEF,         QT_TRANSLATE_NOOP("QObject", "Пароль по умолчанию")),
    spinBox  (PASSWORD_EXPIRED,     QT_TRANSLATE_NOOP("QObject", "Срок действия пароля (дней)"), {0, 9999}),
    //: How many days before a password expires its user is told to change it.
    spinBox  (PASSWORD_NOTIFY,      QT_TRANSLATE_NOOP("QObject", "Срок уведомления об изменении пароля (дней)"), {0, 9999}),
    comboBox (IDENT_TYPE,           QT_TRANSLATE_NOOP("QObject", "Тип идентификации для входа в Vantorix-Studio"), identifications),
    spinBox  (USER_SESSION_COUNT,   QT_TRANSLATE_NOOP("QObject", "Количество одновременных сессий пользователя"), {0, INT_MAX}, noLimit),
    spinBox  (USER_SESSION_TIMEOUT, QT_TRANSLATE_NOOP("QObject", "Время бездействия пользователя (минут)"), {0, 1440}, noLimit),
};
constexpr Parameter scanningCommon[] = {
    //: Whether enrolment follows the settings of the database rather than those of the workstation.
    comboBox(ENROLL_USE_DB_SETTINGS,             QT_TRANSLATE_NOOP("QObject", "Использовать настройки БД"), noYes),
    comboBox(ENROLL_AUTO_CHECK_TEMPLATES_TYPE,   QT_TRANSLATE_NOOP("QObject", "Автоматическая проверка шаблонов"), automaticChecks),
    comboBox(ENROLL_MANUAL_CHECK_TEMPLATES_TYPE, QT_TRANSLATE_NOOP("QObject", "Ручная проверка шаблонов"), manualChecks),
};
constexpr Parameter fingerprintScanning[] = {
    comboBox(ENABLE_FINGERPRINT_SCANNING,    QT_TRANSLATE_NOOP("QObject", "Включить возможность сканирования по отпечатку пальца"), noYes),
    //: The core is the centre of the pattern of a fingerprint.
    comboBox(ENROLL_FINGERPRINT_SEARCH_CORE, QT_TRANSLATE_NOOP("QObject", "Поиск ядра"), noYes),
    spinBox (ENROLL_FINGERPRINT_QUALITY,     QT_TRANSLATE_NOOP("QObject", "Требуемое качество шаблона отпечатка пальца"), percent),
    spinBox (ENROLL_FINGERPRINT_MAX_COUNT,   QT_TRANSLATE_NOOP("QObject", "Максимальное количество шаблонов отпечатков для сотрудника"), {0, 100}),
    //: Whether the scanner must see that it has a living hand before it and not a copy.
    comboBox(ENROLL_LIVE_FINGER_DETECTION,   QT_TRANSLATE_NOOP("QObject", "Антифейк при сканировании"), offOn),
};
constexpr Parameter palmScanning[] = {
    comboBox (ENABLE_PALM_SCANNING,       QT_TRANSLATE_NOOP("QObject", "Включить возможность сканирования по ладони"), noYes),
    spinBox  (ENROLL_PALM_QUALITY,        QT_TRANSLATE_NOOP("QObject", "Требуемое качество шаблона ладони KLV-RT"), percent),
    spinBox  (ENROLL_SKYHAND_QUALITY,     QT_TRANSLATE_NOOP("QObject", "Требуемое качество шаблона ладони SkyHand"), percent),
    comboBox (ENROLL_LIVE_PALM_DETECTION, QT_TRANSLATE_NOOP("QObject", "Антифейк при сканировании"), offOn),
    jsonGroup(PALM_TEMPLATES_AMOUNT_SETTINGS),
};
constexpr Parameter faceScanning[] = {
    comboBox(ENABLE_FACE_SCANNING,      QT_TRANSLATE_NOOP("QObject", "Включить возможность сканирования по лицу"), noYes),
    //: In percent, as every quality.
    spinBox (ENROLL_FACE_BLUR_QUALITY,  QT_TRANSLATE_NOOP("QObject", "Требуемое качество размытости изображения лица"), percent),
    spinBox (ENROLL_FACE_MIN_SIZE,      QT_TRANSLATE_NOOP("QObject", "Минимальный размер диагонали лица (px)"), {10, 1024}),
    spinBox (ENROLL_FACE_COLOR_QUALITY, QT_TRANSLATE_NOOP("QObject", "Требуемое качество цветности изображения лица"), percent),
    comboBox(ENROLL_SHOW_FACE_QUALITY,  QT_TRANSLATE_NOOP("QObject", "Показывать параметры качества"), noYes),
};
constexpr Parameter passRequests[] = {
    orgstructureSelector(DEFAULT_DEPARTMENT, QT_TRANSLATE_NOOP("QObject", "Подразделение по умолчанию")),
    lineEdit(PASS_REQUEST_SEQUENCE,          QT_TRANSLATE_NOOP("QObject", "Формат номера заявки"), requestNumberToolTip),
};
constexpr Parameter connection[] = {
    //: The address of the mobile service.
    lineEdit(MOBILE_HOST,         QT_TRANSLATE_NOOP("QObject", "Хост")),
    spinBox (MOBILE_PORT,         QT_TRANSLATE_NOOP("QObject", "Порт"), {0, 65535}),
    //: A secret that lockers identify themselves with.
    password(LOCKER_ACCESS_TOKEN, QT_TRANSLATE_NOOP("QObject", "Токен доступа")),
};
constexpr Parameter studioMobile[] = {
    comboBox(MOBILE_WITHOUT_PHOTO, QT_TRANSLATE_NOOP("QObject", "Отправлять фотографию"), sendsPhoto),
    //: Of a face, by the photograph that is sent.
    comboBox(MOBILE_VERIFY_FACE,   QT_TRANSLATE_NOOP("QObject", "Выполнять верификацию"), noYes),
};
constexpr Parameter mobileId[] = {
    comboBox(MOBILE_STYLE_INDEX, QT_TRANSLATE_NOOP("QObject", "Стиль мобильного приложения"), mobileStyles),
    smartCardProfileSelector(MOBILE_SMARTCARD_PROFILE_ID, QT_TRANSLATE_NOOP("QObject", "Профиль смарткарт")),
};
constexpr Parameter integration[] = {
    orgstructureSelector(INTEGRATION_DEFAULT_DEPARTMENT, QT_TRANSLATE_NOOP("QObject", "Подразделение по умолчанию")),
};
constexpr Parameter pinStrength[] = {
    minLen,
    maxLen,
    //: Such as 1234.
    checkBox(json::DENY_SEQUENCE, QT_TRANSLATE_NOOP("QObject", "Запрещать последовательные цифры")),
    //: Such as 1111.
    checkBox(json::DENY_EQUAL,    QT_TRANSLATE_NOOP("QObject", "Запрещать одинаковые цифры подряд")),
};
constexpr Parameter passwordStrength[] = {
    checkBox(json::USE_PASSWORD_STRENGTH,         QT_TRANSLATE_NOOP("QObject", "Использовать ограничения для пароля")),
    // The captions of the two "admit" members speak of forbidding; installations rely on it.
    checkBox(json::ADMIT_EMPTY_PASSWORD,          QT_TRANSLATE_NOOP("QObject", "Запрет пустого пароля")),
    minLen,
    maxLen,
    checkBox(json::MIN_AMOUNT_NUMBERS,            QT_TRANSLATE_NOOP("QObject", "Использовать цифры")),
    checkBox(json::MIN_AMOUNT_PUNCTUATION_MARKS,  QT_TRANSLATE_NOOP("QObject", "Использовать специальные знаки")),
    checkBox(json::MIN_AMOUNT_LETTERS,            QT_TRANSLATE_NOOP("QObject", "Использовать буквы")),
    checkBox(json::MIN_AMOUNT_LETTERS_UPPER_CASE, QT_TRANSLATE_NOOP("QObject", "Использовать буквы в верхнем регистре")),
    checkBox(json::MIN_AMOUNT_LETTERS_LOWER_CASE, QT_TRANSLATE_NOOP("QObject", "Использовать буквы в нижнем регистре")),
    checkBox(json::ADMIT_NON_LATIN_LETTERS,       QT_TRANSLATE_NOOP("QObject", "Запрет использования нелатинских букв")),
};
// Contact and contactless take turns, so that on two columns each has one of its own.
constexpr Parameter palmTemplatesAmount[] = {
    //: A switch: whether the minimum and maximum numbers of palms below it count.
    checkBox(json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS,     QT_TRANSLATE_NOOP("QObject", "Требование количества ладоней для контактных вен")),
    //: A switch: whether the minimum and maximum numbers of palms below it count.
    checkBox(json::ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS, QT_TRANSLATE_NOOP("QObject", "Требование количества ладоней для бесконтактных вен")),
    spinBox (json::CONTACT_LEFT_PALM_MIN_AMOUNT,               QT_TRANSLATE_NOOP("QObject", "Минимальное количество левых ладоней"), contactPalms),
    spinBox (json::NON_CONTACT_LEFT_PALM_MIN_AMOUNT,           QT_TRANSLATE_NOOP("QObject", "Минимальное количество левых ладоней"), contactlessPalms),
    spinBox (json::CONTACT_RIGHT_PALM_MIN_AMOUNT,              QT_TRANSLATE_NOOP("QObject", "Минимальное количество правых ладоней"), contactPalms),
    spinBox (json::NON_CONTACT_RIGHT_PALM_MIN_AMOUNT,          QT_TRANSLATE_NOOP("QObject", "Минимальное количество правых ладоней"), contactlessPalms),
    spinBox (json::CONTACT_LEFT_PALM_MAX_AMOUNT,               QT_TRANSLATE_NOOP("QObject", "Максимальное количество левых ладоней"), contactPalms),
    spinBox (json::NON_CONTACT_LEFT_PALM_MAX_AMOUNT,           QT_TRANSLATE_NOOP("QObject", "Максимальное количество левых ладоней"), contactlessPalms),
    spinBox (json::CONTACT_RIGHT_PALM_MAX_AMOUNT,              QT_TRANSLATE_NOOP("QObject", "Максимальное количество правых ладоней"), contactPalms),
    spinBox (json::NON_CONTACT_RIGHT_PALM_MAX_AMOUNT,          QT_TRANSLATE_NOOP("QObject", "Максимальное количество правых ладоней"), contactlessPalms),
};

using Labels = LabelPosition;
constexpr Group groups[] = {
    {DBGroups::Database,            QT_TRANSLATE_NOOP("QObject", "База данных"),                     "common-db",              Labels::Left,   1, database},
    {DBGroups::Employees,           QT_TRANSLATE_NOOP("QObject", "Сотрудники"),                      "object-OT_WORKER",       Labels::Right,  2, employees},
    {DBGroups::Users,               QT_TRANSLATE_NOOP("QObject", "Пользователи"),                    "object-OT_USER",         Labels::Bottom, 3, users},
    {DBGroups::ScanningCommon,      QT_TRANSLATE_NOOP("QObject", "Сканирование общие"),              "action-scan",            Labels::Bottom, 3, scanningCommon},
    {DBGroups::FingerprintScanning, QT_TRANSLATE_NOOP("QObject", "Сканирование отпечатков пальцев"), "common-fingerprint",     Labels::Right,  2, fingerprintScanning},
    {DBGroups::PalmScanning,        QT_TRANSLATE_NOOP("QObject", "Сканирование вен ладоней"),        "common-palm",            Labels::Right,  2, palmScanning},
    {DBGroups::FaceScanning,        QT_TRANSLATE_NOOP("QObject", "Сканирование лица"),               "common-face",            Labels::Right,  2, faceScanning},
    {DBGroups::PassRequests,        QT_TRANSLATE_NOOP("QObject", "Заявки"),                          "object-OT_PASS_REQUEST", Labels::Right,  1, passRequests},
    {DBGroups::Connection,          QT_TRANSLATE_NOOP("QObject", "Настройки подключения"),           "common-sphere",          Labels::Bottom, 2, connection},
    {DBGroups::StudioMobile,        QT_TRANSLATE_NOOP("QObject", "Vantorix Studio"),                 "object-OT_WORKER",       Labels::Right,  2, studioMobile},
    {DBGroups::MobileId,            QT_TRANSLATE_NOOP("QObject", "Vantorix ID"),                     "object-OT_RFID",         Labels::Right,  2, mobileId},
    {DBGroups::Integration,         QT_TRANSLATE_NOOP("QObject", "Интеграция"),                      "common-filter_2",        Labels::Right,  1, integration},
    {DBGroups::PinStrength,         QT_TRANSLATE_NOOP("QObject", "Сложность пин-кода"),              nullptr,                  Labels::Right,  2, pinStrength,         &PIN_STRENGTH},
    {DBGroups::PasswordStrength,    QT_TRANSLATE_NOOP("QObject", "Сложность пароля"),                nullptr,                  Labels::Right,  2, passwordStrength,    &PASSWORD_STRENGTH},
    {DBGroups::PalmTemplatesAmount, QT_TRANSLATE_NOOP("QObject", "Настройки количества шаблонов"),   nullptr,                  Labels::Right,  2, palmTemplatesAmount, &PALM_TEMPLATES_AMOUNT_SETTINGS},
};

constexpr const QString *passwordRestrictions[] = {
    &json::MIN_LEN, &json::MAX_LEN, &json::ADMIT_EMPTY_PASSWORD, &json::MIN_AMOUNT_NUMBERS,
    &json::MIN_AMOUNT_PUNCTUATION_MARKS, &json::MIN_AMOUNT_LETTERS, &json::MIN_AMOUNT_LETTERS_UPPER_CASE,
    &json::MIN_AMOUNT_LETTERS_LOWER_CASE, &json::ADMIT_NON_LATIN_LETTERS,
};
constexpr const QString *photoDependents[] = {&MOBILE_VERIFY_FACE};
constexpr const QString *fingerprintDependents[] = {
    &ENROLL_FINGERPRINT_SEARCH_CORE, &ENROLL_FINGERPRINT_QUALITY, &ENROLL_FINGERPRINT_MAX_COUNT,
    &ENROLL_LIVE_FINGER_DETECTION,
};
// The amounts of palm templates have switches of their own.
constexpr const QString *palmDependents[] = {
    &ENROLL_PALM_QUALITY, &ENROLL_SKYHAND_QUALITY, &ENROLL_LIVE_PALM_DETECTION,
};
constexpr const QString *contactPalmAmounts[] = {
    &json::CONTACT_LEFT_PALM_MIN_AMOUNT, &json::CONTACT_RIGHT_PALM_MIN_AMOUNT,
    &json::CONTACT_LEFT_PALM_MAX_AMOUNT, &json::CONTACT_RIGHT_PALM_MAX_AMOUNT,
};
constexpr const QString *contactlessPalmAmounts[] = {
    &json::NON_CONTACT_LEFT_PALM_MIN_AMOUNT, &json::NON_CONTACT_RIGHT_PALM_MIN_AMOUNT,
    &json::NON_CONTACT_LEFT_PALM_MAX_AMOUNT, &json::NON_CONTACT_RIGHT_PALM_MAX_AMOUNT,
};
constexpr const QString *faceDependents[] = {
    &ENROLL_FACE_BLUR_QUALITY, &ENROLL_FACE_MIN_SIZE, &ENROLL_FACE_COLOR_QUALITY, &ENROLL_SHOW_FACE_QUALITY,
};

constexpr Dependency dependencies[] = {
    {&json::USE_PASSWORD_STRENGTH,                      EnabledWhen::True,  passwordRestrictions},
    {&MOBILE_WITHOUT_PHOTO,                             EnabledWhen::False, photoDependents},
    {&ENABLE_FINGERPRINT_SCANNING,                      EnabledWhen::One,   fingerprintDependents},
    {&ENABLE_PALM_SCANNING,                             EnabledWhen::One,   palmDependents},
    {&json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS,     EnabledWhen::True,  contactPalmAmounts},
    {&json::ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS, EnabledWhen::True,  contactlessPalmAmounts},
    {&ENABLE_FACE_SCANNING,                             EnabledWhen::One,   faceDependents},
};

// clang-format on

QHash<QString, const Parameter *> indexByKey()
{
    QHash<QString, const Parameter *> index;
    index.reserve(64);
    for (const Group &group : groups) {
        for (const Parameter &parameter : group.parameters)
            index.insert(*parameter.key, &parameter);
    }
    return index;
}

template <typename Row, std::size_t N, typename Predicate>
const Row *findRow(const Row (&rows)[N], Predicate predicate)
{
    const Row *row = std::find_if(std::begin(rows), std::end(rows), predicate);
    return row == std::end(rows) ? nullptr : row;
}
} // namespace

const Parameter *findParameter(const QString &key)
{
    static const QHash<QString, const Parameter *> index = indexByKey();
    return index.value(key);
}

const Group *findGroup(DBGroups id)
{
    return findRow(groups, [id](const Group &group) { return group.id == id; });
}

const Group *findJsonGroup(const QString &jsonParam)
{
    return findRow(groups, [&](const Group &group) { return group.jsonParam && *group.jsonParam == jsonParam; });
}

const Dependency *findDependency(const QString &parent)
{
    return findRow(dependencies, [&](const Dependency &dependency) { return *dependency.parent == parent; });
}
} // namespace catalogue
