#include "debuglines.h"
#include "installation.h"
#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"
#include "translation.h"

#include <vxsettings/dbsettingshelper.h>

#include <vxwidgets/vxobjectselector.h>

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>

using namespace db::database;
using installation::Page;
using vantorix::OBJECT_PARAMETERS;

Q_DECLARE_METATYPE(OBJECT_PARAMETERS)

namespace {

/// Changes what the input widget shows, as a user's choice would.
void edit(DBParamWidget *editor)
{
    QWidget *input = editor->centralWidget();
    if (auto *spinBox = qobject_cast<QSpinBox *>(input))
        spinBox->setValue(spinBox->value() == spinBox->maximum() ? spinBox->minimum() : spinBox->value() + 1);
    else if (auto *checkBox = qobject_cast<QCheckBox *>(input))
        checkBox->click();
    else if (auto *selector = qobject_cast<VXObjectSelector *>(input))
        QTest::keyClick(selector,
                        selector->currentUid() == 5 || selector->currentUid() == 7 ? Qt::Key_Down : Qt::Key_Up);
    else if (auto *comboBox = qobject_cast<QComboBox *>(input))
        comboBox->setCurrentIndex((comboBox->currentIndex() + 1) % comboBox->count());
    else
        QTest::keyClicks(input, "x");
}

/// The keys whose texts differ.
QStringList changedKeys(const OBJECT_PARAMETERS &before, const OBJECT_PARAMETERS &after)
{
    QStringList keys;
    for (auto value = after.begin(); value != after.end(); ++value) {
        if (before.value(value.key()) != value.value())
            keys << value.key();
    }
    keys.sort();
    return keys;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

/// What stands beside or on the editor; empty if no caption can be seen.
QString caption(const DBParamWidget *editor)
{
    if (const auto *checkBox = qobject_cast<QCheckBox *>(editor->centralWidget()))
        return checkBox->text();
    const QStringList shown = inspect::shownCaptions(editor);
    return shown.isEmpty() ? QString() : editor->findChild<QLabel *>(shown.first())->text();
}

/// Title and captions of a frame and of the frames in it, in display order.
QStringList texts(DBSettings &node)
{
    QStringList texts{inspect::frame(node)->title()};
    for (const std::unique_ptr<DBSettings> &child : node.toGroup()->settings()) {
        if (child->isGroup())
            texts += ::texts(*child);
        else
            texts << caption(qobject_cast<DBParamWidget *>(child->widget().get()));
    }
    return texts;
}

/// Enables and disables dependent parameters, as a host does.
void applyDependents(DBSettingsGroup &page, const QString &key)
{
    for (const QString &child : DBSettingsHelper::paramChilds(key))
        page.setParamEnabled(child, DBSettingsHelper::paramChildIsEnabled(key, page.paramValue(key), child));
}

void followDependents(Page &page)
{
    for (DBParamWidget *editor : page.editors()) {
        applyDependents(page.root(), editor->key());
        QObject::connect(editor, &DBParamWidget::paramChanged, &page.window,
                         [&page](const QString &key) { applyDependents(page.root(), key); });
    }
}

/// The keys of the page's editors whose input can not be used.
QStringList disabledKeys(const Page &page)
{
    QStringList keys;
    for (const DBParamWidget *editor : page.editors()) {
        if (!editor->centralWidget()->isEnabled())
            keys << editor->key();
    }
    return keys;
}

OBJECT_PARAMETERS collectAll(const std::vector<std::unique_ptr<Page>> &pages)
{
    OBJECT_PARAMETERS all;
    for (const std::unique_ptr<Page> &page : pages) {
        const OBJECT_PARAMETERS parameters = page->tree->parameters();
        for (auto value = parameters.begin(); value != parameters.end(); ++value)
            all.insert(value.key(), value.value());
    }
    return all;
}

std::vector<std::unique_ptr<Page>> buildAll()
{
    std::vector<std::unique_ptr<Page>> pages;
    for (const installation::PageName &page : installation::pages)
        pages.push_back(std::make_unique<Page>(page.group));
    return pages;
}
} // namespace

class TestPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void storedValuesAreCollected_data();
    void storedValuesAreCollected();
    void defaultsAreCollected_data();
    void defaultsAreCollected();
    void texts_data();
    void texts();
    void choicesAndLimits();
    void keys_data();
    void keys();
    void valuesHaveTheTypeOfTheirEditor_data();
    void valuesHaveTheTypeOfTheirEditor();

    void editsAreCollectedOneByOne_data();
    void editsAreCollectedOneByOne();
    void revertBringsTheStoredValuesBack_data();
    void revertBringsTheStoredValuesBack();
    void pageIsFilledByProgram_data();
    void pageIsFilledByProgram();
    void acceptedEditsStay_data();
    void acceptedEditsStay();
    void acceptAndRevertWithoutAnEditChangeNothing_data();
    void acceptAndRevertWithoutAnEditChangeNothing();
    void storageIsNeverWritten_data();
    void storageIsNeverWritten();
    void laterChangesOfTheStorageAreNotSeen_data();
    void laterChangesOfTheStorageAreNotSeen();
    void collectedTextsBuildTheSamePage_data();
    void collectedTextsBuildTheSamePage();

    void dependentsFollowTheStoredValue_data();
    void dependentsFollowTheStoredValue();
    void dependentsFollowTheEditor_data();
    void dependentsFollowTheEditor();
    void disabledEditorsAreCollectedAllTheSame();

    void pageSpeaksTheLanguageItWasBuiltIn();
    void languageChangesNothingButTheTexts_data();
    void languageChangesNothingButTheTexts();

    void twoSetsOfPagesCoexist();
    void objectsThatArriveLaterAreChosen();

