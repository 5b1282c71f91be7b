#include <host/sampleinstallation.h>
#include <host/settingspages.h>

#include "messages.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettingshelper.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTest>

#include <algorithm>

using vantorix::ObjectRecord;

class TestSampleInstallation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyStoredKeyHasAValue();
    void everyValueIsOneThatItsEditorTakes();
    void jsonSettingsHaveEveryMemberAsText_data();
    void jsonSettingsHaveEveryMemberAsText();
    void structureIsATree();
    void smartCardProfiles();
};

void TestSampleInstallation::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSampleInstallation::everyStoredKeyHasAValue()
{
    QStringList keys;
    for (const SettingsPageName &page : settingsPages)
        keys << DBSettingsHelper::groupParams(page.group);
    keys.sort();
    QCOMPARE(keys.count(), 41);

    const auto settings = SampleInstallation::make().settings;
    QStringList stored = settings.keys();
    stored.sort();
    QCOMPARE(stored, keys);
    for (const QString &key : keys)
        QVERIFY2(!settings[key].isEmpty(), qPrintable(key));
}

void TestSampleInstallation::everyValueIsOneThatItsEditorTakes()
{
    const Installation sample = SampleInstallation::make();
    const auto offers = [&](const QString &dataName, const QString &uid) {
        const auto &objects = sample.objects[dataName];
        return std::any_of(objects.begin(), objects.end(), [&](const ObjectRecord &object) {
            return object.granted && QString::number(object.uid) == uid;
        });
    };
    int judged = 0;
    for (auto setting = sample.settings.begin(); setting != sample.settings.end(); ++setting) {
        const QString &key = setting.key();
        bool fits = true;
        ++judged;
        switch (DBSettingsHelper::paramType(key)) {
        case DBSettingsType::ComboBox:
            fits = DBSettingsHelper::paramValues(key).count(setting->toUInt()) == 1;
            break;
        case DBSettingsType::SpinBox:
            fits = setting->toInt() >= DBSettingsHelper::paramRange(key).first &&
                   setting->toInt() <= DBSettingsHelper::paramRange(key).second;
            break;
        case DBSettingsType::OrgstructureSelector:
            fits = offers(vantorix::ORGSTRUCTURE_DATANAME, *setting);
            break;
        case DBSettingsType::SmartCardProfileSelector:
            fits = offers(vantorix::SMARTCARD_PROFILE_DATANAME, *setting);
            break;
        default:
            --judged;
        }
        QVERIFY2(fits, qPrintable(key + " = " + *setting));
    }
    QCOMPARE(judged, 17 + 13 + 3); // choices, numbers, objects
}

void TestSampleInstallation::jsonSettingsHaveEveryMemberAsText_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("members");
    QTest::newRow("PIN") << db::database::PIN_STRENGTH << 4;
    QTest::newRow("password") << db::database::PASSWORD_STRENGTH << 10;
    QTest::newRow("palms") << db::database::PALM_TEMPLATES_AMOUNT_SETTINGS << 10;
}

void TestSampleInstallation::jsonSettingsHaveEveryMemberAsText()
{
    QFETCH(QString, key);
    const QString text = SampleInstallation::make().settings[key];
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    QCOMPARE(text, QString::fromUtf8(document.toJson()));

    QStringList wanted = DBSettingsHelper::groupParams(DBSettingsHelper::jsonGroup(key));
    wanted.sort();
    QCOMPARE(document.object().keys(), wanted);
    QTEST(int(wanted.count()), "members");
    for (const QString &member : wanted)
        QVERIFY2(document.object()[member].isString(), qPrintable(member));
}

void TestSampleInstallation::structureIsATree()
{
    const QVector<ObjectRecord> objects = SampleInstallation::make().objects[vantorix::ORGSTRUCTURE_DATANAME];
    QVERIFY2(objects.count() >= 190 && objects.count() <= 210, qPrintable(QString::number(objects.count())));

    QHash<unsigned int, ObjectRecord> seen;
    QHash<QString, int> types;
    int withheld = 0;
    for (const ObjectRecord &object : objects) {
        QVERIFY(object.uid != 0 && !seen.contains(object.uid));
        QVERIFY2(object.parentUid == 0 ? seen.isEmpty() : seen.contains(object.parentUid), qPrintable(object.name));
        QVERIFY2(!object.name.isEmpty() && object.name == object.name.trimmed(), qPrintable(object.name));
        seen.insert(object.uid, object);
        ++types[object.type];
        withheld += object.granted ? 0 : 1;
    }
    QCOMPARE(objects.first().type, db::orgstructure::SUBJECTROOT);
    QCOMPARE(types.keys().count(), 3);
    QCOMPARE(types[db::orgstructure::SUBJECTROOT], 1);
    QVERIFY(types[db::orgstructure::FIRM] >= 5);
    QVERIFY(withheld >= 2);

    const auto typeOfParent = [&](const ObjectRecord &object) { return seen[object.parentUid].type; };
    for (const ObjectRecord &object : objects) {
        if (object.type == db::orgstructure::FIRM)
            QCOMPARE(typeOfParent(object), db::orgstructure::SUBJECTROOT);
        if (object.type == db::orgstructure::DEPARTMENT)
            QVERIFY(typeOfParent(object) != db::orgstructure::SUBJECTROOT);
    }
}

void TestSampleInstallation::smartCardProfiles()
{
    const QVector<ObjectRecord> profiles = SampleInstallation::make().objects[vantorix::SMARTCARD_PROFILE_DATANAME];
    QVERIFY(profiles.count() >= 3);
    for (const ObjectRecord &profile : profiles)
        QCOMPARE(profile.parentUid, 0u);
}

QTEST_MAIN(TestSampleInstallation)
#include "tst_sampleinstallation.moc"
