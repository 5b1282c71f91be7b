#include "sampleinstallation.h"

#include <vxsettings/dbkeys.h>

#include <qtcompat.h>

#include <QFile>
#include <QMap>
#include <QTextStream>

#include <algorithm>

using namespace db::database;
using vantorix::ObjectRecord;

// The resources of a static library are not there by themselves.
static void makeResourcesAvailable()
{
    Q_INIT_RESOURCE(sample);
}

namespace {

/// A line of the file is an object, its indentation its depth below the root; "- " says that it is not granted.
struct Line
{
    explicit Line(const QString &line)
        : depth(int(std::find_if(line.begin(), line.end(), [](QChar c) { return !c.isSpace(); }) - line.begin()) / 2)
        , granted(!line.trimmed().startsWith(QLatin1String("- ")))
        , name(line.trimmed().mid(granted ? 0 : 2))
    {}

    int depth;
    bool granted;
    QString name;
};

QString typeAt(int depth)
{
    const QString types[] = {db::orgstructure::SUBJECTROOT, db::orgstructure::FIRM, db::orgstructure::DEPARTMENT};
    return types[qMin(depth, 2)];
}

QVector<ObjectRecord> orgstructure()
{
    makeResourcesAvailable();
    QFile file(QStringLiteral(":/vxsettings/sample/orgstructure.txt"));
    file.open(QIODevice::ReadOnly);
    QTextStream stream(&file);
    qtcompat::setUtf8(stream);

    QVector<ObjectRecord> objects;
    QVector<unsigned int> path{0}; // uids from the top to the last object
    while (!stream.atEnd()) {
        const Line line(stream.readLine());
        path.resize(line.depth + 1);
        const unsigned int uid = 1000 + unsigned(objects.count());
        objects.append({uid, path.last(), typeAt(line.depth), line.name, line.granted});
        path.append(uid);
    }
    return objects;
}

QVector<ObjectRecord> smartCardProfiles()
{
    const auto type = QStringLiteral("OT_SMARTCARD_PROFILE");
    return {
        {11, 0, type, QStringLiteral("Сотрудники")},
        {12, 0, type, QStringLiteral("Посетители")},
        {13, 0, type, QStringLiteral("Подрядчики")},
        {14, 0, type, QStringLiteral("Парковка")},
        {15, 0, type, QStringLiteral("Служба безопасности"), false},
    };
}

QString uidOf(const QString &name, const QVector<ObjectRecord> &objects)
{
    const auto found = std::find_if(objects.begin(), objects.end(),
                                    [&name](const ObjectRecord &object) { return object.name == name; });
    return QString::number(found->uid);
}

// As the library writes JSON settings.
constexpr char pinStrength[] = R"({
    "deny_equal": "true",
    "deny_sequence": "true",
    "max_len": "8",
    "min_len": "4"
}
)";
constexpr char passwordStrength[] = R"({
    "admit_empty_password": "true",
    "admit_non_latin_letters": "false",
    "max_len": "64",
    "min_amount_letters": "true",
    "min_amount_letters_lower_case": "true",
    "min_amount_letters_upper_case": "true",
    "min_amount_numbers": "true",
    "min_amount_punctuation_marks": "false",
    "min_len": "10",
    "use_password_strength": "true"
}
)";
constexpr char palmTemplatesAmount[] = R"({
    "enable_palm_contact_limit": "true",
    "enable_palm_non_contact_limit": "false",
    "left_contact_palm_max": "4",
    "left_contact_palm_min": "2",
    "left_non_contact_palm_max": "6",
    "left_non_contact_palm_min": "3",
    "right_contact_palm_max": "4",
    "right_contact_palm_min": "2",
    "right_non_contact_palm_max": "6",
    "right_non_contact_palm_min": "3"
}
)";

struct StoredText
{
    const QString &key;
    const char *text;
};

const StoredText storedTexts[] = {
    {VERSION, "7.4.2.118"},
    {MAX_CARD_COUNT, "3"},
    {USE_STRICT_COMPARE_CARD_NUMBER, "1"},
    {CARD_VIEW_FORMAT, "2"},
    {EMPLOYEE_PHOTO_TYPE, "1"},
    {PIN_STRENGTH, pinStrength},
    {PASSWORD_STRENGTH, passwordStrength},
    {PASSWORD_DEF, "Vhod-2024"},
    {PASSWORD_EXPIRED, "90"},
    {PASSWORD_NOTIFY, "14"},
    {IDENT_TYPE, "2"},
    {USER_SESSION_COUNT, "0"},
    {USER_SESSION_TIMEOUT, "30"},
    {ENROLL_USE_DB_SETTINGS, "1"},
    {ENROLL_AUTO_CHECK_TEMPLATES_TYPE, "2"},
    {ENROLL_MANUAL_CHECK_TEMPLATES_TYPE, "4"},
    {ENABLE_FINGERPRINT_SCANNING, "1"},
    {ENROLL_FINGERPRINT_SEARCH_CORE, "1"},
    {ENROLL_FINGERPRINT_QUALITY, "60"},
    {ENROLL_FINGERPRINT_MAX_COUNT, "10"},
    {ENROLL_LIVE_FINGER_DETECTION, "1"},
    {ENABLE_PALM_SCANNING, "1"},
    {ENROLL_PALM_QUALITY, "70"},
    {ENROLL_SKYHAND_QUALITY, "75"},
    {ENROLL_LIVE_PALM_DETECTION, "0"},
    {PALM_TEMPLATES_AMOUNT_SETTINGS, palmTemplatesAmount},
    {ENABLE_FACE_SCANNING, "0"},
    {ENROLL_SHOW_FACE_QUALITY, "1"},
    {ENROLL_FACE_BLUR_QUALITY, "55"},
    {ENROLL_FACE_COLOR_QUALITY, "65"},
    {ENROLL_FACE_MIN_SIZE, "150"},
    {PASS_REQUEST_SEQUENCE, "РОГ-${year}${month}-${zero8-num}"},
    {MOBILE_HOST, "mobile.installation.example"},
    {MOBILE_PORT, "8443"},
    {MOBILE_WITHOUT_PHOTO, "0"},
    {MOBILE_VERIFY_FACE, "1"},
    {MOBILE_STYLE_INDEX, "0"},
    {MOBILE_SMARTCARD_PROFILE_ID, "11"},
    {LOCKER_ACCESS_TOKEN, "e3b7f0a1-5c42-4d1e-9a86-2f0c7d9b4e13"},
};
} // namespace

Installation SampleInstallation::make()
{
    Installation sample;
    for (const StoredText &stored : storedTexts)
        sample.settings.insert(stored.key, QString::fromUtf8(stored.text));

    const QVector<ObjectRecord> structure = orgstructure();
    sample.settings.insert(DEFAULT_DEPARTMENT, uidOf(QStringLiteral("Бюро пропусков"), structure));
    sample.settings.insert(INTEGRATION_DEFAULT_DEPARTMENT, uidOf(QStringLiteral("Отдел кадрового учёта"), structure));
    sample.objects.insert(vantorix::ORGSTRUCTURE_DATANAME, structure);
    sample.objects.insert(vantorix::SMARTCARD_PROFILE_DATANAME, smartCardProfiles());
    return sample;
}