    void nothingIsWrittenToTheLog_data();
    void nothingIsWrittenToTheLog();
    void debugOutputChangesNothing_data();
    void debugOutputChangesNothing();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

void TestPages::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestPages::storedValuesAreCollected_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<OBJECT_PARAMETERS>("parameters");

    QTest::newRow("Database") << 0 << OBJECT_PARAMETERS{{"PT_VERSION", "5.12.3"}};
    QTest::newRow("Employees") << 1
                               << OBJECT_PARAMETERS{{"PT_MAX_CARD_COUNT", "5"},
                                                    {"PT_USE_STRICT_COMPARE_CARD_NUMBER", "1"},
                                                    {"PT_CARD_VIEW_FORMAT", "2"},
                                                    {"PT_EMPLOYEE_PHOTO_TYPE", "1"},
                                                    {"PT_PIN_STRENGTH", "{\n"
                                                                        "    \"deny_equal\": \"false\",\n"
                                                                        "    \"deny_sequence\": \"true\",\n"
                                                                        "    \"max_len\": \"12\",\n"
                                                                        "    \"min_len\": \"6\"\n"
                                                                        "}\n"}};
    QTest::newRow("Users") << 2
                           << OBJECT_PARAMETERS{{"PT_PASSWORD_STRENGTH",
                                                 "{\n"
                                                 "    \"admit_empty_password\": \"false\",\n"
                                                 "    \"admit_non_latin_letters\": \"true\",\n"
                                                 "    \"max_len\": \"64\",\n"
                                                 "    \"min_amount_letters\": \"true\",\n"
                                                 "    \"min_amount_letters_lower_case\": \"true\",\n"
                                                 "    \"min_amount_letters_upper_case\": \"false\",\n"
                                                 "    \"min_amount_numbers\": \"true\",\n"
                                                 "    \"min_amount_punctuation_marks\": \"false\",\n"
                                                 "    \"min_len\": \"8\",\n"
                                                 "    \"use_password_strength\": \"true\"\n"
                                                 "}\n"},
                                                {"PT_PASSWORD_DEF", "Qwerty!23"},
                                                {"PT_PASSWORD_EXPIRED", "90"},
                                                {"PT_PASSWORD_NOTIFY", "14"},
                                                {"PT_IDENT_TYPE", "2"},
                                                {"PT_USER_SESSION_COUNT", "0"},
                                                {"PT_USER_SESSION_TIMEOUT", "30"}};
    QTest::newRow("ScanningCommon") << 3
                                    << OBJECT_PARAMETERS{{"PT_ENROLL_USE_DB_SETTINGS", "1"},
                                                         {"PT_ENROLL_AUTO_CHECK_TEMPLATES_TYPE", "3"},
                                                         {"PT_ENROLL_MANUAL_CHECK_TEMPLATES_TYPE", "4"}};
    QTest::newRow("FingerprintScanning") << 4
                                         << OBJECT_PARAMETERS{{"PT_ENABLE_FINGERPRINT_SCANNING", "1"},
                                                              {"PT_ENROLL_FINGERPRINT_SEARCH_CORE", "0"},
                                                              {"PT_ENROLL_FINGERPRINT_QUALITY", "60"},
                                                              {"PT_ENROLL_FINGERPRINT_MAX_COUNT", "10"},
                                                              {"PT_ENROLL_LIVE_FINGER_DETECTION", "1"}};
    QTest::newRow("PalmScanning") << 5
                                  << OBJECT_PARAMETERS{{"PT_ENABLE_PALM_SCANNING", "0"},
                                                       {"PT_ENROLL_PALM_QUALITY", "70"},
                                                       {"PT_ENROLL_SKYHAND_QUALITY", "80"},
                                                       {"PT_ENROLL_LIVE_PALM_DETECTION", "1"},
                                                       {"PT_PALM_TEMPLATES_AMOUNT_SETTINGS",
                                                        "{\n"
                                                        "    \"enable_palm_contact_limit\": \"true\",\n"
                                                        "    \"enable_palm_non_contact_limit\": \"false\",\n"
                                                        "    \"left_contact_palm_max\": \"8\",\n"
                                                        "    \"left_contact_palm_min\": \"2\",\n"
                                                        "    \"left_non_contact_palm_max\": \"18\",\n"
                                                        "    \"left_non_contact_palm_min\": \"4\",\n"
                                                        "    \"right_contact_palm_max\": \"7\",\n"
                                                        "    \"right_contact_palm_min\": \"3\",\n"
                                                        "    \"right_non_contact_palm_max\": \"17\",\n"
                                                        "    \"right_non_contact_palm_min\": \"5\"\n"
                                                        "}\n"}};
    QTest::newRow("FaceScanning") << 6
                                  << OBJECT_PARAMETERS{{"PT_ENABLE_FACE_SCANNING", "1"},
                                                       {"PT_ENROLL_FACE_BLUR_QUALITY", "55"},
                                                       {"PT_ENROLL_FACE_MIN_SIZE", "640"},
                                                       {"PT_ENROLL_FACE_COLOR_QUALITY", "65"},
                                                       {"PT_SHOW_FACE_QUALITY", "1"}};
    QTest::newRow("PassRequests") << 7
                                  << OBJECT_PARAMETERS{
                                         {"PT_DEFAULT_DEPARTMENT", "42"},
                                         {"PT_PASS_REQUEST_SEQUENCE", "РОГ-${year}${month}-${zero8-num}"}};
    QTest::newRow("Connection") << 8
                                << OBJECT_PARAMETERS{{"PT_MOBILE_HOST", "mobile.example"},
                                                     {"PT_MOBILE_PORT", "8443"},
                                                     {"PT_LOCKER_ACCESS_TOKEN", "sesame"}};
    QTest::newRow("StudioMobile") << 10
                                  << OBJECT_PARAMETERS{{"PT_MOBILE_WITHOUT_PHOTO", "0"},
                                                       {"PT_MOBILE_VERIFY_FACE", "1"}};
    QTest::newRow("MobileId") << 11
                              << OBJECT_PARAMETERS{{"PT_MOBILE_STYLE_INDEX", "1"},
                                                   {"PT_MOBILE_SMARTCARD_PROFILE_ID", "6"}};
    QTest::newRow("Integration") << 12 << OBJECT_PARAMETERS{{"PT_INTEGRATION_DEFAULT_DEPARTMENT", "7"}};
}

