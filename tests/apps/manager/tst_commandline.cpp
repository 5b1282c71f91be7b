#include "commandline.h"

#include "messages.h"

#include <QTest>

class TestCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nothingOpensTheWindow();
    void values();
    void actions_data();
    void actions();
    void error_data();
    void error();
    void helpNamesEverything();
};

void TestCommandLine::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCommandLine::nothingOpensTheWindow()
{
    const CommandLine commandLine({"vxsettings-manager"});
    QVERIFY(commandLine.error().isNull());
    QVERIFY(commandLine.isWindowWanted());
    QVERIFY(!commandLine.isHelpWanted() && !commandLine.isVersionWanted() && !commandLine.isSelfTestWanted());
    QVERIFY(commandLine.database().isEmpty());
    QVERIFY(commandLine.pictureFolder().isNull());
    QVERIFY(!commandLine.theme());
}

void TestCommandLine::values()
{
    const CommandLine commandLine(
        {"vxsettings-manager", "--database", "sqlite:/база.db", "--render=/tmp/x y", "--theme", "dark"});
    QCOMPARE(commandLine.error(), QString());
    QCOMPARE(commandLine.database(), QString("sqlite:/база.db"));
    QCOMPARE(commandLine.pictureFolder(), QString("/tmp/x y"));
    QCOMPARE(commandLine.theme(), std::make_optional(Theme::Kind::Dark));
}

void TestCommandLine::actions_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("window");
    QTest::addColumn<bool>("selfTest");
    QTest::newRow("self-test") << QStringList{"--self-test"} << false << true;
    QTest::newRow("pictures") << QStringList{"--render", "x"} << false << false;
    QTest::newRow("both") << QStringList{"--render", "x", "--self-test"} << false << true;
    QTest::newRow("a look alone") << QStringList{"--theme", "light"} << true << false;
}

void TestCommandLine::actions()
{
    QFETCH(QStringList, arguments);
    const CommandLine commandLine(QStringList{"vxsettings-manager"} + arguments);
    QCOMPARE(commandLine.error(), QString());
    QTEST(commandLine.isWindowWanted(), "window");
    QTEST(commandLine.isSelfTestWanted(), "selfTest");
}

void TestCommandLine::error_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("part"); // of the message
    QTest::newRow("unknown option") << QStringList{"--no-such"} << "no-such";
    QTest::newRow("value missing") << QStringList{"--database"} << "database";
    QTest::newRow("empty database") << QStringList{"--database="} << "Не указана база данных.";
    QTest::newRow("empty folder") << QStringList{"--render="} << "Не указана папка для изображений.";
    QTest::newRow("unknown look") << QStringList{"--theme", "pink"} << "Нет такого оформления: «pink».";
    QTest::newRow("argument too many") << QStringList{"x.db"} << "Лишний аргумент: «x.db».";
}

void TestCommandLine::error()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, part);
    const CommandLine commandLine(QStringList{"vxsettings-manager"} + arguments);
    QVERIFY2(commandLine.error().contains(part), qPrintable(commandLine.error()));
}

void TestCommandLine::helpNamesEverything()
{
    const QString help = CommandLine({"vxsettings-manager", "-h"}).helpText();
    for (const char *option : {"--help", "--version", "--database <URL>", "--render <ПАПКА>", "--self-test",
                               "--theme <light|dark>", "VXSETTINGS_DATABASE", "Код завершения: 0"})
        QVERIFY2(help.contains(option), option);
}

QTEST_MAIN(TestCommandLine)
#include "tst_commandline.moc"
