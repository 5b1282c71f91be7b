#include <host/settingproblem.h>

#include "messages.h"
#include "translation.h"

#include <QSet>
#include <QTest>

using Kind = SettingProblem::Kind;

class TestSettingProblem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void names();
    void words();
    void notices_data();
    void notices();
};

Q_DECLARE_METATYPE(SettingProblem::Kind)

void TestSettingProblem::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingProblem::names()
{
    QSet<QString> names;
    for (int kind = 0; kind <= int(Kind::BrokenRule); ++kind)
        names.insert(SettingProblem::name(Kind(kind)));
    QCOMPARE(names.size(), 16); // no two alike
    QVERIFY(SettingProblem::name(Kind::None).isNull());
    QCOMPARE(SettingProblem::name(Kind::NotANumber), QString("not-a-number"));
    QCOMPARE(SettingProblem::name(Kind::UnknownKey), QString("unknown-key"));
    QCOMPARE(SettingProblem::name(Kind::BrokenRule), QString("broken-rule"));
}

void TestSettingProblem::words()
{
    QVERIFY(SettingProblem::words(Kind::None).isNull());
    QVERIFY(SettingProblem::words(Kind::BrokenRule).isNull());
    QCOMPARE(SettingProblem::words(Kind::UnknownChoice), QString("Такого варианта нет."));
    const InstalledTranslation english({{"SettingProblem", "Такого варианта нет.", "There is no such choice."}});
    QCOMPARE(SettingProblem::words(Kind::UnknownChoice), QString("There is no such choice."));
}

void TestSettingProblem::notices_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<bool>("isNotice");

    QTest::newRow("nothing wrong") << Kind::None << true;
    QTest::newRow("number out of range") << Kind::OutOfRange << false;
    QTest::newRow("duplicate member") << Kind::DuplicateMember << false;
    QTest::newRow("broken rule") << Kind::BrokenRule << false;
    QTest::newRow("object that is gone") << Kind::ObjectGone << false;
    QTest::newRow("object that others may see") << Kind::ObjectNotGranted << true;
    QTest::newRow("member of another program") << Kind::UnknownMember << true;
    QTest::newRow("key of another program") << Kind::UnknownKey << true;
}

void TestSettingProblem::notices()
{
    QFETCH(Kind, kind);
    QTEST(SettingProblem::isNotice(kind), "isNotice");
}

QTEST_MAIN(TestSettingProblem)
#include "tst_settingproblem.moc"