void TestPages::storedValuesAreCollected()
{
    QFETCH(int, group);
    QFETCH(OBJECT_PARAMETERS, parameters);
    installation::Stored stored;
    const Page page(group);
    QCOMPARE(page.tree->parameters(), parameters);
    QCOMPARE(page.tree->parameters(), parameters);
}

void TestPages::defaultsAreCollected_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<OBJECT_PARAMETERS>("parameters");

    QTest::newRow("Database") << 0 << OBJECT_PARAMETERS{{"PT_VERSION", ""}};
    QTest::newRow("Employees") << 1
                               << OBJECT_PARAMETERS{{"PT_MAX_CARD_COUNT", "1"},
                                                    {"PT_USE_STRICT_COMPARE_CARD_NUMBER", "0"},
                                                    {"PT_CARD_VIEW_FORMAT", "0"},
                                                    {"PT_EMPLOYEE_PHOTO_TYPE", "0"},
                                                    {"PT_PIN_STRENGTH", "{\n"
                                                                        "    \"deny_equal\": \"false\",\n"
                                                                        "    \"deny_sequence\": \"false\",\n"
                                                                        "    \"max_len\": \"4\",\n"
                                                                        "    \"min_len\": \"0\"\n"
                                                                        "}\n"}};
    QTest::newRow("Users") << 2
                           << OBJECT_PARAMETERS{{"PT_PASSWORD_STRENGTH",
                                                 "{\n"
                                                 "    \"admit_empty_password\": \"false\",\n"
                                                 "    \"admit_non_latin_letters\": \"false\",\n"
                                                 "    \"max_len\": \"4\",\n"
                                                 "    \"min_amount_letters\": \"false\",\n"
                                                 "    \"min_amount_letters_lower_case\": \"false\",\n"
                                                 "    \"min_amount_letters_upper_case\": \"false\",\n"
                                                 "    \"min_amount_numbers\": \"false\",\n"
                                                 "    \"min_amount_punctuation_marks\": \"false\",\n"
                                                 "    \"min_len\": \"0\",\n"
                                                 "    \"use_password_strength\": \"false\"\n"
                                                 "}\n"},
                                                {"PT_PASSWORD_DEF", ""},
                                                {"PT_PASSWORD_EXPIRED", "0"},
                                                {"PT_PASSWORD_NOTIFY", "0"},
                                                {"PT_IDENT_TYPE", "0"},
                                                {"PT_USER_SESSION_COUNT", "0"},
                                                {"PT_USER_SESSION_TIMEOUT", "0"}};
    QTest::newRow("ScanningCommon") << 3
                                    << OBJECT_PARAMETERS{{"PT_ENROLL_USE_DB_SETTINGS", "0"},
                                                         {"PT_ENROLL_AUTO_CHECK_TEMPLATES_TYPE", "0"},
                                                         {"PT_ENROLL_MANUAL_CHECK_TEMPLATES_TYPE", "1"}};
    QTest::newRow("FingerprintScanning") << 4
                                         << OBJECT_PARAMETERS{{"PT_ENABLE_FINGERPRINT_SCANNING", "0"},
                                                              {"PT_ENROLL_FINGERPRINT_SEARCH_CORE", "0"},
                                                              {"PT_ENROLL_FINGERPRINT_QUALITY", "0"},
                                                              {"PT_ENROLL_FINGERPRINT_MAX_COUNT", "0"},
                                                              {"PT_ENROLL_LIVE_FINGER_DETECTION", "0"}};
    QTest::newRow("PalmScanning") << 5
                                  << OBJECT_PARAMETERS{{"PT_ENABLE_PALM_SCANNING", "0"},
                                                       {"PT_ENROLL_PALM_QUALITY", "0"},
                                                       {"PT_ENROLL_SKYHAND_QUALITY", "0"},
                                                       {"PT_ENROLL_LIVE_PALM_DETECTION", "0"},
                                                       {"PT_PALM_TEMPLATES_AMOUNT_SETTINGS",
                                                        "{\n"
                                                        "    \"enable_palm_contact_limit\": \"false\",\n"
                                                        "    \"enable_palm_non_contact_limit\": \"false\",\n"
                                                        "    \"left_contact_palm_max\": \"2\",\n"
                                                        "    \"left_contact_palm_min\": \"2\",\n"
                                                        "    \"left_non_contact_palm_max\": \"2\",\n"
                                                        "    \"left_non_contact_palm_min\": \"2\",\n"
                                                        "    \"right_contact_palm_max\": \"2\",\n"
                                                        "    \"right_contact_palm_min\": \"2\",\n"
                                                        "    \"right_non_contact_palm_max\": \"2\",\n"
                                                        "    \"right_non_contact_palm_min\": \"2\"\n"
                                                        "}\n"}};
    QTest::newRow("FaceScanning") << 6
                                  << OBJECT_PARAMETERS{{"PT_ENABLE_FACE_SCANNING", "0"},
                                                       {"PT_ENROLL_FACE_BLUR_QUALITY", "0"},
                                                       {"PT_ENROLL_FACE_MIN_SIZE", "10"},
                                                       {"PT_ENROLL_FACE_COLOR_QUALITY", "0"},
                                                       {"PT_SHOW_FACE_QUALITY", "0"}};
    QTest::newRow("PassRequests") << 7
                                  << OBJECT_PARAMETERS{{"PT_DEFAULT_DEPARTMENT", "0"},
                                                       {"PT_PASS_REQUEST_SEQUENCE", ""}};
    QTest::newRow("Connection") << 8
                                << OBJECT_PARAMETERS{
                                       {"PT_MOBILE_HOST", ""}, {"PT_MOBILE_PORT", "0"}, {"PT_LOCKER_ACCESS_TOKEN", ""}};
    QTest::newRow("StudioMobile") << 10
                                  << OBJECT_PARAMETERS{{"PT_MOBILE_WITHOUT_PHOTO", "0"},
                                                       {"PT_MOBILE_VERIFY_FACE", "0"}};
    QTest::newRow("MobileId") << 11
                              << OBJECT_PARAMETERS{{"PT_MOBILE_STYLE_INDEX", "0"},
                                                   {"PT_MOBILE_SMARTCARD_PROFILE_ID", "0"}};
    QTest::newRow("Integration") << 12 << OBJECT_PARAMETERS{{"PT_INTEGRATION_DEFAULT_DEPARTMENT", "0"}};
}

