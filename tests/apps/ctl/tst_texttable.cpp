#include "texttable.h"

#include "messages.h"

#include <QTest>

class TestTextTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void columnsAreAligned();
    void nothingGivesNoText();
    void visible_data();
    void visible();
};

void TestTextTable::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestTextTable::columnsAreAligned()
{
    TextTable table({"A", "ДЛИННЫЙ", "C"});
    table.addRow({"четыре", "2", "three"});
    table.addRow({"1", "2", ""});
    QCOMPARE(table.text(), QString("A       ДЛИННЫЙ  C\n"
                                   "четыре  2        three\n"
                                   "1       2\n"));
    QVERIFY(table.text("> ").startsWith("> A  "));
}

void TestTextTable::nothingGivesNoText()
{
    QCOMPARE(TextTable().text(), QString());
}

void TestTextTable::visible_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("visible");
    QTest::newRow("plain") << "обычный «текст»"
                           << "обычный «текст»";
    QTest::newRow("line break") << "a\nb"
                                << "a\\nb";
    QTest::newRow("escape sequence") << "\x1b[31mred"
                                     << "\\u001b[31mred";
    QTest::newRow("null character") << QString(QChar(u'\0')) << "\\u0000";
    QTest::newRow("end of a text of its own") << QString(QChar(0x9c)) << "\\u009c";
    QTest::newRow("right to left") << QString(QChar(0x202e)) + "abc"
                                   << "\\u202eabc";
    QTest::newRow("line separator") << QString(QChar(0x2028)) << "\\u2028";
}

void TestTextTable::visible()
{
    QFETCH(QString, text);
    QTEST(TextTable::visible(text), "visible");
}

QTEST_MAIN(TestTextTable)
#include "tst_texttable.moc"
