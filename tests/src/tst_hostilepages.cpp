#include "installation.h"
#include "loggingrules.h"
#include "messages.h"

#include <vxwidgets/vxobjectselector.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QSpinBox>

#include <algorithm>
#include <climits>

using namespace db::database;
using installation::Page;
using vantorix::OBJECT_PARAMETERS;

Q_DECLARE_METATYPE(OBJECT_PARAMETERS)

namespace {

constexpr int longestLine = 32767; // of a QLineEdit

/// Inclusive bounds of the numbers of every spin box, and of the choices of every combo box.
const QHash<QString, std::pair<int, int>> limits{
    {MAX_CARD_COUNT, {1, 20}},
    {PASSWORD_EXPIRED, {0, 9999}},
    {PASSWORD_NOTIFY, {0, 9999}},
    {USER_SESSION_COUNT, {0, INT_MAX}},
    {USER_SESSION_TIMEOUT, {0, 1440}},
    {ENROLL_FINGERPRINT_QUALITY, {0, 100}},
    {ENROLL_FINGERPRINT_MAX_COUNT, {0, 100}},
    {ENROLL_PALM_QUALITY, {0, 100}},
    {ENROLL_SKYHAND_QUALITY, {0, 100}},
    {ENROLL_FACE_BLUR_QUALITY, {0, 100}},
    {ENROLL_FACE_COLOR_QUALITY, {0, 100}},
    {ENROLL_FACE_MIN_SIZE, {10, 1024}},
    {MOBILE_PORT, {0, 65535}},
    {USE_STRICT_COMPARE_CARD_NUMBER, {0, 1}},
    {CARD_VIEW_FORMAT, {0, 2}},
    {EMPLOYEE_PHOTO_TYPE, {0, 1}},
    {IDENT_TYPE, {0, 2}},
    {ENROLL_USE_DB_SETTINGS, {0, 1}},
    {ENROLL_AUTO_CHECK_TEMPLATES_TYPE, {0, 3}},
    {ENROLL_MANUAL_CHECK_TEMPLATES_TYPE, {1, 4}},
    {ENABLE_FINGERPRINT_SCANNING, {0, 1}},
    {ENROLL_FINGERPRINT_SEARCH_CORE, {0, 1}},
    {ENROLL_LIVE_FINGER_DETECTION, {0, 1}},
    {ENABLE_PALM_SCANNING, {0, 1}},
    {ENROLL_LIVE_PALM_DETECTION, {0, 1}},
    {ENABLE_FACE_SCANNING, {0, 1}},
    {ENROLL_SHOW_FACE_QUALITY, {0, 1}},
    {MOBILE_WITHOUT_PHOTO, {0, 1}},
    {MOBILE_VERIFY_FACE, {0, 1}},
    {MOBILE_STYLE_INDEX, {0, 1}},
};

const QStringList jsonKeys{PIN_STRENGTH, PASSWORD_STRENGTH, PALM_TEMPLATES_AMOUNT_SETTINGS};

/// What a text amounts to where a number, or an object's uid, is wanted.
struct Meaning
{
    QString text;
    int number;
    unsigned int uid;
};

/// What the editor must show for the text that every key has.
QVariant expectedValue(const DBParamWidget *editor, const Meaning &meaning)
{
    const auto [lowest, highest] = limits.value(editor->key());
    const QWidget *input = editor->centralWidget();
    if (qobject_cast<const QSpinBox *>(input))
        return std::clamp(meaning.number, lowest, highest);
    if (qobject_cast<const VXObjectSelector *>(input))
        return meaning.uid;
    if (qobject_cast<const QComboBox *>(input)) {
        const bool isChoice = meaning.number >= lowest && meaning.number <= highest;
        return unsigned(isChoice ? meaning.number : lowest);
    }
    return meaning.text.left(longestLine);
}

/// The same text under every key of the storage, JSON settings left out.
QHash<QString, QString> everywhere(const QString &text)
{
    QHash<QString, QString> settings = installation::settings();
    for (auto setting = settings.begin(); setting != settings.end(); ++setting) {
        if (!jsonKeys.contains(setting.key()))
            setting.value() = text;
    }
    return settings;
}

/// Whatever was stored, a page stays what it is while it is shown, reverted and accepted.
void checkIsStable(Page &page)
{
    const OBJECT_PARAMETERS collected = page.tree->parameters();
    QCOMPARE(page.tree->parameters(), collected);
    page.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page.window));
    QCOMPARE(page.tree->parameters(), collected);
    page.tree->setDefaultValue();
    QCOMPARE(page.tree->parameters(), collected);
    page.tree->updateDefaultValue();
    page.tree->setDefaultValue();
    QCOMPARE(page.tree->parameters(), collected);
    QVERIFY(!page.window.grab().isNull());
}