void TestPages::defaultsAreCollected()
{
    QFETCH(int, group);
    QFETCH(OBJECT_PARAMETERS, parameters);
    const Page page(group);
    QCOMPARE(page.tree->parameters(), parameters);
    page.tree->setDefaultValue();
    QCOMPARE(page.tree->parameters(), parameters);
}

void TestPages::texts_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QStringList>("texts");

    QTest::newRow("Database") << 0 << QStringList{"База данных", "Версия базы данных"};
    QTest::newRow("Employees") << 1
                               << QStringList{"Сотрудники",
                                              "Максимальное количество карт сотрудника",
                                              "Строгое сравнение номеров карт",
                                              "Формат отображения номеров карт",
                                              "Граница фотографии сотрудника",
                                              "Сложность пин-кода",
                                              "Минимальная длина",
                                              "Максимальная длина",
                                              "Запрещать последовательные цифры",
                                              "Запрещать одинаковые цифры подряд"};
    QTest::newRow("Users") << 2
                           << QStringList{"Пользователи",
                                          "Сложность пароля",
                                          "Использовать ограничения для пароля",
                                          "Запрет пустого пароля",
                                          "Минимальная длина",
                                          "Максимальная длина",
                                          "Использовать цифры",
                                          "Использовать специальные знаки",
                                          "Использовать буквы",
                                          "Использовать буквы в верхнем регистре",
                                          "Использовать буквы в нижнем регистре",
                                          "Запрет использования нелатинских букв",
                                          "Пароль по умолчанию",
                                          "Срок действия пароля (дней)",
                                          "Срок уведомления об изменении пароля (дней)",
                                          "Тип идентификации для входа в Vantorix-Studio",
                                          "Количество одновременных сессий пользователя",
                                          "Время бездействия пользователя (минут)"};
    QTest::newRow("ScanningCommon") << 3
                                    << QStringList{"Сканирование общие", "Использовать настройки БД",
                                                   "Автоматическая проверка шаблонов", "Ручная проверка шаблонов"};
    QTest::newRow("FingerprintScanning") << 4
                                         << QStringList{"Сканирование отпечатков пальцев",
                                                        "Включить возможность сканирования по отпечатку пальца",
                                                        "Поиск ядра",
                                                        "Требуемое качество шаблона отпечатка пальца",
                                                        "Максимальное количество шаблонов отпечатков для сотрудника",
                                                        "Антифейк при сканировании"};
    QTest::newRow("PalmScanning") << 5
                                  << QStringList{"Сканирование вен ладоней",
                                                 "Включить возможность сканирования по ладони",
                                                 "Требуемое качество шаблона ладони KLV-RT",
                                                 "Требуемое качество шаблона ладони SkyHand",
                                                 "Антифейк при сканировании",
                                                 "Настройки количества шаблонов",
                                                 "Требование количества ладоней для контактных вен",
                                                 "Требование количества ладоней для бесконтактных вен",
                                                 "Минимальное количество левых ладоней",
                                                 "Минимальное количество левых ладоней",
                                                 "Минимальное количество правых ладоней",
                                                 "Минимальное количество правых ладоней",
                                                 "Максимальное количество левых ладоней",
                                                 "Максимальное количество левых ладоней",
                                                 "Максимальное количество правых ладоней",
                                                 "Максимальное количество правых ладоней"};
    QTest::newRow("FaceScanning") << 6
                                  << QStringList{"Сканирование лица",
                                                 "Включить возможность сканирования по лицу",
                                                 "Требуемое качество размытости изображения лица",
                                                 "Минимальный размер диагонали лица (px)",
                                                 "Требуемое качество цветности изображения лица",
                                                 "Показывать параметры качества"};
    QTest::newRow("PassRequests") << 7 << QStringList{"Заявки", "Подразделение по умолчанию", "Формат номера заявки"};
    QTest::newRow("Connection") << 8 << QStringList{"Настройки подключения", "Хост", "Порт", "Токен доступа"};
    QTest::newRow("StudioMobile") << 10
                                  << QStringList{"Vantorix Studio", "Отправлять фотографию", "Выполнять верификацию"};
    QTest::newRow("MobileId") << 11 << QStringList{"Vantorix ID", "Стиль мобильного приложения", "Профиль смарткарт"};
    QTest::newRow("Integration") << 12 << QStringList{"Интеграция", "Подразделение по умолчанию"};
}

