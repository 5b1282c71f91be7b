#include "integerpattern.h"
#include "messages.h"

#include <QRegularExpression>
#include <QTest>

#include <climits>

class TestIntegerPattern : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void reads_data();
    void reads();
    void matchesWhatIsBetween_data();
    void matchesWhatIsBetween();
    void matchesUpToTheBounds_data();
    void matchesUpToTheBounds();
    void matchesNothingElse_data();
    void matchesNothingElse();
};

namespace {

bool matches(int minimum, int maximum, const QString &text)
{
    return QRegularExpression(IntegerPattern::between(minimum, maximum)).match(text).hasMatch();
}
} // namespace

void TestIntegerPattern::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestIntegerPattern::reads_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<QString>("pattern");
    QTest::newRow("one number") << 7 << 7 << "^0*(7)$";
    QTest::newRow("digits") << 2 << 8 << "^0*([2-8])$";
    QTest::newRow("one digit and two") << 2 << 18 << "^0*([2-9]|1[0-8])$";
    QTest::newRow("percent") << 0 << 100 << "^0*([0-9]|[1-9][0-9]{1}|100)$";
    QTest::newRow("nothing") << 5 << 4 << "^0*()$";
}

void TestIntegerPattern::reads()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QTEST(IntegerPattern::between(minimum, maximum), "pattern");
}

void TestIntegerPattern::matchesWhatIsBetween_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::newRow("from 0") << 0 << 1440;
    QTest::newRow("from 1") << 1 << 1000;
    QTest::newRow("from 10") << 10 << 1024;
    QTest::newRow("odd ends") << 987 << 2003;
    QTest::newRow("within ten") << 1233 << 1237;
}

/// Every number of up to four digits.
void TestIntegerPattern::matchesWhatIsBetween()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    const QRegularExpression pattern(IntegerPattern::between(minimum, maximum));
    for (int number = 0; number < 10000; ++number) {
        const bool isBetween = number >= minimum && number <= maximum;
        QVERIFY2(pattern.match(QString::number(number)).hasMatch() == isBetween, qPrintable(QString::number(number)));
    }
}

void TestIntegerPattern::matchesUpToTheBounds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isBetween");
    QTest::newRow("below") << "3" << false;
    QTest::newRow("minimum") << "4" << true;
    QTest::newRow("leading zeros") << "0004" << true;
    QTest::newRow("million") << "1000000" << true;
    QTest::newRow("nine digits") << "999999999" << true;
    QTest::newRow("ten digits") << "2000000000" << true;
    QTest::newRow("maximum") << "2147483647" << true;
    QTest::newRow("above") << "2147483648" << false;
    QTest::newRow("above in another digit") << "2147484000" << false;
    QTest::newRow("eleven digits") << "10000000000" << false;
}

void TestIntegerPattern::matchesUpToTheBounds()
{
    QFETCH(QString, text);
    QTEST(matches(4, INT_MAX, text), "isBetween");
}

void TestIntegerPattern::matchesNothingElse_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("minus") << "-1";
    QTest::newRow("plus") << "+1";
    QTest::newRow("blank before") << " 1";
    QTest::newRow("blank behind") << "1 ";
    QTest::newRow("fraction") << "1.0";
    QTest::newRow("word") << "one";
}

void TestIntegerPattern::matchesNothingElse()
{
    QFETCH(QString, text);
    QVERIFY(!matches(0, 99, text));
}

QTEST_MAIN(TestIntegerPattern)
#include "tst_integerpattern.moc"
