#include "nastytexts.h"

#include <QRandomGenerator>
#include <QSet>
#include <QStringList>

#include <functional>

namespace {

using Texts = QVector<QByteArray>;

/// A literal with its zero characters.
template <size_t size>
QByteArray bytes(const char (&literal)[size])
{
    return QByteArray(literal, size - 1);
}

// clang-format off

/// For every kind.
Texts anywhere()
{
    return {
        // Nothing and blanks
        "", " ", "  ", "\t", "\n", "\r\n", "\v\f", "\xC2\xA0", "\xE2\x80\x83", "\xE3\x80\x80", "\xE2\x80\x8B",
        "\xEF\xBB\xBF", "\xE2\x80\xA8", "\xE2\x80\xA9",
        // Control characters
        bytes("\0"), bytes("1\0"), bytes("\0" "1"), bytes("a\0b"), "\x01", "\x07", "\x1B[31m", "\x7F", "\xC2\x85",
        "\xC2\x9B" "31m", "a\rb", "a\bb",
        // Direction, joining, combining, other planes
        "\xE2\x80\xAE" "42", "\xE2\x80\xAB" "abc\xE2\x80\xAC", "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D", "\xD9\x85\xD8\xB1",
        "e\xCC\x81", "\xF0\x9F\x94\x91", "\xF0\x9F\x91\xA8\xE2\x80\x8D\xF0\x9F\x91\xA9", "\xEF\xBF\xBF", "\xEF\xBF\xBD",
        "\xEE\x80\x80", "\xF4\x8F\xBF\xBF", "Порт", "ёж", "\xC7\x85", "\xC4\xB0\xC4\xB1",
        // No valid UTF-8: surrogates, too long, cut off, out of range
        "\xED\xA0\x80", "\xED\xB0\x80", "\xED\xA0\xBD\xED\xB4\x91", "\xC0\x80", "\xC3", "\xF0\x9F\x94", "\xFF",
        "\xFE\xFF", "\xF5\x80\x80\x80", "1\xFF" "2",
        // Of other languages
        "<b>bold</b>", "<img src=x onerror=alert(1)>", "&lt;&amp;", "%1 %2 %n", "%s%n%x", "'; DROP TABLE settings; --",
        "\"quoted\"", "back\\slash", "\\n", "\\u0031", "$(id)", "`id`", "../../etc/passwd", "a=b", "&Mnemonic", "${num}",
        // Words that stand for values somewhere
        "true", "false", "TRUE", "yes", "no", "да", "нет", "on", "null", "undefined", "NaN", "inf", "-inf", "None",
        "[]", "{}", "\"\"",
        // Long
        QByteArray(32767, 'x'), QByteArray(32768, 'x'), QByteArray(1024 * 1024, '7'), QByteArray("ж").repeated(20000),
        QByteArray("\xF0\x9F\x94\x91").repeated(16384), QByteArray("a\n").repeated(5000),
    };
}

/// For whatever is read as a number: a range, a choice, a uid, a flag.
Texts numerals()
{
    return {
        "0", "1", "-1", "+1", "-0", "00", "01", "0000000000000000000000001", " 1", "1 ", " 1 ", "1\n", "\t7", "- 1",
        "--1", "1-", "2", "4", "5", "20", "21", "25", "99", "100", "101", "1440", "9999", "10000", "65535", "65536",
        "1,000", "1 000", "1'000", "1_000", "1.0", "1.5", "-1.5", ".5", "5.", "1e0", "1e3", "1E3", "1e-3", "1e400",
        "0x10", "0b1", "010", "1/2", "2147483647", "2147483648", "-2147483648", "-2147483649", "4294967295",
        "4294967296", "4294967297", "9223372036854775807", "9223372036854775808", "-9223372036854775809",
        "18446744073709551616", "99999999999999999999999999999999", "\xD9\xA3", "\xE0\xA5\xA9", "\xEF\xBC\x91",
        "\xC2\xB2", "\xE2\x85\xA7", "\xE2\x88\x92" "1", "1a", "a1", "12abc", "1;2", "7 8", "1%", "№1",
    };
}

/// Values of a member that are no JSON texts, and texts that only JSON can write.
Texts written()
{
    return {
        "null", "true", "false", "0", "1", "-1", "-0", "2", "8", "0.5", "4.5", "-4.5", "1e0", "1E+2", "1e-7", "1e308",
        "2147483647", "2147483648", "-2147483649", "4294967296", "9007199254740993", "18446744073709551616", "[]",
        "[1]", "[\"8\"]", "[[[]]]", "{}", "{\"a\":1}", "{\"min_len\":\"5\"}", "\"\\u0000\"", "\"\\ud800\"",
        "\"\\udc00\\ud800\"", "\"\\ud83d\\udd11\"", "\"\\/\"", "\"\\b\\f\"", QByteArray(200, '[') + QByteArray(200, ']'),
    };
}

/// Whole JSON settings; @p name and @p other are quoted names of members.
Texts writtenObjects(const QByteArray &name, const QByteArray &other)
{
    return {
        // No objects
        "{", "}", "{}{}", "{} x", "{]", "[{}]", "[", "1", "\"{}\"", "\"text\"", "{1: 2}", "{a: 1}", "{'a': 1}",
        "{\"a\"}", "{\"a\": }", "{\"a\": 1,}", "{,}", "{\"a\": 1 \"b\": 2}", "// {}", "/**/ {}", "{\"a\": -}",
        "{\"a\": 01}", "{\"a\": .5}", "{\"a\": \"\\x\"}", '{' + name + ": \"5\" // comment\n}", QByteArray(100000, '{'),
        "{\"too deep\": " + QByteArray(3000, '[') + QByteArray(3000, ']') + '}', bytes("{}\0"), bytes("\0{}"),
        // Odd objects
        "{ }", " {} ", "\xEF\xBB\xBF{" + name + ": \"5\"}", '{' + name + ":\r\n\"5\"\t}", "{\"a\": 1e999}",
        "{\"a\": \"\n\"}", bytes("{\"a\": \"\0\"}"), "{\"a\": \"\xFF\"}", "{\"\xED\xA0\x80\": 1}", "{\"\": 1}",
        "{\"\\u0000\": 1}", "{\"\\ud800\": 1}", "{\"a\\\"b\": \"}\"}",
        "{\"deep\": " + QByteArray(1000, '[') + QByteArray(1000, ']') + '}',
        // Odd members
        '{' + name + ": \"5\"}", '{' + name + ": 5}", '{' + name.toUpper() + ": \"5\"}",
        '{' + name + ": {" + name + ": \"5\"}}", '{' + name + ": \"" + QByteArray(100000, '9') + "\"}",
        '{' + name + ": \"5\", \"zone\": [1, 2.50, {\"x\": null}]}",
        // Names that occur more than once
        '{' + name + ": \"5\", " + name + ": \"6\"}", '{' + name + ": \"5\", " + other + ": true, " + name + ": null}",
        "{\"\": 1, \"\": 2}", "{\"zone\": 1, \"zone\": 2}",
    };
}

// clang-format on

Texts captions()
{
    return {"Десятичный",      "десятичный",    "Да",      "Нет", "Вкл.", "Выкл.", "По всей базе", "0 (Десятичный)",
            "Без ограничений", "Прямоугольная", "corvalen"};
}

Texts lineTexts()
{
    return {"${year}${month}", "${",    "}",      "${unknown}", "localhost:80",
            "http://host/",    "[::1]", "host\t", " host ",     "РОГ-${zero8-num}"};
}

/// As a JSON string; bytes that are no UTF-8 stay.
QByteArray quoted(const QByteArray &text)
{
    QByteArray quoted = "\"";
    for (const char c : text) {
        if (uchar(c) < 0x20)
            quoted += "\\u" + QByteArray::number(uchar(c), 16).rightJustified(4, '0');
        else if (c == '"' || c == '\\')
            quoted += QByteArray("\\") + c;
        else
            quoted += c;
    }
    return quoted + '"';
}

QByteArray oneOf(const Texts &texts, QRandomGenerator &random)
{
    return texts.at(random.bounded(texts.size())).left(300);
}

/// What a broken program, a wrong codec or a hurried person might make of the texts that are known.
QByteArray invented(const Texts &known, QRandomGenerator &random)
{
    QByteArray text = oneOf(known, random);
    const int position = random.bounded(text.size() + 1);
    switch (random.bounded(7)) {
    case 0:
        return text + oneOf(known, random);
    case 1:
        return text.insert(position, char(random.bounded(256)));
    case 2:
        return text.remove(position, 1 + random.bounded(3));
    case 3:
        return QByteArray::number(qint64(random.generate64()) >> random.bounded(64));
    case 4:
        return text.repeated(1 + random.bounded(40));
    case 5:
        return QByteArray::number(random.generateDouble() * 1e6, 'g', random.bounded(1, 17)) + text.left(2);
    default:
        return QString(QChar(random.bounded(1, 0xD800))).toUtf8() + text;
    }
}

using Invention = std::function<QByteArray(const Texts &known, QRandomGenerator &random)>;

/// The first @c count different ones.
Texts filled(const Texts &byHand, QRandomGenerator &random, const Invention &invent = invented)
{
    Texts texts;
    QSet<QByteArray> seen;
    for (int i = 0; texts.size() < nastytexts::count; ++i) {
        const QByteArray text = i < byHand.size() ? byHand.at(i) : invent(byHand, random);
        if (!seen.contains(text))
            texts.append(text);
        seen.insert(text);
    }
    return texts;
}

Texts members(const Texts &texts, QRandomGenerator &random)
{
    Texts values = written();
    for (const QByteArray &text : texts)
        values.append(quoted(text));
    return filled(values, random,
                  [&texts](const Texts &, QRandomGenerator &random_) { return quoted(invented(texts, random_)); });
}

/// Members that belong there and others, some of them several times.
QByteArray inventedObject(const QStringList &names, const Texts &values, QRandomGenerator &random)
{
    QByteArrayList members;
    for (int count = random.bounded(24); members.size() < count;) {
        const bool isKnown = random.bounded(4) > 0;
        const QString name = isKnown ? names.at(random.bounded(names.size())) : QString::number(random.bounded(30));
        members.append(quoted(name.toUtf8()) + ": " + values.at(random.bounded(values.size())).left(500));
    }
    return '{' + members.join(", ") + '}';
}
} // namespace

QVector<QByteArray> nastytexts::numbers(QRandomGenerator &random)
{
    return filled(numerals() + anywhere(), random);
}

QVector<QByteArray> nastytexts::choices(QRandomGenerator &random)
{
    return filled(captions() + numerals() + anywhere(), random);
}

QVector<QByteArray> nastytexts::references(QRandomGenerator &random)
{
    return filled(numerals() + anywhere(), random);
}

QVector<QByteArray> nastytexts::lines(QRandomGenerator &random)
{
    return filled(anywhere() + lineTexts(), random);
}

QVector<QByteArray> nastytexts::objects(QRandomGenerator &random, const QStringList &names)
{
    const Texts byHand = writtenObjects(quoted(names.first().toUtf8()), quoted(names.last().toUtf8())) + anywhere();
    const Texts values = numberMembers(random);
    return filled(byHand, random,
                  [&](const Texts &, QRandomGenerator &random_) { return inventedObject(names, values, random_); });
}

QVector<QByteArray> nastytexts::flagMembers(QRandomGenerator &random)
{
    return members(numerals().mid(0, 30) + anywhere(), random);
}

QVector<QByteArray> nastytexts::numberMembers(QRandomGenerator &random)
{
    return members(numerals() + anywhere(), random);
}
