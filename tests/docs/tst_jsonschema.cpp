#include "jsonschema.h"
#include "messages.h"
#include "storedsettings.h"

#include <host/healthcheck.h>
#include <host/objectindex.h>
#include <host/sampleinstallation.h>

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingsgroupfactory.h>
#include <vxsettings/dbsettingshelper.h>

#include <QCheckBox>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

#include <stdexcept>

using namespace db::database;

class TestJsonSchema : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sampleInstallationIsValid_data();
    void sampleInstallationIsValid();
    void whatEditorsGiveIsValid_data();
    void whatEditorsGiveIsValid();
    void wholeTexts_data();
    void wholeTexts();
    void agreesWithTheHealthCheck_data();
    void agreesWithTheHealthCheck();
};

namespace {

struct Setting
{
    DBGroups page;
    const QString &key;
};

void addSettingRows()
{
    QTest::addColumn<DBGroups>("page");
    QTest::addColumn<QString>("key");
    for (const Setting &setting :
         {Setting{DBGroups::Employees, PIN_STRENGTH}, Setting{DBGroups::Users, PASSWORD_STRENGTH},
          Setting{DBGroups::PalmScanning, PALM_TEMPLATES_AMOUNT_SETTINGS}})
        QTest::newRow(qPrintable(setting.key)) << setting.page << setting.key;
}

/// Whether each of @p documents is valid by the schema of @p key.
QVector<bool> areValid(const QString &key, const QList<QByteArray> &documents)
{
    QTemporaryDir folder;
    QFile schema(folder.filePath("schema.json"));
    if (!schema.open(QFile::WriteOnly) || schema.write(JsonSchema().text(key).toUtf8()) < 0 || !schema.flush())
        throw std::runtime_error("no schema");
    QProcess python;
    python.start(PYTHON, {VALIDATE, schema.fileName()});
    python.write(documents.join('\n'));
    python.closeWriteChannel();
    if (!python.waitForFinished() || python.exitCode() != 0)
        throw std::runtime_error(python.readAllStandardError().toStdString());
    QVector<bool> verdicts;
    for (const QByteArray &verdict : python.readAllStandardOutput().trimmed().split('\n'))
        verdicts.append(verdict == "valid");
    return verdicts;
}

/// In one line, as it goes to the validator.
QByteArray compact(const QString &json)
{
    return QJsonDocument::fromJson(json.toUtf8()).toJson(QJsonDocument::Compact);
}

/// Whether the health check finds no error in @p text stored under @p key.
bool isHealthy(const QString &key, const QByteArray &text)
{
    const ObjectIndex noObjects({});
    const auto findings = HealthCheck({{key, QString::fromUtf8(text)}}, noObjects).findings();
    return std::all_of(findings.begin(), findings.end(), [](const SettingFinding &finding) {
        // No schema can compare two members.
        return SettingProblem::isNotice(finding.problem) || finding.problem == SettingProblem::Kind::BrokenRule;
    });
}

/// What may stand for a member.
QJsonArray nastyValues()
{
    return {"true",
            "false",
            "True",
            "1",
            "0",
            "2",
            "3",
            "4",
            "8",
            "9",
            "18",
            "19",
            "008",
            "-1",
            "+4",
            " 4",
            "4 ",
            "",
            "abc",
            "4.5",
            "4e0",
            "да",
            "٤",
            "10",
            "100",
            true,
            false,
            "2147483647",
            "2147483648",
            "99999999999999999999",
            0,
            1,
            2,
            3,
            4,
            8,
            9,
            18,
            19,
            -1,
            4.5,
            1e300,
            2147483647,
            2147483648.0,
            QJsonValue(),
            QJsonArray{4},
            QJsonObject{{"a", 4}}};
}

/// Brings every spin box and check box to an end of what it can show.
void turn(const QWidget *page, bool up)
{
    for (DBParamWidget *editor : page->findChildren<DBParamWidget *>()) {
        if (auto *spinBox = qobject_cast<QSpinBox *>(editor->centralWidget()))
            spinBox->setValue(up ? spinBox->maximum() : spinBox->minimum());
        if (auto *checkBox = qobject_cast<QCheckBox *>(editor->centralWidget()))
            checkBox->setChecked(up);
    }
}
} // namespace

