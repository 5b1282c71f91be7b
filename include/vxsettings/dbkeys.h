#pragma once

#include <QString>

/// @file
/// Names under which the installation stores its settings and objects. Compared case-sensitively.

/// Names in the installation's database.
namespace db {

/// Keys of the stored database settings.
namespace database {
/// @{
/// A stored key. The settings reference tells what is stored under it.
inline const QString VERSION = QStringLiteral("PT_VERSION");
inline const QString CARD_VIEW_FORMAT = QStringLiteral("PT_CARD_VIEW_FORMAT");
inline const QString MAX_CARD_COUNT = QStringLiteral("PT_MAX_CARD_COUNT");
inline const QString USE_STRICT_COMPARE_CARD_NUMBER = QStringLiteral("PT_USE_STRICT_COMPARE_CARD_NUMBER");
inline const QString EMPLOYEE_PHOTO_TYPE = QStringLiteral("PT_EMPLOYEE_PHOTO_TYPE");
inline const QString PIN_STRENGTH = QStringLiteral("PT_PIN_STRENGTH");
inline const QString PASSWORD_STRENGTH = QStringLiteral("PT_PASSWORD_STRENGTH");
inline const QString PASSWORD_DEF = QStringLiteral("PT_PASSWORD_DEF");
inline const QString PASSWORD_EXPIRED = QStringLiteral("PT_PASSWORD_EXPIRED");
inline const QString PASSWORD_NOTIFY = QStringLiteral("PT_PASSWORD_NOTIFY");
inline const QString IDENT_TYPE = QStringLiteral("PT_IDENT_TYPE");
inline const QString USER_SESSION_COUNT = QStringLiteral("PT_USER_SESSION_COUNT");
inline const QString USER_SESSION_TIMEOUT = QStringLiteral("PT_USER_SESSION_TIMEOUT");
inline const QString ENROLL_USE_DB_SETTINGS = QStringLiteral("PT_ENROLL_USE_DB_SETTINGS");
inline const QString ENROLL_AUTO_CHECK_TEMPLATES_TYPE = QStringLiteral("PT_ENROLL_AUTO_CHECK_TEMPLATES_TYPE");
inline const QString ENROLL_MANUAL_CHECK_TEMPLATES_TYPE = QStringLiteral("PT_ENROLL_MANUAL_CHECK_TEMPLATES_TYPE");
inline const QString ENABLE_FINGERPRINT_SCANNING = QStringLiteral("PT_ENABLE_FINGERPRINT_SCANNING");
inline const QString ENROLL_FINGERPRINT_SEARCH_CORE = QStringLiteral("PT_ENROLL_FINGERPRINT_SEARCH_CORE");
inline const QString ENROLL_FINGERPRINT_QUALITY = QStringLiteral("PT_ENROLL_FINGERPRINT_QUALITY");
inline const QString ENROLL_FINGERPRINT_MAX_COUNT = QStringLiteral("PT_ENROLL_FINGERPRINT_MAX_COUNT");
inline const QString ENROLL_LIVE_FINGER_DETECTION = QStringLiteral("PT_ENROLL_LIVE_FINGER_DETECTION");
inline const QString ENABLE_PALM_SCANNING = QStringLiteral("PT_ENABLE_PALM_SCANNING");
inline const QString ENROLL_PALM_QUALITY = QStringLiteral("PT_ENROLL_PALM_QUALITY");
inline const QString ENROLL_SKYHAND_QUALITY = QStringLiteral("PT_ENROLL_SKYHAND_QUALITY");
inline const QString ENROLL_LIVE_PALM_DETECTION = QStringLiteral("PT_ENROLL_LIVE_PALM_DETECTION");
inline const QString PALM_TEMPLATES_AMOUNT_SETTINGS = QStringLiteral("PT_PALM_TEMPLATES_AMOUNT_SETTINGS");
inline const QString ENABLE_FACE_SCANNING = QStringLiteral("PT_ENABLE_FACE_SCANNING");
// The stored key lacks the "ENROLL_" of its constant; installations hold it so.
inline const QString ENROLL_SHOW_FACE_QUALITY = QStringLiteral("PT_SHOW_FACE_QUALITY");
inline const QString ENROLL_FACE_BLUR_QUALITY = QStringLiteral("PT_ENROLL_FACE_BLUR_QUALITY");
inline const QString ENROLL_FACE_COLOR_QUALITY = QStringLiteral("PT_ENROLL_FACE_COLOR_QUALITY");
inline const QString ENROLL_FACE_MIN_SIZE = QStringLiteral("PT_ENROLL_FACE_MIN_SIZE");
inline const QString DEFAULT_DEPARTMENT = QStringLiteral("PT_DEFAULT_DEPARTMENT");
inline const QString PASS_REQUEST_SEQUENCE = QStringLiteral("PT_PASS_REQUEST_SEQUENCE");
inline const QString MOBILE_HOST = QStringLiteral("PT_MOBILE_HOST");
inline const QString MOBILE_PORT = QStringLiteral("PT_MOBILE_PORT");
inline const QString MOBILE_WITHOUT_PHOTO = QStringLiteral("PT_MOBILE_WITHOUT_PHOTO");
inline const QString MOBILE_VERIFY_FACE = QStringLiteral("PT_MOBILE_VERIFY_FACE");
inline const QString MOBILE_STYLE_INDEX = QStringLiteral("PT_MOBILE_STYLE_INDEX");
inline const QString MOBILE_SMARTCARD_PROFILE_ID = QStringLiteral("PT_MOBILE_SMARTCARD_PROFILE_ID");
inline const QString LOCKER_ACCESS_TOKEN = QStringLiteral("PT_LOCKER_ACCESS_TOKEN");
inline const QString INTEGRATION_DEFAULT_DEPARTMENT = QStringLiteral("PT_INTEGRATION_DEFAULT_DEPARTMENT");
/// @}

/// Member names inside the JSON objects that are stored under PIN_STRENGTH, PASSWORD_STRENGTH and
/// PALM_TEMPLATES_AMOUNT_SETTINGS.
namespace json {
/// @{
/// A member name. The settings reference tells which objects have it, and what it holds.
// PIN_STRENGTH and PASSWORD_STRENGTH
inline const QString MIN_LEN = QStringLiteral("min_len");
inline const QString MAX_LEN = QStringLiteral("max_len");

// PIN_STRENGTH
inline const QString DENY_SEQUENCE = QStringLiteral("deny_sequence");
inline const QString DENY_EQUAL = QStringLiteral("deny_equal");

// PASSWORD_STRENGTH
inline const QString USE_PASSWORD_STRENGTH = QStringLiteral("use_password_strength");
inline const QString ADMIT_EMPTY_PASSWORD = QStringLiteral("admit_empty_password");
inline const QString MIN_AMOUNT_NUMBERS = QStringLiteral("min_amount_numbers");
inline const QString MIN_AMOUNT_PUNCTUATION_MARKS = QStringLiteral("min_amount_punctuation_marks");
inline const QString MIN_AMOUNT_LETTERS = QStringLiteral("min_amount_letters");
inline const QString MIN_AMOUNT_LETTERS_UPPER_CASE = QStringLiteral("min_amount_letters_upper_case");
inline const QString MIN_AMOUNT_LETTERS_LOWER_CASE = QStringLiteral("min_amount_letters_lower_case");
inline const QString ADMIT_NON_LATIN_LETTERS = QStringLiteral("admit_non_latin_letters");

// PALM_TEMPLATES_AMOUNT_SETTINGS; the side comes before the contact kind, but not in the two switches
inline const QString ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS = QStringLiteral("enable_palm_contact_limit");
inline const QString ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS = QStringLiteral("enable_palm_non_contact_limit");
inline const QString CONTACT_LEFT_PALM_MIN_AMOUNT = QStringLiteral("left_contact_palm_min");
inline const QString CONTACT_LEFT_PALM_MAX_AMOUNT = QStringLiteral("left_contact_palm_max");
inline const QString CONTACT_RIGHT_PALM_MIN_AMOUNT = QStringLiteral("right_contact_palm_min");
inline const QString CONTACT_RIGHT_PALM_MAX_AMOUNT = QStringLiteral("right_contact_palm_max");
inline const QString NON_CONTACT_LEFT_PALM_MIN_AMOUNT = QStringLiteral("left_non_contact_palm_min");
inline const QString NON_CONTACT_LEFT_PALM_MAX_AMOUNT = QStringLiteral("left_non_contact_palm_max");
inline const QString NON_CONTACT_RIGHT_PALM_MIN_AMOUNT = QStringLiteral("right_non_contact_palm_min");
inline const QString NON_CONTACT_RIGHT_PALM_MAX_AMOUNT = QStringLiteral("right_non_contact_palm_max");
/// @}
} // namespace json
} // namespace database

/// Object type names of the organisational structure.
namespace orgstructure {
/// @{
/// What vantorix::ObjectRecord::type says of an object.
inline const QString SUBJECTROOT = QStringLiteral("OT_SUBJECTROOT");
inline const QString FIRM = QStringLiteral("OT_FIRM");
inline const QString DEPARTMENT = QStringLiteral("OT_DEPARTMENT");
/// @}
} // namespace orgstructure
} // namespace db

namespace vantorix {

/// @{
/// A data name under which LocalStorage keeps objects.
inline const QString ORGSTRUCTURE_DATANAME = QStringLiteral("orgstructure");
inline const QString SMARTCARD_PROFILE_DATANAME = QStringLiteral("smartcard_profile_dataname");
/// @}
} // namespace vantorix
