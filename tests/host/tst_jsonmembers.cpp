#include <host/jsonmembers.h>

#include "messages.h"

#include <QJsonDocument>
#include <QTest>

class TestJsonMembers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void noObject_data();
    void noObject();
    void written_data();
    void written();
    void namesAreSortedAndUnescaped();
    void scalar_data();
    void scalar();
    void theLastOfSeveralValuesCounts();
    void ofManyMembersTheOneThatPagesReadCounts();
    void text_data();
    void text();
    void settingATextReplacesAllValuesOfTheName();
    void aLongObjectIsReadInOneGo();
};

void TestJsonMembers::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestJsonMembers::noObject_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("null") << QString();
    QTest::newRow("blank") << " \n";
    QTest::newRow("array") << R"([{"a": 1}])";
    QTest::newRow("text") << R"("a")";
    QTest::newRow("number") << "1";
    QTest::newRow("cut off") << R"({"a": "1")";
    QTest::newRow("something behind it") << R"({"a": "1"} {})";
    QTest::newRow("comma at the end") << R"({"a": "1",})";
    QTest::newRow("single quotes") << "{'a': '1'}";
    QTest::newRow("a zero character") << QString(QChar(0)) + "{}";
    QTest::newRow("too deep") << "{\"a\":" + QString(2000, '[') + QString(2000, ']') + "}";
}

void TestJsonMembers::noObject()
{
    QFETCH(QString, text);
    QVERIFY(!JsonMembers::fromText(text));
}

void TestJsonMembers::written_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("written");
    QTest::addColumn<bool>("unique");

    QTest::newRow("missing") << R"({"b": {"a": 1}})" << QStringList() << true;
    QTest::newRow("empty object") << "{ }" << QStringList() << true;
    QTest::newRow("text") << R"({"a": "1"})" << QStringList{R"("1")"} << true;
    QTest::newRow("blanks around it") << "{\n\t\"a\" :\r\n 2.50 \n}" << QStringList{"2.50"} << true;
    QTest::newRow("a number beyond every type")
        << R"({"a":18446744073709551616})" << QStringList{"18446744073709551616"} << true;
    QTest::newRow("nested with the same name")
        << R"({"a": {"a": [1, {"a": 2}]}, "b": "a"})" << QStringList{R"({"a": [1, {"a": 2}]})"} << true;
    QTest::newRow("brackets, commas and quotes in texts")
        << R"({"x": "\"a\": 1, }", "a": "]},{[\\", "y": "\\\""})" << QStringList{R"("]},{[\\")"} << true;
    QTest::newRow("twice") << R"({"a": 1, "b": 2, "a": "3"})" << QStringList{"1", R"("3")"} << false;
    QTest::newRow("twice, once escaped") << R"({"\u0061": 1, "a": 2})" << QStringList{"1", "2"} << false;
    QTest::newRow("twice the same") << R"({"a":1,"a":1})" << QStringList{"1", "1"} << false;
}

void TestJsonMembers::written()
{
    QFETCH(QString, text);
    const auto members = JsonMembers::fromText(text);
    QVERIFY(members);
    QTEST(members->written("a"), "written");
    QTEST(members->areUnique(), "unique");
}

void TestJsonMembers::namesAreSortedAndUnescaped()
{
    const auto members = JsonMembers::fromText(R"({"b": 1, "": 2, "\"": 3, "a": 4, "b": 5, "\u0444": 6})");
    QCOMPARE(members->names(), QStringList({"", "\"", "a", "b", "ф"}));
    QVERIFY(members->contains("ф"));
    QVERIFY(!members->contains("c"));
}

void TestJsonMembers::scalar_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("scalar"); // null for none

    QTest::newRow("text") << R"("a \"b\" \u0444")"
                          << "a \"b\" ф";
    QTest::newRow("empty text") << R"("")"
                                << "";
    QTest::newRow("number") << "8"
                            << "8";
    QTest::newRow("number with a fraction") << "2.50"
                                            << "2.50";
    QTest::newRow("number with an exponent") << "1e3"
                                             << "1e3";
    QTest::newRow("true") << "true"
                          << "true";
    QTest::newRow("null") << "null" << QString();
    QTest::newRow("array") << "[1]" << QString();
    QTest::newRow("object") << R"({"a": 1})" << QString();
}