/// An object of that many levels, itself included.
QString nested(int levels)
{
    return "{\"max_len\": 9, \"min_len\": " + QString(levels - 1, '[') + QString(levels - 1, ']') + '}';
}

/// "deny_equal", "deny_sequence", "max_len" and "min_len" as they are collected.
QString pinStrength(const QStringList &values)
{
    return QString("{\n"
                   "    \"deny_equal\": \"%1\",\n"
                   "    \"deny_sequence\": \"%2\",\n"
                   "    \"max_len\": \"%3\",\n"
                   "    \"min_len\": \"%4\"\n"
                   "}\n")
        .arg(values[0], values[1], values[2], values[3]);
}
} // namespace

class TestHostilePages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void textUnderEveryKey_data();
    void textUnderEveryKey();
    void textInEveryJsonSetting_data();
    void textInEveryJsonSetting();
    void pinStrengthOf_data();
    void pinStrengthOf();
    void namesOfObjects_data();
    void namesOfObjects();
    void clampedValueIsAcceptedAsShown();
    void unknownChoiceIsForgottenByAccepting();
    void textsAreShownAsText();
    void hostileTextIsLogged_data();
    void hostileTextIsLogged();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

void TestHostilePages::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestHostilePages::textUnderEveryKey_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::addColumn<unsigned int>("uid");

    struct Row
    {
        const char *name;
        QString text;
        int number;
        unsigned int uid;
    };
    const Row rows[] = {
        {"empty", "", 0, 0},
        {"null", QString(), 0, 0},
        {"blank", " ", 0, 0},
        {"blanks around a number", " 42\n", 42, 42},
        {"plus sign", "+42", 42, 42},
        {"leading zeros", "0042", 42, 42},
        {"negative", "-1", -1, 0},
        {"very negative", "-2147483648", INT_MIN, 0},
        {"largest int", "2147483647", INT_MAX, 0},
        // Conversions keep the lowest 32 bits.
        {"larger than an int", "2147483648", INT_MIN, 0},
        {"just above 32 bits", "4294967338", 42, 42},
        {"larger than 64 bits", "99999999999999999999999999", 0, 0},
        {"a thousand digits", QString(1000, '9'), 0, 0},
        {"fraction", "42.5", 0, 0},
        {"comma", "42,5", 0, 0},
        {"thousands", "1 000", 0, 0},
        {"exponent", "1e3", 0, 0},
        {"hexadecimal", "0x2A", 0, 0},
        {"digits of another script", QString::fromUtf8("\xD9\xA4\xD9\xA2"), 0, 0},
        {"not a number", "NaN", 0, 0},
        {"infinity", "inf", 0, 0},
        {"true", "true", 0, 0},
        {"words", "сорок два", 0, 0},
        {"markup", "<html><b>42</b><img src='file:///etc/passwd'/><script>alert(1)</script></html>", 0, 0},
        {"placeholders", "%1 %n %s ${year} &amp; &file", 0, 0},
        {"quotes", "'; DROP TABLE settings; --\"\\", 0, 0},
        {"lines", "a\nb\r\nc\td\f", 0, 0},
        {"zero character",
         QString::fromLatin1("4\0"
                             "2",
                             3),
         0, 0},
        {"only zero characters", QString(5, QChar(0)), 0, 0},
        {"lone surrogates", QString(QChar(0xDC00)) + QChar(0xD800), 0, 0},
        {"no characters", QString(QChar(0xFFFF)) + QChar(0xFFFE) + QChar(0xFEFF), 0, 0},
        {"right to left", QString::fromUtf8("\xE2\x80\xAE\xD7\x90\xD7\x91"), 0, 0},
        {"a letter with a thousand accents", 'a' + QString(1000, QChar(0x0301)), 0, 0},
        {"as long as a line may be", QString(32767, 'x'), 0, 0},
        {"longer than a line may be", QString(32767, 'x') + "yz", 0, 0},
        {"a megabyte", QString(1 << 20, 'x'), 0, 0},
        {"JSON object", "{\"min_len\": 42}", 0, 0},
    };
    for (const installation::PageName &page : installation::pages) {
        for (const Row &row : rows)
            QTest::addRow("%s on %s", row.name, page.name) << int(page.group) << row.text << row.number << row.uid;
    }
}

