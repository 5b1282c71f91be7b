#include "commandtable.h"

#include "messages.h"

#include <QSet>
#include <QTest>

class TestCommandTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyCommandIsThereOnce();
    void everyOptionIsThereOnce();
    void commandsAreComplete_data();
    void commandsAreComplete();
    void unknownNames_data();
    void unknownNames();
    void helpTellsEverything();
    void helpOfACommandTellsItsOwnOptions();
};

void TestCommandTable::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCommandTable::everyCommandIsThereOnce()
{
    QStringList names;
    for (const Command &command : CommandTable::commands())
        names.append(command.name);
    const QStringList expected{"list",   "get",  "set",     "describe", "check", "export",
                               "import", "diff", "history", "restore",  "init",  "watch"};
    QCOMPARE(names, expected);
}

void TestCommandTable::everyOptionIsThereOnce()
{
    QSet<QString> names;
    Options options;
    for (const OptionDescription &row : CommandTable::options()) {
        names.insert(row.name);
        QVERIFY2(!options.testFlag(row.option), row.name);
        options |= row.option;
        QVERIFY2(QByteArray(row.text).size() > 0, row.name);
        QCOMPARE(CommandTable::name(row.option), QString(row.name));
    }
    QCOMPARE(names.size(), CommandTable::options().size());
    for (const Command &command : CommandTable::commands())
        QVERIFY2((options & command.options) == command.options, command.name);
}

void TestCommandTable::commandsAreComplete_data()
{
    QTest::addColumn<QString>("name");
    for (const Command &command : CommandTable::commands())
        QTest::newRow(command.name) << command.name;
}

void TestCommandTable::commandsAreComplete()
{
    QFETCH(QString, name);
    const Command *command = CommandTable::find(name);
    QVERIFY(command);
    QCOMPARE(QString(command->name), name);
    QVERIFY(command->run);
    QVERIFY(command->count.least <= command->count.most);
    QCOMPARE(command->arguments != nullptr, command->count.most > 0);
    QVERIFY2(!(command->options & commonOptions), "common options need not be named");
    QVERIFY(QString(command->summary).endsWith('.'));
}

void TestCommandTable::unknownNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("another word") << "destroy";
    QTest::newRow("upper case") << "List";
    QTest::newRow("beginning of a name") << "li";
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
}

void TestCommandTable::unknownNames()
{
    QFETCH(QString, name);
    QVERIFY(!CommandTable::find(name));
}

void TestCommandTable::helpTellsEverything()
{
    const QString help = CommandTable::help();
    for (const Command &command : CommandTable::commands()) {
        QVERIFY2(help.contains(QStringLiteral("\n  %1 ").arg(command.name)), command.name);
        QVERIFY2(help.contains(CommandTable::tr(command.summary)), command.name);
    }
    for (const OptionDescription &row : CommandTable::options()) {
        QVERIFY2(help.contains(QStringLiteral("--%1").arg(row.name)), row.name);
        QVERIFY2(help.contains(CommandTable::tr(row.text)), row.name);
    }
    for (const EnvironmentVariable &row : CommandTable::environment())
        QVERIFY2(help.contains(CommandTable::tr(row.text)), row.names);
    for (int status = 0; status <= 5; ++status)
        QVERIFY2(help.contains(QStringLiteral("\n  %1  ").arg(status)), qPrintable(QString::number(status)));
    for (const QString &line : help.split('\n'))
        QVERIFY2(line.size() <= 130, qPrintable(line));
}

void TestCommandTable::helpOfACommandTellsItsOwnOptions()
{
    const QString help = CommandTable::help(*CommandTable::find("set"));
    for (const char *part : {"[ПАРАМЕТРЫ] set КЛЮЧ[.ПОЛЕ]=ЗНАЧЕНИЕ…\n", "-h, --help", "--database <URL>", "--json",
                             "--dry-run", "--stdin", "остаётся в истории команд", "Коды завершения"})
        QVERIFY2(help.contains(part), part);
    for (const char *part : {"--repair", "--sample", "--with-secrets"})
        QVERIFY2(!help.contains(part), part);
}

QTEST_MAIN(TestCommandTable)
#include "tst_commandtable.moc"