void TestPages::texts()
{
    QFETCH(int, group);
    const Page page(group);
    QTEST(::texts(*page.tree), "texts");
}

void TestPages::choicesAndLimits()
{
    const Page users(2);
    const auto *sessions = inspect::input<QSpinBox>(&users.window, USER_SESSION_COUNT);
    QCOMPARE(sessions->text(), QString("Без ограничений"));
    QCOMPARE(sessions->maximum(), INT_MAX);
    QCOMPARE(inspect::input<QSpinBox>(&users.window, USER_SESSION_TIMEOUT)->text(), QString("Без ограничений"));
    QCOMPARE(inspect::input<QSpinBox>(&users.window, PASSWORD_EXPIRED)->text(), QString("0"));

    const Page mobile(10);
    const auto *photo = inspect::input<QComboBox>(&mobile.window, MOBILE_WITHOUT_PHOTO);
    QCOMPARE(photo->currentText(), QString("Да"));
    QCOMPARE(photo->itemText(1), QString("Нет"));
    QCOMPARE(inspect::input<QComboBox>(&mobile.window, MOBILE_VERIFY_FACE)->currentText(), QString("Нет"));

    const Page requests(7);
    QVERIFY(inspect::editor(&requests.window, PASS_REQUEST_SEQUENCE)->toolTip().contains("<b>${year}</b>"));
    QVERIFY(inspect::editor(&requests.window, DEFAULT_DEPARTMENT)->toolTip().isEmpty());

    const Page database(0);
    QVERIFY(inspect::input<QLineEdit>(&database.window, VERSION)->isReadOnly());
}

void TestPages::keys_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QStringList>("keys");

    // The members of nested groups count, the keys of their objects do not.
    QTest::newRow("Employees") << 1 << QStringList{"PT_CARD_VIEW_FORMAT",
                                                   "PT_EMPLOYEE_PHOTO_TYPE",
                                                   "PT_MAX_CARD_COUNT",
                                                   "PT_USE_STRICT_COMPARE_CARD_NUMBER",
                                                   "deny_equal",
                                                   "deny_sequence",
                                                   "max_len",
                                                   "min_len"};
    QTest::newRow("Connection") << 8 << QStringList{"PT_LOCKER_ACCESS_TOKEN", "PT_MOBILE_HOST", "PT_MOBILE_PORT"};
    QTest::newRow("Integration") << 12 << QStringList{"PT_INTEGRATION_DEFAULT_DEPARTMENT"};
}

void TestPages::keys()
{
    QFETCH(int, group);
    const Page page(group);
    QTEST(sorted(page.root().paramKeys()), "keys");
}

void TestPages::valuesHaveTheTypeOfTheirEditor_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("read-only") << 0 << VERSION << QVariant("5.12.3");
    QTest::newRow("spin box") << 1 << MAX_CARD_COUNT << QVariant(5);
    QTest::newRow("combo box") << 1 << CARD_VIEW_FORMAT << QVariant(2U);
    QTest::newRow("nested spin box") << 1 << json::MIN_LEN << QVariant(6);
    QTest::newRow("nested check box") << 1 << json::DENY_SEQUENCE << QVariant(true);
    QTest::newRow("password") << 2 << PASSWORD_DEF << QVariant("Qwerty!23");
    QTest::newRow("line edit") << 8 << MOBILE_HOST << QVariant("mobile.example");
    QTest::newRow("department") << 7 << DEFAULT_DEPARTMENT << QVariant(42U);
    QTest::newRow("smart-card profile") << 11 << MOBILE_SMARTCARD_PROFILE_ID << QVariant(6U);
    QTest::newRow("JSON setting has no editor") << 1 << PIN_STRENGTH << QVariant();
    QTest::newRow("key of another page") << 1 << MOBILE_HOST << QVariant();
}

void TestPages::valuesHaveTheTypeOfTheirEditor()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    installation::Stored stored;
    const Page page(group);
    QCOMPARE(page.root().paramValue(key).userType(), value.userType());
    QCOMPARE(page.root().paramValue(key), value);
}

void TestPages::editsAreCollectedOneByOne_data()
{
    installation::addPageRows();
}

void TestPages::editsAreCollectedOneByOne()
{
    QFETCH(int, group);
    installation::Stored stored;
    const Page page(group);
    const QHash<QString, QString> jsonKeys{{"Сложность пин-кода", PIN_STRENGTH},
                                           {"Сложность пароля", PASSWORD_STRENGTH},
                                           {"Настройки количества шаблонов", PALM_TEMPLATES_AMOUNT_SETTINGS}};
    for (DBParamWidget *editor : page.editors()) {
        const OBJECT_PARAMETERS before = page.tree->parameters();
        QSignalSpy changed(editor, &DBParamWidget::paramChanged);
        edit(editor);
        // A member of a nested group changes the text of the object.
        const QString key = jsonKeys.value(inspect::enclosingFrame(editor)->title(), editor->key());
        const QStringList expected = editor->isReadOnly() ? QStringList() : QStringList(key);
        QCOMPARE(changedKeys(before, page.tree->parameters()), expected);
        QCOMPARE(changed.count(), expected.count());
        if (!changed.isEmpty())
            QCOMPARE(changed.first(), QVariantList({editor->key(), editor->value()}));
    }
}

void TestPages::revertBringsTheStoredValuesBack_data()
{
    installation::addPageRows();
}

void TestPages::revertBringsTheStoredValuesBack()
{
    QFETCH(int, group);
    installation::Stored stored;
    const Page page(group);
    const OBJECT_PARAMETERS original = page.tree->parameters();

    for (int round = 0; round < 2; ++round) {
        for (DBParamWidget *editor : page.editors())
            edit(editor);
        QCOMPARE(changedKeys(original, page.tree->parameters()), group == 0 ? QStringList() : sorted(original.keys()));
        page.tree->setDefaultValue();
        QCOMPARE(page.tree->parameters(), original);
    }
}