void TestHostilePages::textUnderEveryKey()
{
    QFETCH(int, group);
    QFETCH(QString, text);
    QFETCH(int, number);
    QFETCH(unsigned int, uid);
    installation::Stored installed;
    StoredSettings stored(everywhere(text));
    Page page(group);

    for (const DBParamWidget *editor : page.editors()) {
        if (!editor->key().startsWith("PT_"))
            continue;
        const QVariant value = expectedValue(editor, {text, number, uid});
        QCOMPARE(editor->value().userType(), value.userType());
        QVERIFY2(editor->value() == value, qPrintable(editor->key() + ' ' + editor->value().toString().left(100)));
        QCOMPARE(page.tree->parameters().value(editor->key()), value.toString());
    }
    checkIsStable(page);
}

void TestHostilePages::textInEveryJsonSetting_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("text");

    struct Row
    {
        const char *name;
        QString text;
    };
    const Row rows[] = {
        {"words", "min_len"},
        {"array", "[1, 2, {\"min_len\": 3}]"},
        {"number", "42"},
        {"text", "\"min_len\""},
        {"null", "null"},
        {"empty object", "{}"},
        {"cut off", "{\"min_len\": 5"},
        {"markup", "<html>{\"min_len\": 5}</html>"},
        {"zero character", QString::fromLatin1("{\"min_len\": 5}\0", 15)},
        {"byte order mark inside", "{\"min_len\": " + QString(QChar(0xFEFF)) + "5}"},
        {"lone surrogate", "{\"min_len\": \"" + QString(QChar(0xD800)) + "\"}"},
        {"other members only", "{\"history\": {\"depth\": 5}, \"\": 1}"},
        {"1,025 levels", nested(1025)},
        {"100,000 levels", nested(100000)},
        {"100,000 levels that never close", QString(100000, '[')},
        {"100,000 objects that never close", QString("{\"a\":").repeated(100000)},
        {"a megabyte of blanks", QString(1 << 20, ' ')},
        {"a megabyte of text", QString(1 << 20, 'x')},
    };
    for (const int group : {1, 2, 5}) {
        for (const Row &row : rows)
            QTest::addRow("%s in group %d", row.name, group) << group << row.text;
    }
}

void TestHostilePages::textInEveryJsonSetting()
{
    QFETCH(int, group);
    QFETCH(QString, text);
    const OBJECT_PARAMETERS expected = Page(group).tree->parameters();
    StoredSettings stored({{PIN_STRENGTH, text}, {PASSWORD_STRENGTH, text}, {PALM_TEMPLATES_AMOUNT_SETTINGS, text}});
    Page page(group);

    // As if nothing was stored.
    QCOMPARE(page.tree->parameters(), expected);
    checkIsStable(page);
}

