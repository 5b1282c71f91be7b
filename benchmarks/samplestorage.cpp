#include "samplestorage.h"

#include <vxsettings/dbkeys.h>

#include <localstorage/localstorage.h>

using namespace db::database;
using vantorix::LocalStorage;
using vantorix::ObjectRecord;

namespace {

QVector<ObjectRecord> departments()
{
    QVector<ObjectRecord> objects{{1, 0, db::orgstructure::SUBJECTROOT, QStringLiteral("Предприятие"), true}};
    for (unsigned int uid = 2; uid <= 200; ++uid) {
        const bool isFirm = uid <= 9;
        objects.append({uid, isFirm ? 1 : 2 + uid % 8, isFirm ? db::orgstructure::FIRM : db::orgstructure::DEPARTMENT,
                        QStringLiteral("Подразделение %1").arg(uid), true});
    }
    return objects;
}

QVector<ObjectRecord> profiles()
{
    QVector<ObjectRecord> objects;
    for (unsigned int uid = 1; uid <= 5; ++uid)
        objects.append({uid, 0, QStringLiteral("OT_SMARTCARD_PROFILE"), QStringLiteral("Профиль %1").arg(uid), true});
    return objects;
}
} // namespace

void fillSampleStorage()
{
    LocalStorage::instance()->setDbSettings({
        {VERSION, QStringLiteral("5.12.3")},
        {CARD_VIEW_FORMAT, QStringLiteral("2")},
        {PIN_STRENGTH,
         QStringLiteral(R"({"deny_equal": "true", "deny_sequence": "true", "max_len": "8", "min_len": "4"})")},
        {MAX_CARD_COUNT, QStringLiteral("3")},
        {USE_STRICT_COMPARE_CARD_NUMBER, QStringLiteral("1")},
        {EMPLOYEE_PHOTO_TYPE, QStringLiteral("1")},
        {PASSWORD_STRENGTH,
         QStringLiteral(
             R"({"admit_empty_password": "true", "admit_non_latin_letters": "true", "max_len": "32",)"
             R"("min_amount_letters": "true", "min_amount_letters_lower_case": "true",)"
             R"("min_amount_letters_upper_case": "true", "min_amount_numbers": "true",)"
             R"("min_amount_punctuation_marks": "false", "min_len": "8", "use_password_strength": "true"})")},
        {PASSWORD_DEF, QStringLiteral("example")},
        {PASSWORD_EXPIRED, QStringLiteral("90")},
        {PASSWORD_NOTIFY, QStringLiteral("7")},
        {IDENT_TYPE, QStringLiteral("1")},
        {USER_SESSION_COUNT, QStringLiteral("2")},
        {USER_SESSION_TIMEOUT, QStringLiteral("30")},
        {ENROLL_USE_DB_SETTINGS, QStringLiteral("1")},
        {ENROLL_AUTO_CHECK_TEMPLATES_TYPE, QStringLiteral("2")},
        {ENROLL_MANUAL_CHECK_TEMPLATES_TYPE, QStringLiteral("4")},
        {ENABLE_FINGERPRINT_SCANNING, QStringLiteral("1")},
        {ENROLL_FINGERPRINT_SEARCH_CORE, QStringLiteral("1")},
        {ENROLL_FINGERPRINT_QUALITY, QStringLiteral("60")},
        {ENROLL_FINGERPRINT_MAX_COUNT, QStringLiteral("10")},
        {ENROLL_LIVE_FINGER_DETECTION, QStringLiteral("1")},
        {ENABLE_PALM_SCANNING, QStringLiteral("1")},
        {ENROLL_PALM_QUALITY, QStringLiteral("70")},
        {ENROLL_SKYHAND_QUALITY, QStringLiteral("75")},
        {ENROLL_LIVE_PALM_DETECTION, QStringLiteral("1")},
        {PALM_TEMPLATES_AMOUNT_SETTINGS,
         QStringLiteral(R"({"enable_palm_contact_limit": "true", "enable_palm_non_contact_limit": "true",)"
                        R"("left_contact_palm_max": "6", "left_contact_palm_min": "3",)"
                        R"("left_non_contact_palm_max": "12", "left_non_contact_palm_min": "4",)"
                        R"("right_contact_palm_max": "6", "right_contact_palm_min": "3",)"
                        R"("right_non_contact_palm_max": "12", "right_non_contact_palm_min": "4"})")},
        {ENABLE_FACE_SCANNING, QStringLiteral("1")},
        {ENROLL_SHOW_FACE_QUALITY, QStringLiteral("1")},
        {ENROLL_FACE_BLUR_QUALITY, QStringLiteral("50")},
        {ENROLL_FACE_COLOR_QUALITY, QStringLiteral("55")},
        {ENROLL_FACE_MIN_SIZE, QStringLiteral("120")},
        {DEFAULT_DEPARTMENT, QStringLiteral("42")},
        {PASS_REQUEST_SEQUENCE, QStringLiteral("РОГ-${year}${month}-${zero8-num}")},
        {MOBILE_HOST, QStringLiteral("mobile.example.org")},
        {MOBILE_PORT, QStringLiteral("8443")},
        {MOBILE_WITHOUT_PHOTO, QStringLiteral("1")},
        {MOBILE_VERIFY_FACE, QStringLiteral("1")},
        {MOBILE_STYLE_INDEX, QStringLiteral("1")},
        {MOBILE_SMARTCARD_PROFILE_ID, QStringLiteral("3")},
        {LOCKER_ACCESS_TOKEN, QStringLiteral("token")},
        {INTEGRATION_DEFAULT_DEPARTMENT, QStringLiteral("17")},
    });
    LocalStorage::instance()->setObjects(vantorix::ORGSTRUCTURE_DATANAME, departments());
    LocalStorage::instance()->setObjects(vantorix::SMARTCARD_PROFILE_DATANAME, profiles());
}
