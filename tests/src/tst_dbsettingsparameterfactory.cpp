#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"
#include "storedsettings.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettingsgroup.h>
#include <vxsettings/dbsettingsparameterfactory.h>
#include <vxsettings/dbsettingsvalue.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QSpinBox>

using namespace db::database;

namespace {

std::unique_ptr<DBSettings> create(int group, const QString &key, QWidget *rootWidget, QWidget *parent)
{
    return DBSettingsParameterFactory::create(DBGroups(group), key, rootWidget, parent);
}

DBParamWidget *editorOf(const std::unique_ptr<DBSettings> &node)
{
    return qobject_cast<DBParamWidget *>(node->widget().get());
}

template <typename Input>
Input *inputOf(const std::unique_ptr<DBSettings> &node)
{
    return qobject_cast<Input *>(editorOf(node)->centralWidget());
}
} // namespace

class TestDBSettingsParameterFactory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void editorOfEveryParameter_data();
    void editorOfEveryParameter();
    void editorHangsBelowTheParent_data();
    void editorHangsBelowTheParent();
    void captionPlace_data();
    void captionPlace();

    void checkBox();
    void checkBoxOfAPage();
    void comboBox();
    void comboBoxWithoutStoredText();
    void lineEdit();
    void spinBox();
    void spinBoxClampsTheStoredValue_data();
    void spinBoxClampsTheStoredValue();
    void spinBoxWithSpecialValue();
    void readOnly();
    void password();
    void orgstructureSelector();
    void smartCardProfileSelector();

    void jsonSettingIsAGroup_data();
    void jsonSettingIsAGroup();
    void jsonSettingInsideAJsonGroup();
    void frameOfAJsonSettingHangsBelowTheRootWidget_data();
    void frameOfAJsonSettingHangsBelowTheRootWidget();

    void groupNumberDecidesWhatIsRead_data();
    void groupNumberDecidesWhatIsRead();
    void unknownKeyHasNoWidget_data();
    void unknownKeyHasNoWidget();

    void nothingElseIsLeftBehind_data();
    void nothingElseIsLeftBehind();
    void theCallerOwnsTheEditor();
    void callsAreIndependent();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