void TestPages::pageIsFilledByProgram_data()
{
    installation::addPageRows();
}

void TestPages::pageIsFilledByProgram()
{
    QFETCH(int, group);
    installation::Stored stored;
    const Page model(group);
    StoredSettings nothing({});
    const Page page(group);

    for (DBParamWidget *editor : page.editors())
        editor->setValue(model.root().paramValue(editor->key()));
    QCOMPARE(page.tree->parameters(), model.tree->parameters());
    // What is set is stored.
    page.tree->setDefaultValue();
    QCOMPARE(page.tree->parameters(), model.tree->parameters());
}

void TestPages::acceptedEditsStay_data()
{
    installation::addPageRows();
}

void TestPages::acceptedEditsStay()
{
    QFETCH(int, group);
    installation::Stored stored;
    const Page page(group);
    for (DBParamWidget *editor : page.editors())
        edit(editor);
    const OBJECT_PARAMETERS edited = page.tree->parameters();

    page.tree->updateDefaultValue();
    QCOMPARE(page.tree->parameters(), edited);
    page.tree->setDefaultValue();
    QCOMPARE(page.tree->parameters(), edited);

    for (DBParamWidget *editor : page.editors())
        edit(editor);
    page.tree->setDefaultValue();
    QCOMPARE(page.tree->parameters(), edited);
}

void TestPages::acceptAndRevertWithoutAnEditChangeNothing_data()
{
    installation::addPageRows();
}

void TestPages::acceptAndRevertWithoutAnEditChangeNothing()
{
    QFETCH(int, group);
    installation::Stored stored;
    const Page page(group);
    const OBJECT_PARAMETERS original = page.tree->parameters();
    int changes = 0;
    for (DBParamWidget *editor : page.editors()) {
        connect(editor, &DBParamWidget::paramChanged, this, [&] { ++changes; });
        connect(editor, &DBParamWidget::commitData, this, [&] { ++changes; });
    }
    page.tree->updateDefaultValue();
    page.tree->setDefaultValue();
    QCOMPARE(page.tree->parameters(), original);
    QCOMPARE(changes, 0);
}

void TestPages::storageIsNeverWritten_data()
{
    installation::addPageRows();
}

void TestPages::storageIsNeverWritten()
{
    QFETCH(int, group);
    installation::Stored stored;
    QSignalSpy written(vantorix::LocalStorage::instance(), &vantorix::LocalStorage::dbSettingsChanged);
    {
        const Page page(group);
        for (DBParamWidget *editor : page.editors())
            edit(editor);
        page.tree->parameters();
        page.tree->updateDefaultValue();
        page.tree->setDefaultValue();
    }
    QCOMPARE(written.count(), 0);
    QCOMPARE(vantorix::LocalStorage::instance()->dbSettings(), installation::settings());
}

void TestPages::laterChangesOfTheStorageAreNotSeen_data()
{
    installation::addPageRows();
}

void TestPages::laterChangesOfTheStorageAreNotSeen()
{
    QFETCH(int, group);
    installation::Stored stored;
    const Page page(group);
    const OBJECT_PARAMETERS original = page.tree->parameters();

    StoredSettings emptied({});
    QCOMPARE(page.tree->parameters(), original);
    page.tree->setDefaultValue();
    QCOMPARE(page.tree->parameters(), original);
}

void TestPages::collectedTextsBuildTheSamePage_data()
{
    installation::addPageRows();
}

void TestPages::collectedTextsBuildTheSamePage()
{
    QFETCH(int, group);
    installation::Stored stored;
    const Page page(group);
    for (DBParamWidget *editor : page.editors())
        edit(editor);
    const OBJECT_PARAMETERS edited = page.tree->parameters();

    StoredSettings saved(edited);
    const Page reopened(group);
    QCOMPARE(reopened.tree->parameters(), edited);
}

