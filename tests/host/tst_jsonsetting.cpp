#include <host/jsonsetting.h>

#include "messages.h"

#include <QTest>

class TestJsonSetting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void state_data();
    void state();
    void merged_data();
    void merged();
};

Q_DECLARE_METATYPE(JsonSetting::State)

void TestJsonSetting::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestJsonSetting::state_data()
{
    using State = JsonSetting::State;
    QTest::addColumn<QString>("text");
    QTest::addColumn<State>("state");

    QTest::newRow("null") << QString() << State::Empty;
    QTest::newRow("blank") << " \n\t" << State::Empty;
    QTest::newRow("empty object") << "{}" << State::Object;
    QTest::newRow("empty object over lines") << "{\n}\n" << State::Object;
    QTest::newRow("one member") << R"({"a": "1"})" << State::Object;
    QTest::newRow("members of all kinds")
        << R"({"a":1,"b":[1,{"a":2}],"c":{"a":{}},"d":null,"e":true})" << State::Object;
    QTest::newRow("braces and quotes in texts") << R"({"a": "}\",{", "b": "\\"})" << State::Object;
    QTest::newRow("the same name deeper down") << R"({"a": {"a": 1}})" << State::Object;
    QTest::newRow("the same name twice") << R"({"a": 1, "b": 2, "a": 3})" << State::Unreadable;
    QTest::newRow("the same name, once escaped") << R"({"a": 1, "\u0061": 2})" << State::Unreadable;
    QTest::newRow("array") << R"(["a"])" << State::Unreadable;
    QTest::newRow("cut off") << R"({"a": "1")" << State::Unreadable;
    QTest::newRow("something behind it") << R"({"a": "1"} x)" << State::Unreadable;
    QTest::newRow("words") << "a text" << State::Unreadable;
    QTest::newRow("a zero character") << QString(QChar(0)) + "{}" << State::Unreadable;
    QTest::newRow("too deep for any reader")
        << "{\"a\":" + QString(2000, '[') + QString(2000, ']') + "}" << State::Unreadable;
}

void TestJsonSetting::state()
{
    QFETCH(QString, text);
    QTEST(JsonSetting(text).state(), "state");
}

void TestJsonSetting::merged_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("merged");

    // A page shows {"max": "8", "min": "4"}, and somebody makes a 9 of the 8.
    const QString both = "{\n    \"max\": \"9\",\n    \"min\": \"4\"\n}\n";

    QTest::newRow("as the library writes it") << "{\n    \"max\": \"8\",\n    \"min\": \"4\"\n}\n" << both;
    QTest::newRow("other members stay") << R"({"zone": {"b": [1, 2.50]}, "max": "8", "min": "4", "app": null})"
                                        << "{\n    \"app\": null,\n    \"max\": \"9\",\n    \"min\": \"4\",\n"
                                           "    \"zone\": {\"b\": [1, 2.50]}\n}\n";
    QTest::newRow("a number stays letter by letter")
        << R"({"id": 18446744073709551615, "min": 4})"
        << "{\n    \"id\": 18446744073709551615,\n    \"max\": \"9\",\n    \"min\": 4\n}\n";
    QTest::newRow("an edited number becomes a text") << R"({"max": 8, "min": 4})"
                                                     << "{\n    \"max\": \"9\",\n    \"min\": 4\n}\n";
    QTest::newRow("what an editor clamped stays as it was stored")
        << R"({"max": "8", "min": "-5"})"
        << "{\n    \"max\": \"9\",\n    \"min\": \"-5\"\n}\n";
    QTest::newRow("a member that was missing and not edited stays missing") << R"({"max": "8"})"
                                                                            << "{\n    \"max\": \"9\"\n}\n";
    QTest::newRow("texts with braces, quotes and letters of every kind")
        << R"({"note": "\"}{,: пин \u0444", "max": "8"})"
        << "{\n    \"max\": \"9\",\n    \"note\": \"\\\"}{,: пин \\u0444\"\n}\n";
    QTest::newRow("nothing stored") << QString() << both;
    QTest::newRow("an empty object") << "{}" << both;
    QTest::newRow("another text") << "max=8" << both;
    QTest::newRow("the last of two members of one name") << R"({"max": "1", "x": 1, "max": "2", "x": 2})"
                                                         << "{\n    \"max\": \"9\",\n    \"x\": 2\n}\n";
}

void TestJsonSetting::merged()
{
    QFETCH(QString, stored);
    QTEST(JsonSetting(stored).merged({{"max", "9"}}, {{"max", "8"}, {"min", "4"}}), "merged");
}

QTEST_MAIN(TestJsonSetting)
#include "tst_jsonsetting.moc"
