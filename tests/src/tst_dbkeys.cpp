#include <vxsettings/dbkeys.h>

#include "messages.h"

#include <QTest>

using namespace db::database;

class TestDBKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void text_data();
    void text();
};

// clang-format off
void TestDBKeys::text_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");

    QTest::newRow("VERSION") << VERSION << "PT_VERSION";
    QTest::newRow("CARD_VIEW_FORMAT") << CARD_VIEW_FORMAT << "PT_CARD_VIEW_FORMAT";
    QTest::newRow("MAX_CARD_COUNT") << MAX_CARD_COUNT << "PT_MAX_CARD_COUNT";
    QTest::newRow("USE_STRICT_COMPARE_CARD_NUMBER") << USE_STRICT_COMPARE_CARD_NUMBER << "PT_USE_STRICT_COMPARE_CARD_NUMBER";
    QTest::newRow("EMPLOYEE_PHOTO_TYPE") << EMPLOYEE_PHOTO_TYPE << "PT_EMPLOYEE_PHOTO_TYPE";
    QTest::newRow("PIN_STRENGTH") << PIN_STRENGTH << "PT_PIN_STRENGTH";
    QTest::newRow("PASSWORD_STRENGTH") << PASSWORD_STRENGTH << "PT_PASSWORD_STRENGTH";
    QTest::newRow("PASSWORD_DEF") << PASSWORD_DEF << "PT_PASSWORD_DEF";
    QTest::newRow("PASSWORD_EXPIRED") << PASSWORD_EXPIRED << "PT_PASSWORD_EXPIRED";
    QTest::newRow("PASSWORD_NOTIFY") << PASSWORD_NOTIFY << "PT_PASSWORD_NOTIFY";
    QTest::newRow("IDENT_TYPE") << IDENT_TYPE << "PT_IDENT_TYPE";
    QTest::newRow("USER_SESSION_COUNT") << USER_SESSION_COUNT << "PT_USER_SESSION_COUNT";
    QTest::newRow("USER_SESSION_TIMEOUT") << USER_SESSION_TIMEOUT << "PT_USER_SESSION_TIMEOUT";
    QTest::newRow("ENROLL_USE_DB_SETTINGS") << ENROLL_USE_DB_SETTINGS << "PT_ENROLL_USE_DB_SETTINGS";
    QTest::newRow("ENROLL_AUTO_CHECK_TEMPLATES_TYPE") << ENROLL_AUTO_CHECK_TEMPLATES_TYPE << "PT_ENROLL_AUTO_CHECK_TEMPLATES_TYPE";
    QTest::newRow("ENROLL_MANUAL_CHECK_TEMPLATES_TYPE") << ENROLL_MANUAL_CHECK_TEMPLATES_TYPE << "PT_ENROLL_MANUAL_CHECK_TEMPLATES_TYPE";
    QTest::newRow("ENABLE_FINGERPRINT_SCANNING") << ENABLE_FINGERPRINT_SCANNING << "PT_ENABLE_FINGERPRINT_SCANNING";
    QTest::newRow("ENROLL_FINGERPRINT_SEARCH_CORE") << ENROLL_FINGERPRINT_SEARCH_CORE << "PT_ENROLL_FINGERPRINT_SEARCH_CORE";
    QTest::newRow("ENROLL_FINGERPRINT_QUALITY") << ENROLL_FINGERPRINT_QUALITY << "PT_ENROLL_FINGERPRINT_QUALITY";
    QTest::newRow("ENROLL_FINGERPRINT_MAX_COUNT") << ENROLL_FINGERPRINT_MAX_COUNT << "PT_ENROLL_FINGERPRINT_MAX_COUNT";
    QTest::newRow("ENROLL_LIVE_FINGER_DETECTION") << ENROLL_LIVE_FINGER_DETECTION << "PT_ENROLL_LIVE_FINGER_DETECTION";
    QTest::newRow("ENABLE_PALM_SCANNING") << ENABLE_PALM_SCANNING << "PT_ENABLE_PALM_SCANNING";
    QTest::newRow("ENROLL_PALM_QUALITY") << ENROLL_PALM_QUALITY << "PT_ENROLL_PALM_QUALITY";
    QTest::newRow("ENROLL_SKYHAND_QUALITY") << ENROLL_SKYHAND_QUALITY << "PT_ENROLL_SKYHAND_QUALITY";
    QTest::newRow("ENROLL_LIVE_PALM_DETECTION") << ENROLL_LIVE_PALM_DETECTION << "PT_ENROLL_LIVE_PALM_DETECTION";
    QTest::newRow("PALM_TEMPLATES_AMOUNT_SETTINGS") << PALM_TEMPLATES_AMOUNT_SETTINGS << "PT_PALM_TEMPLATES_AMOUNT_SETTINGS";
    QTest::newRow("ENABLE_FACE_SCANNING") << ENABLE_FACE_SCANNING << "PT_ENABLE_FACE_SCANNING";
    QTest::newRow("ENROLL_SHOW_FACE_QUALITY") << ENROLL_SHOW_FACE_QUALITY << "PT_SHOW_FACE_QUALITY";
    QTest::newRow("ENROLL_FACE_BLUR_QUALITY") << ENROLL_FACE_BLUR_QUALITY << "PT_ENROLL_FACE_BLUR_QUALITY";
    QTest::newRow("ENROLL_FACE_COLOR_QUALITY") << ENROLL_FACE_COLOR_QUALITY << "PT_ENROLL_FACE_COLOR_QUALITY";
    QTest::newRow("ENROLL_FACE_MIN_SIZE") << ENROLL_FACE_MIN_SIZE << "PT_ENROLL_FACE_MIN_SIZE";
    QTest::newRow("DEFAULT_DEPARTMENT") << DEFAULT_DEPARTMENT << "PT_DEFAULT_DEPARTMENT";
    QTest::newRow("PASS_REQUEST_SEQUENCE") << PASS_REQUEST_SEQUENCE << "PT_PASS_REQUEST_SEQUENCE";
    QTest::newRow("MOBILE_HOST") << MOBILE_HOST << "PT_MOBILE_HOST";
    QTest::newRow("MOBILE_PORT") << MOBILE_PORT << "PT_MOBILE_PORT";
    QTest::newRow("MOBILE_WITHOUT_PHOTO") << MOBILE_WITHOUT_PHOTO << "PT_MOBILE_WITHOUT_PHOTO";
    QTest::newRow("MOBILE_VERIFY_FACE") << MOBILE_VERIFY_FACE << "PT_MOBILE_VERIFY_FACE";
    QTest::newRow("MOBILE_STYLE_INDEX") << MOBILE_STYLE_INDEX << "PT_MOBILE_STYLE_INDEX";
    QTest::newRow("MOBILE_SMARTCARD_PROFILE_ID") << MOBILE_SMARTCARD_PROFILE_ID << "PT_MOBILE_SMARTCARD_PROFILE_ID";
    QTest::newRow("LOCKER_ACCESS_TOKEN") << LOCKER_ACCESS_TOKEN << "PT_LOCKER_ACCESS_TOKEN";
    QTest::newRow("INTEGRATION_DEFAULT_DEPARTMENT") << INTEGRATION_DEFAULT_DEPARTMENT << "PT_INTEGRATION_DEFAULT_DEPARTMENT";

    QTest::newRow("json::MIN_LEN") << json::MIN_LEN << "min_len";
    QTest::newRow("json::MAX_LEN") << json::MAX_LEN << "max_len";
    QTest::newRow("json::DENY_SEQUENCE") << json::DENY_SEQUENCE << "deny_sequence";
    QTest::newRow("json::DENY_EQUAL") << json::DENY_EQUAL << "deny_equal";
    QTest::newRow("json::USE_PASSWORD_STRENGTH") << json::USE_PASSWORD_STRENGTH << "use_password_strength";
    QTest::newRow("json::ADMIT_EMPTY_PASSWORD") << json::ADMIT_EMPTY_PASSWORD << "admit_empty_password";
    QTest::newRow("json::MIN_AMOUNT_NUMBERS") << json::MIN_AMOUNT_NUMBERS << "min_amount_numbers";
    QTest::newRow("json::MIN_AMOUNT_PUNCTUATION_MARKS") << json::MIN_AMOUNT_PUNCTUATION_MARKS << "min_amount_punctuation_marks";
    QTest::newRow("json::MIN_AMOUNT_LETTERS") << json::MIN_AMOUNT_LETTERS << "min_amount_letters";
    QTest::newRow("json::MIN_AMOUNT_LETTERS_UPPER_CASE") << json::MIN_AMOUNT_LETTERS_UPPER_CASE << "min_amount_letters_upper_case";
    QTest::newRow("json::MIN_AMOUNT_LETTERS_LOWER_CASE") << json::MIN_AMOUNT_LETTERS_LOWER_CASE << "min_amount_letters_lower_case";
    QTest::newRow("json::ADMIT_NON_LATIN_LETTERS") << json::ADMIT_NON_LATIN_LETTERS << "admit_non_latin_letters";
    QTest::newRow("json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS") << json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS << "enable_palm_contact_limit";
    QTest::newRow("json::ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS") << json::ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS << "enable_palm_non_contact_limit";
    QTest::newRow("json::CONTACT_LEFT_PALM_MIN_AMOUNT") << json::CONTACT_LEFT_PALM_MIN_AMOUNT << "left_contact_palm_min";
    QTest::newRow("json::CONTACT_LEFT_PALM_MAX_AMOUNT") << json::CONTACT_LEFT_PALM_MAX_AMOUNT << "left_contact_palm_max";
    QTest::newRow("json::CONTACT_RIGHT_PALM_MIN_AMOUNT") << json::CONTACT_RIGHT_PALM_MIN_AMOUNT << "right_contact_palm_min";
    QTest::newRow("json::CONTACT_RIGHT_PALM_MAX_AMOUNT") << json::CONTACT_RIGHT_PALM_MAX_AMOUNT << "right_contact_palm_max";
    QTest::newRow("json::NON_CONTACT_LEFT_PALM_MIN_AMOUNT") << json::NON_CONTACT_LEFT_PALM_MIN_AMOUNT << "left_non_contact_palm_min";
    QTest::newRow("json::NON_CONTACT_LEFT_PALM_MAX_AMOUNT") << json::NON_CONTACT_LEFT_PALM_MAX_AMOUNT << "left_non_contact_palm_max";
    QTest::newRow("json::NON_CONTACT_RIGHT_PALM_MIN_AMOUNT") << json::NON_CONTACT_RIGHT_PALM_MIN_AMOUNT << "right_non_contact_palm_min";
    QTest::newRow("json::NON_CONTACT_RIGHT_PALM_MAX_AMOUNT") << json::NON_CONTACT_RIGHT_PALM_MAX_AMOUNT << "right_non_contact_palm_max";

    QTest::newRow("orgstructure::SUBJECTROOT") << db::orgstructure::SUBJECTROOT << "OT_SUBJECTROOT";
    QTest::newRow("orgstructure::FIRM") << db::orgstructure::FIRM << "OT_FIRM";
    QTest::newRow("orgstructure::DEPARTMENT") << db::orgstructure::DEPARTMENT << "OT_DEPARTMENT";
    QTest::newRow("ORGSTRUCTURE_DATANAME") << vantorix::ORGSTRUCTURE_DATANAME << "orgstructure";
    QTest::newRow("SMARTCARD_PROFILE_DATANAME") << vantorix::SMARTCARD_PROFILE_DATANAME << "smartcard_profile_dataname";
}
// clang-format on

void TestDBKeys::text()
{
    QFETCH(QString, key);
    QTEST(key, "expected");
}

QTEST_MAIN(TestDBKeys)
#include "tst_dbkeys.moc"
