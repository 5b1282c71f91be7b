#include "commandline.h"

#include "messages.h"

#include <QTest>

class TestCtlCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void optionsStandAnywhere_data();
    void optionsStandAnywhere();
    void argumentsWithDashes();
    void error_data();
    void error();
    void errorsTellNoArgument_data();
    void errorsTellNoArgument();
};

void TestCtlCommandLine::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCtlCommandLine::optionsStandAnywhere_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("before the command") << QStringList{"--json", "--database", "a.db", "get", "KEY"};
    QTest::newRow("between") << QStringList{"get", "--json", "--database=a.db", "KEY"};
    QTest::newRow("behind") << QStringList{"get", "KEY", "--database", "a.db", "--json"};
}

void TestCtlCommandLine::optionsStandAnywhere()
{
    QFETCH(QStringList, arguments);
    const CommandLine commandLine(QStringList{"vxsettingsctl"} + arguments);
    QCOMPARE(commandLine.error(), QString());
    QCOMPARE(QString(commandLine.command()->name), QString("get"));
    QCOMPARE(commandLine.arguments(), QStringList{"KEY"});
    QCOMPARE(commandLine.database(), QString("a.db"));
    QVERIFY(commandLine.isSet(Option::Json));
    QVERIFY(!commandLine.isSet(Option::DryRun));
}

void TestCtlCommandLine::argumentsWithDashes()
{
    const CommandLine commandLine({"vxsettingsctl", "export", "--", "--json"});
    QCOMPARE(commandLine.error(), QString());
    QCOMPARE(commandLine.arguments(), QStringList{"--json"});
    QVERIFY(!commandLine.isSet(Option::Json));
}

void TestCtlCommandLine::error_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("part"); // of the message
    QTest::newRow("nothing") << QStringList{} << "Не указана команда.";
    QTest::newRow("only options") << QStringList{"--json"} << "Не указана команда.";
    QTest::newRow("unknown command") << QStringList{"destroy"} << "Нет такой команды: «destroy».";
    QTest::newRow("unknown option") << QStringList{"list", "--no-such"} << "no-such";
    QTest::newRow("value missing") << QStringList{"list", "--database"} << "database";
    QTest::newRow("empty database") << QStringList{"list", "--database="} << "Не указана база данных.";
    QTest::newRow("option of another command")
        << QStringList{"list", "--repair"} << "У команды «list» нет параметра «--repair».";
    QTest::newRow("argument missing") << QStringList{"get"} << "Команде «get» не хватает аргументов.";
    QTest::newRow("nothing to set") << QStringList{"set"} << "Команде «set» не хватает аргументов.";
    QTest::newRow("argument too many") << QStringList{"list", "users", "x"} << "слишком много аргументов";
    QTest::newRow("no argument wanted") << QStringList{"check", "x"} << "слишком много аргументов";
    QTest::newRow("bytes that are no text")
        << QStringList{"set", QString("A=") + QChar(QChar::ReplacementCharacter)} << "не в кодировке UTF-8";
}

void TestCtlCommandLine::error()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, part);
    const CommandLine commandLine(QStringList{"vxsettingsctl"} + arguments);
    QVERIFY2(commandLine.error().contains(part), qPrintable(commandLine.error()));
}

void TestCtlCommandLine::errorsTellNoArgument_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("value behind a key") << QStringList{"get", "PT_PASSWORD_DEF", "Geheim"};
    QTest::newRow("option of another command") << QStringList{"set", "PT_PASSWORD_DEF=Geheim", "--repair"};
}

void TestCtlCommandLine::errorsTellNoArgument()
{
    QFETCH(QStringList, arguments);
    const QString error = CommandLine(QStringList{"vxsettingsctl"} + arguments).error();
    QVERIFY(!error.isNull());
    QVERIFY2(!error.contains("Geheim"), qPrintable(error));
}

QTEST_MAIN(TestCtlCommandLine)
#include "tst_ctlcommandline.moc"