void TestPages::dependentsFollowTheStoredValue_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("disabled");

    const QStringList restrictions{"admit_empty_password",
                                   "min_len",
                                   "max_len",
                                   "min_amount_numbers",
                                   "min_amount_punctuation_marks",
                                   "min_amount_letters",
                                   "min_amount_letters_upper_case",
                                   "min_amount_letters_lower_case",
                                   "admit_non_latin_letters"};
    const QStringList contact{"left_contact_palm_min", "right_contact_palm_min", "left_contact_palm_max",
                              "right_contact_palm_max"};
    const QStringList contactless{"left_non_contact_palm_min", "right_non_contact_palm_min",
                                  "left_non_contact_palm_max", "right_non_contact_palm_max"};
    const QStringList palm{"PT_ENROLL_PALM_QUALITY", "PT_ENROLL_SKYHAND_QUALITY", "PT_ENROLL_LIVE_PALM_DETECTION"};
    const QStringList bothPalmLimits = QStringList(contact) + contactless;

    QTest::newRow("fingerprints on") << 4 << ENABLE_FINGERPRINT_SCANNING << "1" << QStringList();
    QTest::newRow("fingerprints off") << 4 << ENABLE_FINGERPRINT_SCANNING << "0"
                                      << QStringList{"PT_ENROLL_FINGERPRINT_SEARCH_CORE",
                                                     "PT_ENROLL_FINGERPRINT_QUALITY", "PT_ENROLL_FINGERPRINT_MAX_COUNT",
                                                     "PT_ENROLL_LIVE_FINGER_DETECTION"};
    QTest::newRow("faces on") << 6 << ENABLE_FACE_SCANNING << "1" << QStringList();
    QTest::newRow("faces off") << 6 << ENABLE_FACE_SCANNING << "0"
                               << QStringList{"PT_ENROLL_FACE_BLUR_QUALITY", "PT_ENROLL_FACE_MIN_SIZE",
                                              "PT_ENROLL_FACE_COLOR_QUALITY", "PT_SHOW_FACE_QUALITY"};
    QTest::newRow("photograph sent") << 10 << MOBILE_WITHOUT_PHOTO << "0" << QStringList();
    QTest::newRow("photograph withheld") << 10 << MOBILE_WITHOUT_PHOTO << "1" << QStringList{"PT_MOBILE_VERIFY_FACE"};
    QTest::newRow("palms on, both limits") << 5 << PALM_TEMPLATES_AMOUNT_SETTINGS
                                           << "{\"enable_palm_contact_limit\": true, "
                                              "\"enable_palm_non_contact_limit\": true}"
                                           << palm;
    QTest::newRow("contact limits only") << 5 << PALM_TEMPLATES_AMOUNT_SETTINGS
                                         << "{\"enable_palm_contact_limit\": true}" << palm + contactless;
    QTest::newRow("contactless limits only")
        << 5 << PALM_TEMPLATES_AMOUNT_SETTINGS << "{\"enable_palm_non_contact_limit\": true}" << palm + contact;
    QTest::newRow("no limits") << 5 << PALM_TEMPLATES_AMOUNT_SETTINGS << "" << palm + bothPalmLimits;
    QTest::newRow("restrictions on") << 2 << PASSWORD_STRENGTH << "{\"use_password_strength\": true}" << QStringList();
    QTest::newRow("restrictions off") << 2 << PASSWORD_STRENGTH << "{\"use_password_strength\": false}" << restrictions;
    QTest::newRow("PIN lengths have no switch")
        << 1 << PASSWORD_STRENGTH << "{\"use_password_strength\": false}" << QStringList();
    QTest::newRow("page without a switch") << 8 << MOBILE_PORT << "0" << QStringList();
}

void TestPages::dependentsFollowTheStoredValue()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QFETCH(QString, text);
    QFETCH(QStringList, disabled);
    StoredSettings stored({{key, text}});
    Page page(group);
    QCOMPARE(disabledKeys(page), QStringList());

    followDependents(page);
    QCOMPARE(sorted(disabledKeys(page)), sorted(disabled));
}

void TestPages::dependentsFollowTheEditor_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("dependentCount");

    QTest::newRow("fingerprints") << 4 << ENABLE_FINGERPRINT_SCANNING << 4;
    QTest::newRow("palms") << 5 << ENABLE_PALM_SCANNING << 3;
    QTest::newRow("faces") << 6 << ENABLE_FACE_SCANNING << 4;
    QTest::newRow("photograph") << 10 << MOBILE_WITHOUT_PHOTO << 1;
    QTest::newRow("restrictions") << 2 << json::USE_PASSWORD_STRENGTH << 9;
    QTest::newRow("contact limits") << 5 << json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS << 4;
    QTest::newRow("contactless limits") << 5 << json::ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS << 4;
}

void TestPages::dependentsFollowTheEditor()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QFETCH(int, dependentCount);
    Page page(group);
    followDependents(page);
    const int before = disabledKeys(page).count();
    // Nothing is stored: every switch stands where its dependents are off, but for the photograph, which is sent.
    const int turned = key == MOBILE_WITHOUT_PHOTO ? before + dependentCount : before - dependentCount;

    edit(inspect::editor(&page.window, key));
    QCOMPARE(disabledKeys(page).count(), turned);
    edit(inspect::editor(&page.window, key));
    QCOMPARE(disabledKeys(page).count(), before);
    edit(inspect::editor(&page.window, key));
    QCOMPARE(disabledKeys(page).count(), turned);
    page.tree->setDefaultValue();
    QCOMPARE(disabledKeys(page).count(), before);
}

void TestPages::disabledEditorsAreCollectedAllTheSame()
{
    installation::Stored stored;
    const Page page(2);
    const OBJECT_PARAMETERS original = page.tree->parameters();
    page.root().setParamEnabled(page.root().paramKeys(), false);
    QCOMPARE(disabledKeys(page).count(), 16);
    QCOMPARE(page.tree->parameters(), original);
    // Captions stay readable.
    QVERIFY(inspect::editor(&page.window, PASSWORD_EXPIRED)->findChild<QLabel *>("bottomLabel")->isEnabled());
}

void TestPages::pageSpeaksTheLanguageItWasBuiltIn()
{
    installation::Stored stored;
    const Page before(2);
    {
        const InstalledTranslation english({{"QObject", "Пользователи", "Users"},
                                            {"QObject", "Сложность пароля", "Password complexity"},
                                            {"QObject", "Использовать цифры", "Use digits"},
                                            {"QObject", "Пароль по умолчанию", "Default password"},
                                            {"QObject", "Логин + пароль", "Login and password"},
                                            {"QObject", "Без ограничений", "No limit"},
                                            {"DBParamWidget", "Пользователи", "Wrong context"}});
        QCoreApplication::processEvents();
        const Page page(2);
        const QStringList texts = ::texts(*page.tree);
        QCOMPARE(texts[0], QString("Users"));
        QCOMPARE(texts[1], QString("Password complexity"));
        QCOMPARE(texts[6], QString("Use digits"));
        QCOMPARE(texts[12], QString("Default password"));
        QCOMPARE(texts[13], QString("Срок действия пароля (дней)"));
        QCOMPARE(inspect::input<QComboBox>(&page.window, IDENT_TYPE)->itemText(0), QString("Login and password"));
        QCOMPARE(inspect::input<QSpinBox>(&page.window, USER_SESSION_COUNT)->text(), QString("No limit"));

        const InstalledTranslation german({{"QObject", "Пользователи", "Benutzer"}});
        QCoreApplication::processEvents();
        const Page third(2);
        QCOMPARE(::texts(*third.tree)[0], QString("Benutzer"));
        QCOMPARE(::texts(*third.tree)[1], QString("Password complexity"));
        // A page that is there keeps its texts.
        QCOMPARE(::texts(*page.tree), texts);
        QCOMPARE(::texts(*before.tree)[0], QString("Пользователи"));
        QCOMPARE(inspect::input<QSpinBox>(&before.window, USER_SESSION_COUNT)->text(), QString("Без ограничений"));
    }
    QCoreApplication::processEvents();
    const Page after(2);
    QCOMPARE(::texts(*after.tree), ::texts(*before.tree));
    QCOMPARE(::texts(*after.tree)[0], QString("Пользователи"));
}

