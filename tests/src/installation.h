#pragma once

#include "storedsettings.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingsgroup.h>
#include <vxsettings/dbsettingsgroupfactory.h>

#include <QTest>
#include <QVBoxLayout>

/// An installation with every setting stored, and the twelve pages that a host opens for it.
namespace installation {

struct PageName
{
    DBGroups group;
    const char *name;
};

constexpr PageName pages[] = {
    {DBGroups::Database, "Database"},
    {DBGroups::Employees, "Employees"},
    {DBGroups::Users, "Users"},
    {DBGroups::ScanningCommon, "ScanningCommon"},
    {DBGroups::FingerprintScanning, "FingerprintScanning"},
    {DBGroups::PalmScanning, "PalmScanning"},
    {DBGroups::FaceScanning, "FaceScanning"},
    {DBGroups::PassRequests, "PassRequests"},
    {DBGroups::Connection, "Connection"},
    {DBGroups::StudioMobile, "StudioMobile"},
    {DBGroups::MobileId, "MobileId"},
    {DBGroups::Integration, "Integration"},
};

/// One data row a page, with the column "group".
inline void addPageRows()
{
    QTest::addColumn<int>("group");
    for (const PageName &page : pages)
        QTest::newRow(page.name) << int(page.group);
}

inline QHash<QString, QString> settings()
{
    using namespace db::database;
    return {
        {VERSION, "5.12.3"},
        {MAX_CARD_COUNT, "5"},
        {USE_STRICT_COMPARE_CARD_NUMBER, "1"},
        {CARD_VIEW_FORMAT, "2"},
        {EMPLOYEE_PHOTO_TYPE, "1"},
        // Numbers and flags come as JSON numbers, as JSON booleans or as texts; some members have no editor.
        {PIN_STRENGTH, "{\"min_len\": 6, \"max_len\": \"12\", \"deny_sequence\": true, \"deny_equal\": \"0\", "
                       "\"deny_birthday\": true}"},
        {PASSWORD_STRENGTH,
         "{\"use_password_strength\": \"true\", \"admit_empty_password\": false, \"min_len\": \"8\", "
         "\"max_len\": 64, \"min_amount_numbers\": 1, \"min_amount_punctuation_marks\": 0, "
         "\"min_amount_letters\": \"1\", \"min_amount_letters_upper_case\": \"false\", "
         "\"min_amount_letters_lower_case\": \"true\", \"admit_non_latin_letters\": true, "
         "\"history\": {\"depth\": 5}}"},
        {PASSWORD_DEF, "Qwerty!23"},
        {PASSWORD_EXPIRED, "90"},
        {PASSWORD_NOTIFY, "14"},
        {IDENT_TYPE, "2"},
        {USER_SESSION_COUNT, "0"},
        {USER_SESSION_TIMEOUT, "30"},
        {ENROLL_USE_DB_SETTINGS, "1"},
        {ENROLL_AUTO_CHECK_TEMPLATES_TYPE, "3"},
        {ENROLL_MANUAL_CHECK_TEMPLATES_TYPE, "4"},
        {ENABLE_FINGERPRINT_SCANNING, "1"},
        {ENROLL_FINGERPRINT_SEARCH_CORE, "0"},
        {ENROLL_FINGERPRINT_QUALITY, "60"},
        {ENROLL_FINGERPRINT_MAX_COUNT, "10"},
        {ENROLL_LIVE_FINGER_DETECTION, "1"},
        {ENABLE_PALM_SCANNING, "0"},
        {ENROLL_PALM_QUALITY, "70"},
        {ENROLL_SKYHAND_QUALITY, "80"},
        {ENROLL_LIVE_PALM_DETECTION, "1"},
        {PALM_TEMPLATES_AMOUNT_SETTINGS,
         "{\"enable_palm_contact_limit\": true, \"enable_palm_non_contact_limit\": false, "
         "\"left_contact_palm_min\": 2, \"left_contact_palm_max\": 8, \"right_contact_palm_min\": 3, "
         "\"right_contact_palm_max\": 7, \"left_non_contact_palm_min\": 4, \"left_non_contact_palm_max\": 18, "
         "\"right_non_contact_palm_min\": 5, \"right_non_contact_palm_max\": 17}"},
        {ENABLE_FACE_SCANNING, "1"},
        {ENROLL_FACE_BLUR_QUALITY, "55"},
        {ENROLL_FACE_MIN_SIZE, "640"},
        {ENROLL_FACE_COLOR_QUALITY, "65"},
        {ENROLL_SHOW_FACE_QUALITY, "1"},
        {DEFAULT_DEPARTMENT, "42"},
        {PASS_REQUEST_SEQUENCE, "РОГ-${year}${month}-${zero8-num}"},
        {MOBILE_HOST, "mobile.example"},
        {MOBILE_PORT, "8443"},
        {LOCKER_ACCESS_TOKEN, "sesame"},
        {MOBILE_WITHOUT_PHOTO, "0"},
        {MOBILE_VERIFY_FACE, "1"},
        {MOBILE_STYLE_INDEX, "1"},
        {MOBILE_SMARTCARD_PROFILE_ID, "6"},
        {INTEGRATION_DEFAULT_DEPARTMENT, "7"},
    };
}

/// The installation in the process's storage, for its lifetime.
struct Stored
{
    StoredSettings values{settings()};
    StoredObjects structure{"orgstructure",
                            {{1, 0, "OT_SUBJECTROOT", "Организации"},
                             {7, 1, "OT_FIRM", "Завод"},
                             {42, 7, "OT_DEPARTMENT", "Отдел кадров"},
                             {43, 7, "OT_DEPARTMENT", "Бухгалтерия"}}};
    StoredObjects profiles{"smartcard_profile_dataname",
                           {{5, 0, "OT_SMARTCARD_PROFILE", "Пропуск"},
                            {6, 0, "OT_SMARTCARD_PROFILE", "Гость"},
                            {42, 0, "OT_SMARTCARD_PROFILE", "Подрядчик"}}};
};

/// A page as a host shows it. The tree goes before the window.
struct Page
{
    explicit Page(DBGroups group)
        : tree(DBSettingsGroupFactory::create(group, &window, nullptr))
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(tree->widget().get());
    }
    explicit Page(int group)
        : Page(DBGroups(group))
    {}

    DBSettingsGroup &root() const { return *tree->toGroup(); }
    QList<DBParamWidget *> editors() const { return window.findChildren<DBParamWidget *>(); }

    QWidget window;
    std::unique_ptr<DBSettings> tree;
};
} // namespace installation