void TestDBSettingsParameterFactory::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestDBSettingsParameterFactory::editorOfEveryParameter_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("editorClass");

    struct Row
    {
        int group;
        const char *key;
        int type;
        const char *editorClass;
    };
    // clang-format off
    const Row rows[] = {
        { 0, "PT_VERSION",                            7, "DBLineEditWidget"},
        { 1, "PT_MAX_CARD_COUNT",                     4, "DBSpinBoxWidget"},
        { 1, "PT_USE_STRICT_COMPARE_CARD_NUMBER",     2, "DBComboBoxWidget"},
        { 1, "PT_CARD_VIEW_FORMAT",                   2, "DBComboBoxWidget"},
        { 1, "PT_EMPLOYEE_PHOTO_TYPE",                2, "DBComboBoxWidget"},
        { 2, "PT_PASSWORD_DEF",                       9, "DBPasswordWidget"},
        { 2, "PT_PASSWORD_EXPIRED",                   4, "DBSpinBoxWidget"},
        { 2, "PT_PASSWORD_NOTIFY",                    4, "DBSpinBoxWidget"},
        { 2, "PT_IDENT_TYPE",                         2, "DBComboBoxWidget"},
        { 2, "PT_USER_SESSION_COUNT",                 4, "DBSpinBoxWidget"},
        { 2, "PT_USER_SESSION_TIMEOUT",               4, "DBSpinBoxWidget"},
        { 3, "PT_ENROLL_USE_DB_SETTINGS",             2, "DBComboBoxWidget"},
        { 3, "PT_ENROLL_AUTO_CHECK_TEMPLATES_TYPE",   2, "DBComboBoxWidget"},
        { 3, "PT_ENROLL_MANUAL_CHECK_TEMPLATES_TYPE", 2, "DBComboBoxWidget"},
        { 4, "PT_ENABLE_FINGERPRINT_SCANNING",        2, "DBComboBoxWidget"},
        { 4, "PT_ENROLL_FINGERPRINT_SEARCH_CORE",     2, "DBComboBoxWidget"},
        { 4, "PT_ENROLL_FINGERPRINT_QUALITY",         4, "DBSpinBoxWidget"},
        { 4, "PT_ENROLL_FINGERPRINT_MAX_COUNT",       4, "DBSpinBoxWidget"},
        { 4, "PT_ENROLL_LIVE_FINGER_DETECTION",       2, "DBComboBoxWidget"},
        { 5, "PT_ENABLE_PALM_SCANNING",               2, "DBComboBoxWidget"},
        { 5, "PT_ENROLL_PALM_QUALITY",                4, "DBSpinBoxWidget"},
        { 5, "PT_ENROLL_SKYHAND_QUALITY",             4, "DBSpinBoxWidget"},
        { 5, "PT_ENROLL_LIVE_PALM_DETECTION",         2, "DBComboBoxWidget"},
        { 6, "PT_ENABLE_FACE_SCANNING",               2, "DBComboBoxWidget"},
        { 6, "PT_ENROLL_FACE_BLUR_QUALITY",           4, "DBSpinBoxWidget"},
        { 6, "PT_ENROLL_FACE_MIN_SIZE",               4, "DBSpinBoxWidget"},
        { 6, "PT_ENROLL_FACE_COLOR_QUALITY",          4, "DBSpinBoxWidget"},
        { 6, "PT_SHOW_FACE_QUALITY",                  2, "DBComboBoxWidget"},
        { 7, "PT_DEFAULT_DEPARTMENT",                10, "DBObjSelectorWidget"},
        { 7, "PT_PASS_REQUEST_SEQUENCE",              3, "DBLineEditWidget"},
        { 8, "PT_MOBILE_HOST",                        3, "DBLineEditWidget"},
        { 8, "PT_MOBILE_PORT",                        4, "DBSpinBoxWidget"},
        { 8, "PT_LOCKER_ACCESS_TOKEN",                9, "DBPasswordWidget"},
        {10, "PT_MOBILE_WITHOUT_PHOTO",               2, "DBComboBoxWidget"},
        {10, "PT_MOBILE_VERIFY_FACE",                 2, "DBComboBoxWidget"},
        {11, "PT_MOBILE_STYLE_INDEX",                 2, "DBComboBoxWidget"},
        {11, "PT_MOBILE_SMARTCARD_PROFILE_ID",       11, "DBObjSelectorWidget"},
        {12, "PT_INTEGRATION_DEFAULT_DEPARTMENT",    10, "DBObjSelectorWidget"},
        {14, "min_len",                               4, "DBSpinBoxWidget"},
        {14, "max_len",                               4, "DBSpinBoxWidget"},
        {14, "deny_sequence",                         1, "DBCheckBoxWidget"},
        {14, "deny_equal",                            1, "DBCheckBoxWidget"},
        {15, "use_password_strength",                 1, "DBCheckBoxWidget"},
        {15, "admit_empty_password",                  1, "DBCheckBoxWidget"},
        {15, "min_len",                               4, "DBSpinBoxWidget"},
        {15, "max_len",                               4, "DBSpinBoxWidget"},
        {15, "min_amount_numbers",                    1, "DBCheckBoxWidget"},
        {15, "min_amount_punctuation_marks",          1, "DBCheckBoxWidget"},
        {15, "min_amount_letters",                    1, "DBCheckBoxWidget"},
        {15, "min_amount_letters_upper_case",         1, "DBCheckBoxWidget"},
        {15, "min_amount_letters_lower_case",         1, "DBCheckBoxWidget"},
        {15, "admit_non_latin_letters",               1, "DBCheckBoxWidget"},
        {16, "enable_palm_contact_limit",             1, "DBCheckBoxWidget"},
        {16, "enable_palm_non_contact_limit",         1, "DBCheckBoxWidget"},
        {16, "left_contact_palm_min",                 4, "DBSpinBoxWidget"},
        {16, "left_non_contact_palm_min",             4, "DBSpinBoxWidget"},
        {16, "right_contact_palm_min",                4, "DBSpinBoxWidget"},
        {16, "right_non_contact_palm_min",            4, "DBSpinBoxWidget"},
        {16, "left_contact_palm_max",                 4, "DBSpinBoxWidget"},
        {16, "left_non_contact_palm_max",             4, "DBSpinBoxWidget"},
        {16, "right_contact_palm_max",                4, "DBSpinBoxWidget"},
        {16, "right_non_contact_palm_max",            4, "DBSpinBoxWidget"},
    };
    // clang-format on
    for (const Row &row : rows)
        QTest::addRow("%s of group %d", row.key, row.group)
            << row.group << QString(row.key) << row.type << QString(row.editorClass);
}