Q_DECLARE_METATYPE(DBGroups)

void TestJsonSchema::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestJsonSchema::sampleInstallationIsValid_data()
{
    addSettingRows();
}

void TestJsonSchema::sampleInstallationIsValid()
{
    QFETCH(QString, key);
    const QString stored = SampleInstallation::make().settings.value(key);
    QVERIFY(!stored.isEmpty());
    QCOMPARE(areValid(key, {compact(stored)}), QVector<bool>{true});
}

void TestJsonSchema::whatEditorsGiveIsValid_data()
{
    addSettingRows();
}

void TestJsonSchema::whatEditorsGiveIsValid()
{
    QFETCH(DBGroups, page);
    QFETCH(QString, key);
    const StoredSettings nothing({});
    QWidget window;
    const auto tree = DBSettingsGroupFactory::create(page, &window, nullptr);
    QList<QByteArray> given{compact(tree->parameters().value(key))};
    for (const bool up : {true, false}) {
        turn(tree->widget().get(), up);
        given.append(compact(tree->parameters().value(key)));
    }
    QVERIFY(given[0].contains("\"false\""));
    QVERIFY(given[1].contains("\"true\""));
    QCOMPARE(areValid(key, given), QVector<bool>(3, true));
}

void TestJsonSchema::wholeTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isValid");
    QTest::newRow("all members")
        << QByteArray(R"({"min_len": "4", "max_len": "8", "deny_equal": "true", "deny_sequence": "false"})") << true;
    QTest::newRow("no member") << QByteArray("{}") << true;
    QTest::newRow("numbers and booleans") << QByteArray(R"({"min_len": 4, "deny_equal": true})") << true;
    QTest::newRow("another program's member") << QByteArray(R"({"min_len": "4", "history": [1, 2]})") << true;
    QTest::newRow("below the range") << QByteArray(R"({"max_len": "3"})") << false;
    QTest::newRow("a word for a number") << QByteArray(R"({"min_len": "four"})") << false;
    QTest::newRow("a number for a flag") << QByteArray(R"({"deny_equal": "2"})") << false;
    QTest::newRow("null") << QByteArray(R"({"min_len": null})") << false;
    QTest::newRow("array") << QByteArray(R"([{"min_len": "4"}])") << false;
    QTest::newRow("text") << QByteArray(R"("min_len")") << false;
}

void TestJsonSchema::wholeTexts()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, isValid);
    QCOMPARE(areValid(PIN_STRENGTH, {text}), QVector<bool>{isValid});
    QCOMPARE(isHealthy(PIN_STRENGTH, text), isValid);
}

void TestJsonSchema::agreesWithTheHealthCheck_data()
{
    addSettingRows();
}

/// On every value of every member.
void TestJsonSchema::agreesWithTheHealthCheck()
{
    QFETCH(QString, key);
    QList<QByteArray> texts;
    for (const QString &member : DBSettingsHelper::groupParams(DBSettingsHelper::jsonGroup(key))) {
        for (const QJsonValue &value : nastyValues())
            texts.append(QJsonDocument(QJsonObject{{member, value}}).toJson(QJsonDocument::Compact));
    }
    const QVector<bool> verdicts = areValid(key, texts);
    QCOMPARE(verdicts.size(), texts.size());
    QVERIFY(verdicts.contains(true) && verdicts.contains(false));
    for (int i = 0; i < texts.size(); ++i)
        QVERIFY2(verdicts[i] == isHealthy(key, texts[i]), texts[i].constData());
}

QTEST_MAIN(TestJsonSchema)
#include "tst_jsonschema.moc"
