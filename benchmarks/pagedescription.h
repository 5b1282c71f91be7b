#pragma once

#include <vxsettings/dbsettingstypes.h>

#include <climits>

/// The twelve pages spelled out by hand: what somebody would write who has no catalogue.
///
/// A Writer turns each call into widgets or into a form text. Keys and texts are literals; a text is translated once,
/// like that of any hand-written form.
namespace pagedescription {

struct Choice
{
    unsigned int value;
    const char *caption;
};

constexpr Choice noYes[] = {{0, "Нет"}, {1, "Да"}};
constexpr Choice yesNo[] = {{0, "Да"}, {1, "Нет"}};
constexpr Choice offOn[] = {{0, "Выкл."}, {1, "Вкл."}};
constexpr Choice cardFormats[] = {{0, "Десятичный"}, {1, "Шестнадцатеричный"}, {2, "Семейство-код"}};
constexpr Choice photoFrames[] = {{0, "Круглая"}, {1, "Прямоугольная"}};
constexpr Choice identifications[] = {
    {0, "Логин + пароль"}, {1, "Логин + биометрическая информация"}, {2, "Логин + пароль + биометрическая информация"}};
constexpr Choice automaticChecks[] = {{0, "Нет"}, {1, "По всей базе"}, {2, "По предприятию"}, {3, "По подразделению"}};
constexpr Choice manualChecks[] = {
    {1, "По всей базе"}, {2, "По предприятию"}, {3, "По подразделению"}, {4, "По своим шаблонам"}};
constexpr Choice mobileStyles[] = {{0, "Vantorix"}, {1, "Corvalen"}};

template <typename Writer>
void pinStrength(Writer &w)
{
    w.beginJson("PT_PIN_STRENGTH", "Сложность пин-кода", 2);
    w.spinBox("min_len", "Минимальная длина", 0, INT_MAX);
    w.spinBox("max_len", "Максимальная длина", 4, INT_MAX);
    w.checkBox("deny_sequence", "Запрещать последовательные цифры");
    w.checkBox("deny_equal", "Запрещать одинаковые цифры подряд");
    w.endJson();
}

template <typename Writer>
void passwordStrength(Writer &w)
{
    w.beginJson("PT_PASSWORD_STRENGTH", "Сложность пароля", 2);
    w.checkBox("use_password_strength", "Использовать ограничения для пароля");
    w.checkBox("admit_empty_password", "Запрет пустого пароля");
    w.spinBox("min_len", "Минимальная длина", 0, INT_MAX);
    w.spinBox("max_len", "Максимальная длина", 4, INT_MAX);
    w.checkBox("min_amount_numbers", "Использовать цифры");
    w.checkBox("min_amount_punctuation_marks", "Использовать специальные знаки");
    w.checkBox("min_amount_letters", "Использовать буквы");
    w.checkBox("min_amount_letters_upper_case", "Использовать буквы в верхнем регистре");
    w.checkBox("min_amount_letters_lower_case", "Использовать буквы в нижнем регистре");
    w.checkBox("admit_non_latin_letters", "Запрет использования нелатинских букв");
    w.endJson();
}

template <typename Writer>
void palmTemplatesAmount(Writer &w)
{
    w.beginJson("PT_PALM_TEMPLATES_AMOUNT_SETTINGS", "Настройки количества шаблонов", 2);
    w.checkBox("enable_palm_contact_limit", "Требование количества ладоней для контактных вен");
    w.checkBox("enable_palm_non_contact_limit", "Требование количества ладоней для бесконтактных вен");
    w.spinBox("left_contact_palm_min", "Минимальное количество левых ладоней", 2, 8);
    w.spinBox("left_non_contact_palm_min", "Минимальное количество левых ладоней", 2, 18);
    w.spinBox("right_contact_palm_min", "Минимальное количество правых ладоней", 2, 8);
    w.spinBox("right_non_contact_palm_min", "Минимальное количество правых ладоней", 2, 18);
    w.spinBox("left_contact_palm_max", "Максимальное количество левых ладоней", 2, 8);
    w.spinBox("left_non_contact_palm_max", "Максимальное количество левых ладоней", 2, 18);
    w.spinBox("right_contact_palm_max", "Максимальное количество правых ладоней", 2, 8);
    w.spinBox("right_non_contact_palm_max", "Максимальное количество правых ладоней", 2, 18);
    w.endJson();
}

template <typename Writer>
void page(DBGroups group, Writer &w)
{
    switch (group) {
    case DBGroups::Database:
        w.begin("База данных", "common-db", LabelPosition::Left, 1);
        w.readOnly("PT_VERSION", "Версия базы данных");
        break;
    case DBGroups::Employees:
        w.begin("Сотрудники", "object-OT_WORKER", LabelPosition::Right, 2);
        w.spinBox("PT_MAX_CARD_COUNT", "Максимальное количество карт сотрудника", 1, 20);
        w.comboBox("PT_USE_STRICT_COMPARE_CARD_NUMBER", "Строгое сравнение номеров карт", noYes);
        w.comboBox("PT_CARD_VIEW_FORMAT", "Формат отображения номеров карт", cardFormats);
        w.comboBox("PT_EMPLOYEE_PHOTO_TYPE", "Граница фотографии сотрудника", photoFrames);
        pinStrength(w);
        break;
    case DBGroups::Users:
        w.begin("Пользователи", "object-OT_USER", LabelPosition::Bottom, 3);
        passwordStrength(w);
        w.password("PT_PASSWORD_DEF", "Пароль по умолчанию");
        w.spinBox("PT_PASSWORD_EXPIRED", "Срок действия пароля (дней)", 0, 9999);
        w.spinBox("PT_PASSWORD_NOTIFY", "Срок уведомления об изменении пароля (дней)", 0, 9999);
        w.comboBox("PT_IDENT_TYPE", "Тип идентификации для входа в Vantorix-Studio", identifications);
        w.spinBox("PT_USER_SESSION_COUNT", "Количество одновременных сессий пользователя", 0, INT_MAX,
                  "Без ограничений");
        w.spinBox("PT_USER_SESSION_TIMEOUT", "Время бездействия пользователя (минут)", 0, 1440, "Без ограничений");
        break;
    case DBGroups::ScanningCommon:
        w.begin("Сканирование общие", "action-scan", LabelPosition::Bottom, 3);
        w.comboBox("PT_ENROLL_USE_DB_SETTINGS", "Использовать настройки БД", noYes);
        w.comboBox("PT_ENROLL_AUTO_CHECK_TEMPLATES_TYPE", "Автоматическая проверка шаблонов", automaticChecks);
        w.comboBox("PT_ENROLL_MANUAL_CHECK_TEMPLATES_TYPE", "Ручная проверка шаблонов", manualChecks);
        break;
    case DBGroups::FingerprintScanning:
        w.begin("Сканирование отпечатков пальцев", "common-fingerprint", LabelPosition::Right, 2);
        w.comboBox("PT_ENABLE_FINGERPRINT_SCANNING", "Включить возможность сканирования по отпечатку пальца", noYes);
        w.comboBox("PT_ENROLL_FINGERPRINT_SEARCH_CORE", "Поиск ядра", noYes);
        w.spinBox("PT_ENROLL_FINGERPRINT_QUALITY", "Требуемое качество шаблона отпечатка пальца", 0, 100);
        w.spinBox("PT_ENROLL_FINGERPRINT_MAX_COUNT", "Максимальное количество шаблонов отпечатков для сотрудника", 0,
                  100);
        w.comboBox("PT_ENROLL_LIVE_FINGER_DETECTION", "Антифейк при сканировании", offOn);
        break;
    case DBGroups::PalmScanning:
        w.begin("Сканирование вен ладоней", "common-palm", LabelPosition::Right, 2);
        w.comboBox("PT_ENABLE_PALM_SCANNING", "Включить возможность сканирования по ладони", noYes);
        w.spinBox("PT_ENROLL_PALM_QUALITY", "Требуемое качество шаблона ладони KLV-RT", 0, 100);
        w.spinBox("PT_ENROLL_SKYHAND_QUALITY", "Требуемое качество шаблона ладони SkyHand", 0, 100);
        w.comboBox("PT_ENROLL_LIVE_PALM_DETECTION", "Антифейк при сканировании", offOn);
        palmTemplatesAmount(w);
        break;
    case DBGroups::FaceScanning:
        w.begin("Сканирование лица", "common-face", LabelPosition::Right, 2);
        w.comboBox("PT_ENABLE_FACE_SCANNING", "Включить возможность сканирования по лицу", noYes);
        w.spinBox("PT_ENROLL_FACE_BLUR_QUALITY", "Требуемое качество размытости изображения лица", 0, 100);
        w.spinBox("PT_ENROLL_FACE_MIN_SIZE", "Минимальный размер диагонали лица (px)", 10, 1024);
        w.spinBox("PT_ENROLL_FACE_COLOR_QUALITY", "Требуемое качество цветности изображения лица", 0, 100);
        w.comboBox("PT_SHOW_FACE_QUALITY", "Показывать параметры качества", noYes);
        break;
    case DBGroups::PassRequests:
        w.begin("Заявки", "object-OT_PASS_REQUEST", LabelPosition::Right, 1);
        w.orgstructureSelector("PT_DEFAULT_DEPARTMENT", "Подразделение по умолчанию");
        w.lineEdit("PT_PASS_REQUEST_SEQUENCE", "Формат номера заявки",
                   "<html>Возможные параметры:<br/><b>${year}</b> - текущий год<br/><b>${month}</b> - текущий "
                   "месяц<br/><b>${day}</b> - текущий день<br/><b>${num} ${zero6-num} ${zero8-num} ${zero10-num}</b> - "
                   "следующий номер<br/>Например: <b>РОГ-${year}${month}-${zero8-num}</b></html>");
        break;
    case DBGroups::Connection:
        w.begin("Настройки подключения", "common-sphere", LabelPosition::Bottom, 2);
        w.lineEdit("PT_MOBILE_HOST", "Хост");
        w.spinBox("PT_MOBILE_PORT", "Порт", 0, 65535);
        w.password("PT_LOCKER_ACCESS_TOKEN", "Токен доступа");
        break;
    case DBGroups::StudioMobile:
        w.begin("Vantorix Studio", "object-OT_WORKER", LabelPosition::Right, 2);
        w.comboBox("PT_MOBILE_WITHOUT_PHOTO", "Отправлять фотографию", yesNo);
        w.comboBox("PT_MOBILE_VERIFY_FACE", "Выполнять верификацию", noYes);
        break;
    case DBGroups::MobileId:
        w.begin("Vantorix ID", "object-OT_RFID", LabelPosition::Right, 2);
        w.comboBox("PT_MOBILE_STYLE_INDEX", "Стиль мобильного приложения", mobileStyles);
        w.smartCardProfileSelector("PT_MOBILE_SMARTCARD_PROFILE_ID", "Профиль смарткарт");
        break;
    case DBGroups::Integration:
        w.begin("Интеграция", "common-filter_2", LabelPosition::Right, 1);
        w.orgstructureSelector("PT_INTEGRATION_DEFAULT_DEPARTMENT", "Подразделение по умолчанию");
        break;
    case DBGroups::PinStrength:
    case DBGroups::PasswordStrength:
    case DBGroups::PalmTemplatesAmount:
        break;
    }
    w.end();
}
} // namespace pagedescription