void TestDBSettingsParameterFactory::editorOfEveryParameter()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(group, key, &page, &page);

    QVERIFY(node);
    QVERIFY(!node->isGroup());
    QVERIFY(dynamic_cast<DBSettingsValue *>(node.get()));
    QTEST(int(node->type()), "type");
    const DBParamWidget *editor = editorOf(node);
    QVERIFY(editor);
    QTEST(QString(editor->metaObject()->className()), "editorClass");
    QCOMPARE(editor->key(), key);
    QCOMPARE(editor->inverted, false);
    QCOMPARE(node->parameters().keys(), QStringList(key));
}

void TestDBSettingsParameterFactory::editorHangsBelowTheParent_data()
{
    QTest::addColumn<bool>("hasRootWidget");
    QTest::addColumn<bool>("hasParent");

    QTest::newRow("both") << true << true;
    QTest::newRow("parent only") << false << true;
    QTest::newRow("root widget only") << true << false;
    QTest::newRow("neither") << false << false;
}

void TestDBSettingsParameterFactory::editorHangsBelowTheParent()
{
    QFETCH(bool, hasRootWidget);
    QFETCH(bool, hasParent);
    QWidget rootWidget;
    QWidget parent;
    for (const int group : {1, 14}) {
        const std::unique_ptr<DBSettings> node =
            create(group, MAX_CARD_COUNT, hasRootWidget ? &rootWidget : nullptr, hasParent ? &parent : nullptr);
        QCOMPARE(node->widget()->parentWidget(), hasParent ? &parent : nullptr);
        QVERIFY(rootWidget.children().isEmpty());
    }
}

void TestDBSettingsParameterFactory::captionPlace_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QStringList>("shown");

    QTest::newRow("Database") << 0 << VERSION << QStringList("leftLabel");
    QTest::newRow("Employees") << 1 << MAX_CARD_COUNT << QStringList("rightLabel");
    QTest::newRow("Users") << 2 << PASSWORD_DEF << QStringList("bottomLabel");
    QTest::newRow("ScanningCommon") << 3 << ENROLL_USE_DB_SETTINGS << QStringList("bottomLabel");
    QTest::newRow("FingerprintScanning") << 4 << ENROLL_FINGERPRINT_QUALITY << QStringList("rightLabel");
    QTest::newRow("PalmScanning") << 5 << ENROLL_PALM_QUALITY << QStringList("rightLabel");
    QTest::newRow("FaceScanning") << 6 << ENROLL_FACE_MIN_SIZE << QStringList("rightLabel");
    QTest::newRow("PassRequests") << 7 << DEFAULT_DEPARTMENT << QStringList("rightLabel");
    QTest::newRow("Connection") << 8 << MOBILE_HOST << QStringList("bottomLabel");
    QTest::newRow("StudioMobile") << 10 << MOBILE_VERIFY_FACE << QStringList("rightLabel");
    QTest::newRow("MobileId") << 11 << MOBILE_SMARTCARD_PROFILE_ID << QStringList("rightLabel");
    QTest::newRow("Integration") << 12 << INTEGRATION_DEFAULT_DEPARTMENT << QStringList("rightLabel");
    QTest::newRow("JSON group") << 14 << json::MIN_LEN << QStringList("rightLabel");
    QTest::newRow("group decides, not the key") << 8 << MAX_CARD_COUNT << QStringList("bottomLabel");
    QTest::newRow("unassigned group") << 13 << MAX_CARD_COUNT << QStringList();
    QTest::newRow("check box carries its own") << 15 << json::USE_PASSWORD_STRENGTH << QStringList();
    QTest::newRow("check box even on a page") << 2 << json::USE_PASSWORD_STRENGTH << QStringList();
}

void TestDBSettingsParameterFactory::captionPlace()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(group, key, &page, &page);
    QTEST(inspect::shownCaptions(editorOf(node)), "shown");
}

