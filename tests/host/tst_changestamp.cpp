#include <host/changestamp.h>

#include "messages.h"

#include <QTest>

#include <pwd.h>
#include <unistd.h>

class TestChangeStamp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nowTellsWhoChangesSomething();
    void anAccountWithoutANameHasItsNumber();
    void columnsHoldEverything();
    void columnsMayBeEmpty();
};

void TestChangeStamp::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestChangeStamp::nowTellsWhoChangesSomething()
{
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const ChangeStamp stamp = ChangeStamp::now();
    QVERIFY(before <= stamp.at && stamp.at <= QDateTime::currentDateTimeUtc());
    QCOMPARE(stamp.by, QString::fromLocal8Bit(getpwuid(geteuid())->pw_name));
    QCOMPARE(stamp.workstation, QSysInfo::machineHostName());
    QCOMPARE(stamp.program, QString("tst_changestamp"));
}

void TestChangeStamp::anAccountWithoutANameHasItsNumber()
{
    constexpr uid_t nameless = 424242;
    if (geteuid() != 0 || getpwuid(nameless))
        QSKIP("Only root can become somebody who has no name");
    QCOMPARE(seteuid(nameless), 0);
    const ChangeStamp stamp = ChangeStamp::now();
    QCOMPARE(seteuid(0), 0);
    QCOMPARE(stamp.by, QString("424242"));
}

void TestChangeStamp::columnsHoldEverything()
{
    const ChangeStamp stamp{QDateTime({2026, 3, 1}, {12, 30, 15, 7}, Qt::UTC), "anna", "desk-4", "setup"};
    const QVariantList columns{"2026-03-01T12:30:15.007Z", "anna", "desk-4", "setup"};
    QCOMPARE(stamp.toColumns(), columns);
    const ChangeStamp read = ChangeStamp::fromColumns(columns);
    QCOMPARE(read.at, stamp.at);
    QCOMPARE(read.by, stamp.by);
    QCOMPARE(read.workstation, stamp.workstation);
    QCOMPARE(read.program, stamp.program);
}

void TestChangeStamp::columnsMayBeEmpty()
{
    const ChangeStamp read = ChangeStamp::fromColumns({{}, {}, {}, {}});
    QVERIFY(!read.at.isValid());
    QVERIFY(read.by.isNull() && read.workstation.isNull() && read.program.isNull());
}

QTEST_MAIN(TestChangeStamp)
#include "tst_changestamp.moc"