void TestHostilePages::pinStrengthOf_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("collected");

    const QString members = "{\"deny_equal\": %1, \"deny_sequence\": %2, \"max_len\": %3, \"min_len\": %4}";
    const auto text = [&](const QString &equal, const QString &sequence, const QString &longest,
                          const QString &shortest) { return members.arg(equal, sequence, longest, shortest); };

    QTest::newRow("numbers for flags") << text("1", "0", "9", "5") << pinStrength({"true", "false", "9", "5"});
    QTest::newRow("other numbers for flags") << text("-1", "0.0", "9", "5") << pinStrength({"true", "false", "9", "5"});
    QTest::newRow("texts for flags") << text("\"true\"", "\"false\"", "9", "5")
                                     << pinStrength({"true", "false", "9", "5"});
    QTest::newRow("words for flags") << text("\"нет\"", "\"FALSE\"", "9", "5")
                                     << pinStrength({"true", "false", "9", "5"});
    QTest::newRow("empty texts for flags")
        << text("\"\"", "\"0\"", "9", "5") << pinStrength({"false", "false", "9", "5"});
    QTest::newRow("nulls") << text("null", "null", "null", "null") << pinStrength({"false", "false", "4", "0"});
    QTest::newRow("arrays") << text("[true]", "[]", "[9]", "[5]") << pinStrength({"false", "false", "4", "0"});
    QTest::newRow("objects") << text("{\"a\": 1}", "{}", "{\"max_len\": 9}", "{}")
                             << pinStrength({"false", "false", "4", "0"});
    QTest::newRow("flags for numbers") << text("true", "true", "true", "true")
                                       << pinStrength({"true", "true", "4", "1"});
    QTest::newRow("texts for numbers") << text("true", "true", "\"9\"", "\" 5 \"")
                                       << pinStrength({"true", "true", "9", "5"});
    QTest::newRow("words for numbers") << text("true", "true", "\"девять\"", "\"true\"")
                                       << pinStrength({"true", "true", "4", "0"});
    QTest::newRow("too small") << text("true", "true", "-9", "-5") << pinStrength({"true", "true", "4", "0"});
    QTest::newRow("largest") << text("true", "true", "2147483647", "2147483647")
                             << pinStrength({"true", "true", "2147483647", "2147483647"});
    QTest::newRow("just above 32 bits") << text("true", "true", "4294967305", "4294967301")
                                        << pinStrength({"true", "true", "9", "5"});
    // A JSON number is rounded, a text is not.
    QTest::newRow("fractions") << text("true", "true", "8.5", "4.4") << pinStrength({"true", "true", "9", "4"});
    QTest::newRow("fractions as text") << text("true", "true", "\"8.5\"", "\"4.4\"")
                                       << pinStrength({"true", "true", "4", "0"});
    QTest::newRow("shortest above longest")
        << text("true", "true", "5", "9") << pinStrength({"true", "true", "5", "9"});
    QTest::newRow("members twice") << "{\"min_len\": 5, \"max_len\": 8, \"min_len\": 6, \"max_len\": \"9\"}"
                                   << pinStrength({"false", "false", "9", "6"});
    QTest::newRow("a member twice, invalid last")
        << "{\"min_len\": 5, \"min_len\": null, \"max_len\": 9}" << pinStrength({"false", "false", "9", "0"});
    QTest::newRow("escaped names") << "{\"min\\u005flen\": 5, \"max_len\": 9}"
                                   << pinStrength({"false", "false", "9", "5"});
    QTest::newRow("1,000 levels") << nested(1000) << pinStrength({"false", "false", "9", "0"});
    QTest::newRow("1,024 levels") << nested(1024) << pinStrength({"false", "false", "9", "0"});
    QTest::newRow("1,025 levels") << nested(1025) << pinStrength({"false", "false", "4", "0"});
    QTest::newRow("among 100,000 others") << "{" + QString("\"min_len\": 1,").repeated(100000) + "\"max_len\": 9}"
                                          << pinStrength({"false", "false", "9", "1"});
}

void TestHostilePages::pinStrengthOf()
{
    QFETCH(QString, text);
    QFETCH(QString, collected);
    StoredSettings stored({{PIN_STRENGTH, text}});
    Page page(1);
    QCOMPARE(page.tree->parameters().value("PT_PIN_STRENGTH"), collected);
    checkIsStable(page);
}