void TestDBSettingsParameterFactory::checkBox()
{
    StoredSettings stored({{PASSWORD_STRENGTH, "{\"admit_empty_password\": true}"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(15, json::ADMIT_EMPTY_PASSWORD, &page, &page);

    const auto *box = inputOf<QCheckBox>(node);
    QCOMPARE(box->text(), QString("Запрет пустого пароля"));
    QCOMPARE(box->isChecked(), true);
    QCOMPARE(editorOf(node)->value(), QVariant(true));
    QCOMPARE(editorOf(node)->toolTip(), QString());
}

void TestDBSettingsParameterFactory::checkBoxOfAPage()
{
    StoredSettings stored({{json::DENY_EQUAL, "1"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(1, json::DENY_EQUAL, &page, &page);
    QCOMPARE(inputOf<QCheckBox>(node)->isChecked(), true);
}

void TestDBSettingsParameterFactory::comboBox()
{
    StoredSettings stored({{CARD_VIEW_FORMAT, "2"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(1, CARD_VIEW_FORMAT, &page, &page);

    const auto *box = inputOf<QComboBox>(node);
    QCOMPARE(box->count(), 3);
    QCOMPARE(box->itemText(0), QString("Десятичный"));
    QCOMPARE(box->itemText(1), QString("Шестнадцатеричный"));
    QCOMPARE(box->itemText(2), QString("Семейство-код"));
    QCOMPARE(box->currentIndex(), 2);
    QCOMPARE(editorOf(node)->value(), QVariant(2U));
    QCOMPARE(editorOf(node)->findChild<QLabel *>("rightLabel")->text(), QString("Формат отображения номеров карт"));
}

void TestDBSettingsParameterFactory::comboBoxWithoutStoredText()
{
    QWidget page;
    const std::unique_ptr<DBSettings> zero = create(10, MOBILE_WITHOUT_PHOTO, &page, &page);
    QCOMPARE(inputOf<QComboBox>(zero)->currentText(), QString("Да"));
    QCOMPARE(zero->parameters(), vantorix::OBJECT_PARAMETERS({{"PT_MOBILE_WITHOUT_PHOTO", "0"}}));

    // There is no choice for the zero that nothing amounts to.
    const std::unique_ptr<DBSettings> one = create(3, ENROLL_MANUAL_CHECK_TEMPLATES_TYPE, &page, &page);
    QCOMPARE(inputOf<QComboBox>(one)->currentText(), QString("По всей базе"));
    QCOMPARE(one->parameters(), vantorix::OBJECT_PARAMETERS({{"PT_ENROLL_MANUAL_CHECK_TEMPLATES_TYPE", "1"}}));
}

void TestDBSettingsParameterFactory::lineEdit()
{
    StoredSettings stored({{PASS_REQUEST_SEQUENCE, "РОГ-${year}${month}-${zero8-num}"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(7, PASS_REQUEST_SEQUENCE, &page, &page);

    QCOMPARE(inputOf<QLineEdit>(node)->text(), QString("РОГ-${year}${month}-${zero8-num}"));
    QCOMPARE(inputOf<QLineEdit>(node)->isReadOnly(), false);
    QVERIFY(editorOf(node)->toolTip().startsWith("<html>Возможные параметры:<br/><b>${year}</b> - текущий год"));
    QCOMPARE(editorOf(node)->findChild<QLabel *>("rightLabel")->text(), QString("Формат номера заявки"));
}

void TestDBSettingsParameterFactory::spinBox()
{
    StoredSettings stored({{ENROLL_FACE_MIN_SIZE, "640"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(6, ENROLL_FACE_MIN_SIZE, &page, &page);

    const auto *box = inputOf<QSpinBox>(node);
    QCOMPARE(box->minimum(), 10);
    QCOMPARE(box->maximum(), 1024);
    QCOMPARE(box->value(), 640);
    QCOMPARE(box->specialValueText(), QString());
    QCOMPARE(box->isReadOnly(), false);
    QCOMPARE(editorOf(node)->toolTip(), QString());
    QCOMPARE(editorOf(node)->findChild<QLabel *>("rightLabel")->text(),
             QString("Минимальный размер диагонали лица (px)"));
}

void TestDBSettingsParameterFactory::spinBoxClampsTheStoredValue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("shown");

    QTest::newRow("lowest") << "10" << 10;
    QTest::newRow("too low") << "9" << 10;
    QTest::newRow("negative") << "-640" << 10;
    QTest::newRow("highest") << "1024" << 1024;
    QTest::newRow("too high") << "1025" << 1024;
    // The range of a fresh spin box ends here; the value comes before its own range does.
    QTest::newRow("hundred") << "100" << 100;
    QTest::newRow("largest int") << "2147483647" << 1024;
    QTest::newRow("fraction is no whole number") << "640.5" << 10;
    QTest::newRow("words") << "много" << 10;
    QTest::newRow("empty") << "" << 10;
}

void TestDBSettingsParameterFactory::spinBoxClampsTheStoredValue()
{
    QFETCH(QString, text);
    StoredSettings stored({{ENROLL_FACE_MIN_SIZE, text}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(6, ENROLL_FACE_MIN_SIZE, &page, &page);
    QTEST(inputOf<QSpinBox>(node)->value(), "shown");
}

void TestDBSettingsParameterFactory::spinBoxWithSpecialValue()
{
    StoredSettings stored({{USER_SESSION_TIMEOUT, "0"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(2, USER_SESSION_TIMEOUT, &page, &page);
    QCOMPARE(inputOf<QSpinBox>(node)->text(), QString("Без ограничений"));
    QCOMPARE(node->parameters(), vantorix::OBJECT_PARAMETERS({{"PT_USER_SESSION_TIMEOUT", "0"}}));
}

void TestDBSettingsParameterFactory::readOnly()
{
    StoredSettings stored({{VERSION, "5.12.3"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(0, VERSION, &page, &page);

    QCOMPARE(inputOf<QLineEdit>(node)->text(), QString("5.12.3"));
    QCOMPARE(inputOf<QLineEdit>(node)->isReadOnly(), true);
    QCOMPARE(inputOf<QLineEdit>(node)->isEnabled(), true);
    QCOMPARE(editorOf(node)->isReadOnly(), true);
    QCOMPARE(editorOf(node)->toolTip(), QString());
}

void TestDBSettingsParameterFactory::password()
{
    StoredSettings stored({{PASSWORD_DEF, "Qwerty!23"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(2, PASSWORD_DEF, &page, &page);

    QCOMPARE(inputOf<QLineEdit>(node)->text(), QString("Qwerty!23"));
    QVERIFY(!inputOf<QLineEdit>(node)->displayText().contains("Qwerty"));
    QCOMPARE(node->parameters(), vantorix::OBJECT_PARAMETERS({{"PT_PASSWORD_DEF", "Qwerty!23"}}));
}

void TestDBSettingsParameterFactory::orgstructureSelector()
{
    StoredObjects objects("orgstructure", {{1, 0, "OT_SUBJECTROOT", "Организации"},
                                           {7, 1, "OT_FIRM", "Завод"},
                                           {42, 7, "OT_DEPARTMENT", "Отдел кадров"}});
    StoredSettings stored({{DEFAULT_DEPARTMENT, "42"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(7, DEFAULT_DEPARTMENT, &page, &page);

    QCOMPARE(editorOf(node)->value(), QVariant(42U));
    QCOMPARE(inputOf<QComboBox>(node)->currentText(), QString("Отдел кадров"));
    QCOMPARE(inputOf<QComboBox>(node)->width(), 400);
}

void TestDBSettingsParameterFactory::smartCardProfileSelector()
{
    StoredObjects objects("smartcard_profile_dataname",
                          {{5, 0, "OT_SMARTCARD_PROFILE", "Пропуск"}, {6, 0, "OT_SMARTCARD_PROFILE", "Гость"}});
    StoredSettings stored({{MOBILE_SMARTCARD_PROFILE_ID, "6"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(11, MOBILE_SMARTCARD_PROFILE_ID, &page, &page);

    QCOMPARE(editorOf(node)->value(), QVariant(6U));
    QCOMPARE(inputOf<QComboBox>(node)->currentText(), QString("Гость"));
    QCOMPARE(inputOf<QComboBox>(node)->width(), 256);
}

void TestDBSettingsParameterFactory::jsonSettingIsAGroup_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("memberCount");

    QTest::newRow("PIN") << PIN_STRENGTH << "Сложность пин-кода" << 4;
    QTest::newRow("password") << PASSWORD_STRENGTH << "Сложность пароля" << 10;
    QTest::newRow("palms") << PALM_TEMPLATES_AMOUNT_SETTINGS << "Настройки количества шаблонов" << 10;
}

void TestDBSettingsParameterFactory::jsonSettingIsAGroup()
{
    QFETCH(QString, key);
    QWidget page;
    // The number of the group around it does not matter.
    for (const int group : {0, 1, 12, -1}) {
        const std::unique_ptr<DBSettings> node = create(group, key, &page, &page);
        QVERIFY(dynamic_cast<JsonGroup *>(node.get()));
        QCOMPARE(node->type(), DBSettingsType::JsonGroup);
        QCOMPARE(node->toGroup()->id(), -1);
        QTEST(int(node->toGroup()->settings().size()), "memberCount");
        QTEST(inspect::frame(*node)->title(), "title");
        QVERIFY(inspect::frame(*node)->icon().isNull());
        QCOMPARE(inspect::frame(*node)->isShowHideButton(), true);
        QCOMPARE(inspect::frame(*node)->isShowLineHorizontal(), false);
        QCOMPARE(node->parameters().keys(), QStringList(key));
    }
}

void TestDBSettingsParameterFactory::jsonSettingInsideAJsonGroup()
{
    StoredSettings stored({{PASSWORD_STRENGTH, "{\"min_len\": 7}"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(14, PASSWORD_STRENGTH, &page, &page);
    QVERIFY(dynamic_cast<JsonGroup *>(node.get()));
    QCOMPARE(node->toGroup()->paramValue("min_len"), QVariant(7));
    QCOMPARE(inspect::frame(*node)->title(), QString("Сложность пароля"));
}

void TestDBSettingsParameterFactory::frameOfAJsonSettingHangsBelowTheRootWidget_data()
{
    QTest::addColumn<bool>("hasRootWidget");
    QTest::addColumn<bool>("hasParent");

    QTest::newRow("both") << true << true;
    QTest::newRow("root widget only") << true << false;
    QTest::newRow("parent only") << false << true;
    QTest::newRow("neither") << false << false;
}

void TestDBSettingsParameterFactory::frameOfAJsonSettingHangsBelowTheRootWidget()
{
    QFETCH(bool, hasRootWidget);
    QFETCH(bool, hasParent);
    QWidget rootWidget;
    QWidget parent;
    const std::unique_ptr<DBSettings> node =
        create(1, PIN_STRENGTH, hasRootWidget ? &rootWidget : nullptr, hasParent ? &parent : nullptr);

    QCOMPARE(node->widget()->parentWidget(), hasRootWidget ? &rootWidget : nullptr);
    QVERIFY(parent.children().isEmpty());
    for (const std::unique_ptr<DBSettings> &member : node->toGroup()->settings())
        QVERIFY(node->widget()->isAncestorOf(member->widget().get()));
}

void TestDBSettingsParameterFactory::groupNumberDecidesWhatIsRead_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("shown");

    QTest::newRow("member key on a page") << 1 << json::MAX_LEN << 21;
    QTest::newRow("member key in the last group of pages") << 13 << json::MAX_LEN << 21;
    QTest::newRow("member key in a negative group") << -1 << json::MAX_LEN << 21;
    QTest::newRow("member key in the first JSON group") << 14 << json::MAX_LEN << 22;
    QTest::newRow("member key in the second JSON group") << 15 << json::MAX_LEN << 23;
    QTest::newRow("stored key on a page") << 1 << MOBILE_PORT << 31;
    QTest::newRow("stored key in a JSON group") << 14 << MOBILE_PORT << 32;
    QTest::newRow("stored key in a group after the last") << 17 << MOBILE_PORT << 0;
    QTest::newRow("stored key far off") << 99 << MOBILE_PORT << 0;
}

void TestDBSettingsParameterFactory::groupNumberDecidesWhatIsRead()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    StoredSettings stored({{json::MAX_LEN, "21"},
                           {MOBILE_PORT, "31"},
                           {PIN_STRENGTH, "{\"max_len\": 22, \"PT_MOBILE_PORT\": 32}"},
                           {PASSWORD_STRENGTH, "{\"max_len\": 23}"}});
    QWidget page;
    const std::unique_ptr<DBSettings> node = create(group, key, &page, &page);
    QTEST(inputOf<QSpinBox>(node)->value(), "shown");
}

void TestDBSettingsParameterFactory::unknownKeyHasNoWidget_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");

    // Every key here is another one: an unknown key is reported once.
    QTest::newRow("page") << 1 << "PT_NOBODY_0";
    QTest::newRow("JSON group") << 14 << "nobody_1";
    QTest::newRow("unknown group") << 99 << "PT_NOBODY_2";
    QTest::newRow("case differs") << 1 << MAX_CARD_COUNT.toLower();
    QTest::newRow("blank behind") << 1 << MAX_CARD_COUNT + ' ';
    QTest::newRow("empty") << 1 << "";
    QTest::newRow("a megabyte") << 1 << QString(1 << 20, 'x');
}

void TestDBSettingsParameterFactory::unknownKeyHasNoWidget()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QWidget page;
    CapturedMessages log;
    const std::unique_ptr<DBSettings> node = create(group, key, &page, &page);

    QVERIFY(node);
    QVERIFY(dynamic_cast<DBSettingsValue *>(node.get()));
    QCOMPARE(node->type(), DBSettingsType::Unknown);
    QCOMPARE(node->isGroup(), false);
    QVERIFY(!node->widget());
    QVERIFY(node->parameters().isEmpty());
    QVERIFY(page.children().isEmpty());
    QCOMPARE(log.texts(), QStringList("dbsettings does not contain parameter \"" + key + '"'));

    const std::unique_ptr<DBSettings> again = create(group, key, &page, &page);
    QVERIFY(!again->widget());
    QCOMPARE(log.count(), 1);
}

void TestDBSettingsParameterFactory::nothingElseIsLeftBehind_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");

    QTest::newRow("check box") << 14 << json::DENY_EQUAL;
    QTest::newRow("combo box") << 1 << CARD_VIEW_FORMAT;
    QTest::newRow("line edit") << 8 << MOBILE_HOST;
    QTest::newRow("spin box") << 8 << MOBILE_PORT;
    QTest::newRow("JSON group") << 1 << PIN_STRENGTH;
    QTest::newRow("read-only") << 0 << VERSION;
    QTest::newRow("password") << 2 << PASSWORD_DEF;
    QTest::newRow("organisational structure") << 7 << DEFAULT_DEPARTMENT;
    QTest::newRow("smart-card profile") << 11 << MOBILE_SMARTCARD_PROFILE_ID;
}

void TestDBSettingsParameterFactory::nothingElseIsLeftBehind()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QWidget page;
    const int widgetCount = QApplication::allWidgets().count();
    std::unique_ptr<DBSettings> node = create(group, key, &page, &page);
    QCOMPARE(page.children(), QObjectList({node->widget().get()}));

    node.reset();
    QVERIFY(page.children().isEmpty());
    QCOMPARE(QApplication::allWidgets().count(), widgetCount);
}

void TestDBSettingsParameterFactory::theCallerOwnsTheEditor()
{
    QWidget page;
    std::unique_ptr<DBSettings> node = create(1, MAX_CARD_COUNT, &page, &page);
    const std::shared_ptr<QWidget> held = node->widget();
    const QPointer<QWidget> editor = held.get();
    node.reset();
    QVERIFY(editor);
    QCOMPARE(editor->parentWidget(), &page);
}

void TestDBSettingsParameterFactory::callsAreIndependent()
{
    QWidget page;
    StoredSettings stored({{MOBILE_PORT, "1"}});
    const std::unique_ptr<DBSettings> first = create(8, MOBILE_PORT, &page, &page);
    StoredSettings changed({{MOBILE_PORT, "2"}});
    const std::unique_ptr<DBSettings> second = create(8, MOBILE_PORT, &page, &page);

    QVERIFY(first->widget() != second->widget());
    QCOMPARE(editorOf(first)->value(), QVariant(1));
    QCOMPARE(editorOf(second)->value(), QVariant(2));
}

QTEST_MAIN(TestDBSettingsParameterFactory)
#include "tst_dbsettingsparameterfactory.moc"