void TestPages::languageChangesNothingButTheTexts_data()
{
    installation::addPageRows();
}

void TestPages::languageChangesNothingButTheTexts()
{
    QFETCH(int, group);
    installation::Stored stored;
    Page page(group);
    page.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page.window));
    for (DBParamWidget *editor : page.editors())
        edit(editor);
    const OBJECT_PARAMETERS edited = page.tree->parameters();
    int changes = 0;
    for (DBParamWidget *editor : page.editors()) {
        connect(editor, &DBParamWidget::paramChanged, this, [&] { ++changes; });
        connect(editor, &DBParamWidget::commitData, this, [&] { ++changes; });
    }

    {
        const InstalledTranslation english({{"QObject", "Нет", "No"}, {"QObject", "Да", "Yes"}});
        QCoreApplication::processEvents();
        QCOMPARE(page.tree->parameters(), edited);
        // The numbers of the choices do not depend on the language.
        StoredSettings saved(edited);
        const Page english2(group);
        QCOMPARE(english2.tree->parameters(), edited);
    }
    QCoreApplication::processEvents();
    QCOMPARE(page.tree->parameters(), edited);
    QCOMPARE(changes, 0);
}

void TestPages::twoSetsOfPagesCoexist()
{
    installation::Stored stored;
    std::vector<std::unique_ptr<Page>> first = buildAll();
    const OBJECT_PARAMETERS firstValues = collectAll(first);
    QCOMPARE(firstValues.count(), 41);

    StoredSettings other({{MAX_CARD_COUNT, "9"}, {DEFAULT_DEPARTMENT, "43"}, {PIN_STRENGTH, "{\"min_len\": 5}"}});
    const std::vector<std::unique_ptr<Page>> second = buildAll();
    const OBJECT_PARAMETERS secondValues = collectAll(second);
    QCOMPARE(secondValues.count(), 41);
    QCOMPARE(secondValues["PT_MAX_CARD_COUNT"], QString("9"));
    QCOMPARE(secondValues["PT_DEFAULT_DEPARTMENT"], QString("43"));
    QCOMPARE(collectAll(first), firstValues);

    for (const std::unique_ptr<Page> &page : first) {
        for (DBParamWidget *editor : page->editors())
            edit(editor);
        page->root().setParamEnabled(page->root().paramKeys(), false);
    }
    QCOMPARE(collectAll(second), secondValues);
    for (const std::unique_ptr<Page> &page : second)
        QCOMPARE(disabledKeys(*page), QStringList());
    for (const std::unique_ptr<Page> &page : first)
        page->tree->setDefaultValue();
    QCOMPARE(collectAll(first), firstValues);

    first.clear();
    QCOMPARE(collectAll(second), secondValues);
}

void TestPages::objectsThatArriveLaterAreChosen()
{
    StoredSettings stored({{DEFAULT_DEPARTMENT, "42"}});
    const Page page(7);
    QCOMPARE(page.root().paramValue(DEFAULT_DEPARTMENT), QVariant(0U));

    StoredObjects structure("orgstructure", {{1, 0, "OT_FIRM", "Завод"}, {42, 1, "OT_DEPARTMENT", "Отдел кадров"}});
    QTRY_COMPARE(page.root().paramValue(DEFAULT_DEPARTMENT), QVariant(42U));
    QCOMPARE(inspect::input<QComboBox>(&page.window, DEFAULT_DEPARTMENT)->currentText(), QString("Отдел кадров"));
}

void TestPages::nothingIsWrittenToTheLog_data()
{
    installation::addPageRows();
}

void TestPages::nothingIsWrittenToTheLog()
{
    QFETCH(int, group);
    installation::Stored stored;
    CapturedMessages log;
    {
        Page page(group);
        page.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page.window));
        for (DBParamWidget *editor : page.editors())
            edit(editor);
        page.tree->parameters();
        page.tree->setDefaultValue();
        page.tree->updateDefaultValue();
        page.window.resize(1000, 700);
        QCoreApplication::processEvents();
    }
    QStringList texts;
    for (const QString &text : log.texts()) {
        if (!messages::isPlatformNoise(text))
            texts << text;
    }
    QCOMPARE(texts, QStringList());
}

void TestPages::debugOutputChangesNothing_data()
{
    installation::addPageRows();
}

void TestPages::debugOutputChangesNothing()
{
    QFETCH(int, group);
    installation::Stored stored;
    const OBJECT_PARAMETERS quiet = Page(group).tree->parameters();

    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    const OBJECT_PARAMETERS loud = Page(group).tree->parameters();
    QCOMPARE(loud, quiet);
    QVERIFY(debugLines(log).count() > 2);
    QCOMPARE(debugLines(log).count(), log.count());
}

QTEST_MAIN(TestPages)
#include "tst_pages.moc"