void TestHostilePages::namesOfObjects_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("empty") << "";
    QTest::newRow("markup") << "<b>Завод</b>";
    QTest::newRow("lines") << "Завод\nвторой";
    QTest::newRow("zero character") << QString(3, QChar(0));
    QTest::newRow("a megabyte") << QString(1 << 20, 'x');
}

void TestHostilePages::namesOfObjects()
{
    QFETCH(QString, name);
    StoredSettings stored({{DEFAULT_DEPARTMENT, "42"}});
    StoredObjects structure("orgstructure", {{1, 0, "OT_SUBJECTROOT", name}, {42, 1, "OT_DEPARTMENT", name}});
    Page page(7);
    QCOMPARE(page.root().paramValue(DEFAULT_DEPARTMENT), QVariant(42U));
    checkIsStable(page);
}

void TestHostilePages::clampedValueIsAcceptedAsShown()
{
    StoredSettings stored({{MAX_CARD_COUNT, "25"}});
    const Page page(1);
    QCOMPARE(page.tree->parameters().value("PT_MAX_CARD_COUNT"), QString("20"));
    page.tree->updateDefaultValue();

    // Wider bounds would show the 25 again, had it been kept.
    auto *editor = page.editors().first();
    QCOMPARE(editor->key(), QString("PT_MAX_CARD_COUNT"));
    editor->setParamRange({1, 30});
    QCOMPARE(editor->value(), QVariant(20));
}

void TestHostilePages::unknownChoiceIsForgottenByAccepting()
{
    StoredSettings stored({{CARD_VIEW_FORMAT, "7"}});
    const Page page(1);
    QCOMPARE(page.root().paramValue(CARD_VIEW_FORMAT), QVariant(0U));
    const auto choose = [&](unsigned int number) {
        for (DBParamWidget *editor : page.editors()) {
            if (editor->key() == CARD_VIEW_FORMAT)
                editor->findChild<QComboBox *>()->setCurrentIndex(int(number));
        }
    };

    // There is no choice to return to ...
    choose(2);
    page.tree->setDefaultValue();
    QCOMPARE(page.root().paramValue(CARD_VIEW_FORMAT), QVariant(2U));
    // ... until one was accepted.
    page.tree->updateDefaultValue();
    choose(1);
    page.tree->setDefaultValue();
    QCOMPARE(page.root().paramValue(CARD_VIEW_FORMAT), QVariant(2U));
}

void TestHostilePages::textsAreShownAsText()
{
    StoredSettings stored({{MOBILE_HOST, "<b>host</b>\nname"}});
    const Page page(8);
    QCOMPARE(page.root().paramValue(MOBILE_HOST), QVariant("<b>host</b>\nname"));
    const auto *line = page.editors().first()->findChild<QLineEdit *>();
    QVERIFY(line->displayText().startsWith("<b>host</b>"));
}

void TestHostilePages::hostileTextIsLogged_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("1,024 levels") << nested(1024);
    QTest::newRow("100,000 levels") << nested(100000);
    QTest::newRow("a megabyte") << QString(1 << 20, 'x');
    QTest::newRow("zero character") << QString(3, QChar(0));
    QTest::newRow("lone surrogate") << QString(QChar(0xD800));
    QTest::newRow("placeholders") << "%s %n %1 \033[31m";
}

void TestHostilePages::hostileTextIsLogged()
{
    QFETCH(QString, text);
    StoredSettings stored({{PIN_STRENGTH, text}, {MAX_CARD_COUNT, text}});
    const OBJECT_PARAMETERS quiet = Page(1).tree->parameters();

    LoggingRules rules("gui.lib.dbsettings.debug=true");
    CapturedMessages log;
    QCOMPARE(Page(1).tree->parameters(), quiet);
    QVERIFY(log.count() > 10);
}

QTEST_MAIN(TestHostilePages)
#include "tst_hostilepages.moc"