void TestJsonMembers::scalar()
{
    QFETCH(QString, value);
    QFETCH(QString, scalar);
    const auto found = JsonMembers::fromText("{\"a\": " + value + "}")->scalar("a");
    QCOMPARE(found.has_value(), !scalar.isNull());
    QCOMPARE(found.value_or(QString()), scalar);
    QVERIFY(!JsonMembers().scalar("a"));
}

void TestJsonMembers::theLastOfSeveralValuesCounts()
{
    const auto members = JsonMembers::fromText(R"({"a": [], "a": 2, "b": 1, "b": []})");
    QCOMPARE(members->scalar("a"), std::optional<QString>("2"));
    QVERIFY(!members->scalar("b"));
    QVERIFY(members->value("b").isArray());
    QVERIFY(members->value("c").isUndefined());
}

void TestJsonMembers::ofManyMembersTheOneThatPagesReadCounts()
{
    // Here the parser reads the first of the two.
    const QString text =
        R"({"n":"2","l":"8","??p":"2","ef{_":"8","":"8","lppanm_":"8","lefnt":"8","le":"8","left_?cn_in":"8",)"
        R"("left_":"8","n_min":"8","left_":"6","_in":"8","letae_p":"2","lef{_n":"8","lem":"8","co":"1"})";
    const auto read = QJsonDocument::fromJson(text.toUtf8())["left_"].toString();
    const auto members = JsonMembers::fromText(text);
    QCOMPARE(members->scalar("left_"), std::optional<QString>(read));
    QCOMPARE(members->written("left_").size(), 2);
    QCOMPARE(JsonMembers::fromText(members->text())->scalar("left_"), std::optional<QString>(read));
}

void TestJsonMembers::text_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("rewritten");

    QTest::newRow("empty") << "{}"
                           << "{\n}\n";
    QTest::newRow("sorted, a member a line, letter by letter")
        << R"({"b":{"y": 1,"x":2.0}, "a":"\u0444"})"
        << "{\n    \"a\": \"\\u0444\",\n    \"b\": {\"y\": 1,\"x\":2.0}\n}\n";
    QTest::newRow("the last of several") << R"({"a": 1, "b": 2, "a": 3})"
                                         << "{\n    \"a\": 3,\n    \"b\": 2\n}\n";
    QTest::newRow("as the settings library writes it") << "{\n    \"a\": \"1\",\n    \"b\": \"2\"\n}\n"
                                                       << "{\n    \"a\": \"1\",\n    \"b\": \"2\"\n}\n";
}

void TestJsonMembers::text()
{
    QFETCH(QString, text);
    QTEST(JsonMembers::fromText(text)->text(), "rewritten");
}

void TestJsonMembers::settingATextReplacesAllValuesOfTheName()
{
    auto members = JsonMembers::fromText(R"({"a": 1, "b": 2, "a": 3})");
    members->setText("a", "\"quoted\"\n");
    members->setText("c", "");
    QVERIFY(members->areUnique());
    QCOMPARE(members->text(), QString("{\n    \"a\": \"\\\"quoted\\\"\\n\",\n    \"b\": 2,\n    \"c\": \"\"\n}\n"));
}

void TestJsonMembers::aLongObjectIsReadInOneGo()
{
    constexpr int count = 50000;
    QStringList written;
    for (int i = 0; i < count; ++i)
        written << QStringLiteral("\"m%1\": [\"%2\"]").arg(i).arg(i);
    const auto members = JsonMembers::fromText('{' + written.join(',') + '}');
    QCOMPARE(members->names().size(), count);
    QCOMPARE(members->written("m49999"), QStringList{R"(["49999"])"});
}

QTEST_MAIN(TestJsonMembers)
#include "tst_jsonmembers.moc"
