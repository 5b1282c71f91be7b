#include "settingsynonyms.h"

#include <host/settingaddress.h>

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettingshelper.h>

using namespace db::database;

namespace {

/// For every parameter of a page or of a JSON group.
struct GroupSynonyms
{
    DBGroups group;
    const char *words; ///< separated by commas
};

struct ParameterSynonyms
{
    const QString *parameter;
    const char *words; ///< separated by commas
};

// clang-format off
constexpr GroupSynonyms groupSynonyms[] = {
    {DBGroups::Database,            "схема, выпуск, БД, schema, release, database"},
    {DBGroups::Employees,           "работник, персонал, штат, карточка, пропуск, worker, staff, personnel, badge"},
    {DBGroups::Users,               "оператор, учётная запись, аккаунт, вход, логин, авторизация, аутентификация, безопасность, operator, account, login, sign in, authentication, security"},
    {DBGroups::ScanningCommon,      "биометрия, сканер, дубликат, дубль, biometrics, scanner, duplicate"},
    {DBGroups::FingerprintScanning, "палец, отпечаток, дактилоскопия, биометрия, сканер, finger, biometrics, scanner"},
    {DBGroups::PalmScanning,        "рука, кисть, ладонь, вена, биометрия, сканер, hand, vein, biometrics, scanner"},
    {DBGroups::FaceScanning,        "камера, фото, снимок, биометрия, camera, photo, picture, biometrics"},
    {DBGroups::PassRequests,        "пропуск, гость, посетитель, визит, бюро пропусков, pass, visitor, guest, visit"},
    {DBGroups::Connection,          "мобильный, сервер, сеть, соединение, связь, интернет, mobile, server, network, internet"},
    {DBGroups::StudioMobile,        "мобильный, студия, телефон, смартфон, mobile, phone, smartphone"},
    {DBGroups::MobileId,            "мобильный, телефон, смартфон, айди, mobile, phone, smartphone"},
    {DBGroups::Integration,         "внешняя система, обмен, импорт, синхронизация, external system, exchange, import, synchronisation, synchronization"},
    {DBGroups::PinStrength,         "пин, пинкод, ПИН-код, код, стойкость, надёжность, PIN code, complexity, security"},
    {DBGroups::PasswordStrength,    "парольная политика, правила, требования, стойкость, надёжность, password policy, rules, requirements, complexity"},
    {DBGroups::PalmTemplatesAmount, "лимит, число ладоней, рука, limit, number of palms, count"},
};

constexpr ParameterSynonyms parameterSynonyms[] = {
    {&VERSION,                            "номер версии, обновление, миграция, version number, update, migration"},
    {&MAX_CARD_COUNT,                     "лимит, предел, сколько карт, число карт, limit, how many cards, number of cards"},
    {&USE_STRICT_COMPARE_CARD_NUMBER,     "точное, сличение, совпадение, поиск карты, exact, match, comparison"},
    {&CARD_VIEW_FORMAT,                   "вид, представление, HEX, DEC, код карты, системы счисления, view, notation, facility code"},
    {&EMPLOYEE_PHOTO_TYPE,                "фото, снимок, аватар, рамка, форма, круг, овал, квадрат, photo, picture, avatar, frame, shape, circle, square"},
    {&PASSWORD_DEF,                       "начальный, первый, исходный, сброс, initial, first, reset"},
    {&PASSWORD_EXPIRED,                   "истечение, устаревание, смена, день, сутки, срок жизни, expiry, expiration, lifetime, validity, day"},
    {&PASSWORD_NOTIFY,                    "напоминание, предупреждение, оповещение, смена, день, сутки, reminder, warning, notice, day"},
    {&IDENT_TYPE,                         "способ входа, двухфакторная, многофакторная, 2FA, MFA, two-factor, sign-in method"},
    {&USER_SESSION_COUNT,                 "сеанс, параллельные, лимит, предел, число входов, concurrent, parallel, simultaneous, limit"},
    {&USER_SESSION_TIMEOUT,               "таймаут, тайм-аут, простой, сеанс, сессия, автовыход, блокировка, timeout, idle, inactivity, log out, logout, lock, session"},
    {&ENROLL_USE_DB_SETTINGS,             "общие, единые, централизованно, локальные, shared, central, local"},
    {&ENROLL_AUTO_CHECK_TEMPLATES_TYPE,   "автопроверка, поиск, двойник, область поиска, duplicates, search scope"},
    {&ENROLL_MANUAL_CHECK_TEMPLATES_TYPE, "вручную, поиск, двойник, область поиска, duplicates, search scope"},
    {&ENABLE_FINGERPRINT_SCANNING,        "разрешить, выключить, отключить, allow, disable, turn on, turn off"},
    {&ENROLL_FINGERPRINT_SEARCH_CORE,     "центр, папиллярный, centre, center, core"},
    {&ENROLL_FINGERPRINT_QUALITY,         "порог, процент, минимум, threshold, percent"},
    {&ENROLL_FINGERPRINT_MAX_COUNT,       "лимит, предел, сколько, число пальцев, limit, how many, number of fingers"},
    {&ENROLL_LIVE_FINGER_DETECTION,       "живость, живой, подделка, муляж, обман, spoofing, liveness, fake"},
    {&ENABLE_PALM_SCANNING,               "разрешить, выключить, отключить, allow, disable, turn on, turn off"},
    {&ENROLL_PALM_QUALITY,                "порог, процент, минимум, threshold, percent"},
    {&ENROLL_SKYHAND_QUALITY,             "порог, процент, минимум, threshold, percent"},
    {&ENROLL_LIVE_PALM_DETECTION,         "живость, живой, подделка, муляж, обман, spoofing, liveness, fake"},
    {&ENABLE_FACE_SCANNING,               "разрешить, выключить, отключить, allow, disable, turn on, turn off"},
    {&ENROLL_FACE_BLUR_QUALITY,           "резкость, чёткость, нерезкость, смазанность, порог, процент, sharpness, focus, threshold, percent"},
    {&ENROLL_FACE_MIN_SIZE,               "пиксель, величина, разрешение, расстояние, pixel, resolution, distance"},
    {&ENROLL_FACE_COLOR_QUALITY,          "цвет, цветной, чёрно-белый, насыщенность, порог, процент, colour, color, grayscale, saturation, threshold, percent"},
    {&ENROLL_SHOW_FACE_QUALITY,           "отображать, индикатор, подсказка, display, indicator, hint"},
    {&DEFAULT_DEPARTMENT,                 "отдел, организация, предприятие, фирма, оргструктура, unit, division, organisation, organization, company"},
    {&PASS_REQUEST_SEQUENCE,              "нумерация, счётчик, маска, префикс, порядковый, numbering, counter, mask, prefix, pattern"},
    {&MOBILE_HOST,                        "адрес, домен, имя сервера, IP, URL, DNS, address, domain, server name, host name"},
    {&MOBILE_PORT,                        "номер порта, сокет, TCP, port number, socket"},
    {&LOCKER_ACCESS_TOKEN,                "ключ, секрет, пароль, API, шкафчик, локер, камера хранения, key, secret, password, locker"},
    {&MOBILE_WITHOUT_PHOTO,               "фото, снимок, изображение, передавать, photo, picture, transmit"},
    {&MOBILE_VERIFY_FACE,                 "проверка, подтверждение, сверка, лицо, check, confirm, face"},
    {&MOBILE_STYLE_INDEX,                 "тема, оформление, бренд, внешний вид, логотип, theme, look, brand, appearance, skin, logo"},
    {&MOBILE_SMARTCARD_PROFILE_ID,        "смарт-карта, карточка, ключи, RFID, NFC, chip card, keys"},
    {&INTEGRATION_DEFAULT_DEPARTMENT,     "отдел, организация, предприятие, фирма, оргструктура, unit, division, organisation, organization, company"},

    {&json::MIN_LEN,                      "короткий, знак, символ, не меньше, short, character, at least"},
    {&json::MAX_LEN,                      "длинный, знак, символ, не больше, long, character, at most"},
    {&json::DENY_SEQUENCE,                "1234, подряд, по порядку, простой, in a row, consecutive"},
    {&json::DENY_EQUAL,                   "1111, повтор, повторяющиеся, простой, repeated, same, identical"},
    {&json::USE_PASSWORD_STRENGTH,        "сложность, включить, выключить, strength, turn on, turn off"},
    {&json::ADMIT_EMPTY_PASSWORD,         "без пароля, blank, no password"},
    {&json::MIN_AMOUNT_NUMBERS,           "число, числа, numbers, digits"},
    {&json::MIN_AMOUNT_PUNCTUATION_MARKS, "символ, спецсимвол, пунктуация, препинания, symbol, punctuation"},
    {&json::MIN_AMOUNT_LETTERS,           "алфавит, alphabet"},
    {&json::MIN_AMOUNT_LETTERS_UPPER_CASE, "заглавные, прописные, большие, capital, uppercase"},
    {&json::MIN_AMOUNT_LETTERS_LOWER_CASE, "строчные, маленькие, small, lowercase"},
    {&json::ADMIT_NON_LATIN_LETTERS,      "кириллица, русские, латиница, алфавит, cyrillic, alphabet"},
    {&json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS,     "ограничить, ограничение, restrict"},
    {&json::ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS, "ограничить, ограничение, restrict"},
};
// clang-format on

QStringList list(const char *words)
{
    return QString::fromUtf8(words).split(QStringLiteral(", "));
}

QStringList ofGroup(DBGroups group)
{
    for (const GroupSynonyms &row : groupSynonyms) {
        if (row.group == group)
            return list(row.words);
    }
    return {};
}

QStringList ofParameter(const QString &parameter)
{
    for (const ParameterSynonyms &row : parameterSynonyms) {
        if (*row.parameter == parameter)
            return list(row.words);
    }
    return {};
}
} // namespace

QStringList SettingSynonyms::of(const SettingAddress &address)
{
    if (!address.isKnown())
        return {};
    QStringList synonyms = ofParameter(address.parameter()) + ofGroup(address.group());
    if (!address.member.isEmpty())
        synonyms += ofGroup(SettingAddress{address.key}.group());
    synonyms.removeDuplicates();
    return synonyms;
}
