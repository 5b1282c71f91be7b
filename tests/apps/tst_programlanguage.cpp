#include "messages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// A program in an environment of its own, with a new home unless it gets one.
class Program : public QProcess
{
public:
    Program(const QString &path, const QStringList &arguments, const QStringList &variables = {})
    {
        QProcessEnvironment environment;
        for (const char *kept : {"PATH", "LSAN_OPTIONS", "UBSAN_OPTIONS"})
            environment.insert(kept, qEnvironmentVariable(kept));
        environment.insert("HOME", m_home.path());
        for (const QString &variable : variables)
            environment.insert(variable.section('=', 0, 0), variable.section('=', 1));
        setProcessEnvironment(environment);
        setProgram(path);
        setArguments(arguments);
    }

    /// The exit status; -1 if the program crashed or did not end.
    int run()
    {
        start();
        const bool ended = waitForFinished(60000);
        out = QString::fromUtf8(readAllStandardOutput());
        err = QString::fromUtf8(readAllStandardError());
        return ended && exitStatus() == NormalExit ? exitCode() : -1;
    }

    /// Writes what the manager remembers.
    void remember(const QByteArray &lines) const
    {
        const QDir folder(m_home.filePath(".config/vxsettings"));
        QFile file(folder.filePath("vxsettings-manager.conf"));
        if (!folder.mkpath(".") || !file.open(QIODevice::WriteOnly) || file.write(lines) < 0)
            throw std::runtime_error("nothing can be remembered");
    }

    QString out;
    QString err;

private:
    QTemporaryDir m_home;
};

const QString manager = QStringLiteral(MANAGER);
const QString ctl = QStringLiteral(CTL);

/// The beginning of a help in each language.
bool isEnglish(const QString &help)
{
    return help.startsWith("Usage: ") && help.contains("Database settings of an access-control system") &&
           help.contains("Show the version of the program.");
}

bool isRussian(const QString &help)
{
    return help.contains("Настройки базы данных системы контроля доступа") &&
           help.contains("Показать версию программы.") && !help.contains("Show");
}

void copy(const QString &from, const QString &to)
{
    if (!QFileInfo(to).dir().mkpath(".") || !QFile::copy(from, to))
        throw std::runtime_error("cannot copy to " + to.toStdString());
}
} // namespace

class TestProgramLanguage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void helpIsInTheLanguage_data();
    void helpIsInTheLanguage();
    void unknownLanguageIsRefused_data();
    void unknownLanguageIsRefused();
    void theManagerBeginsAsItWasLeft();
    void refusalWithoutDisplay();
    void errorsOfTheHostAndOfTheCommandLine();
    void translationsMoveWithTheProgram_data();
    void translationsMoveWithTheProgram();
    void withoutTranslationsThereIsRussian();
};

void TestProgramLanguage::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestProgramLanguage::helpIsInTheLanguage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("variables");
    QTest::addColumn<bool>("english");

    const QStringList none;
    QTest::newRow("no locale") << none << none << false;
    QTest::newRow("locale of programmers") << none << QStringList{"LC_ALL=C"} << false;
    QTest::newRow("Russian locale") << none << QStringList{"LANG=ru_RU.UTF-8"} << false;
    QTest::newRow("English locale") << none << QStringList{"LANG=en_GB.UTF-8"} << true;
    QTest::newRow("messages in English") << none << QStringList{"LANG=ru_RU.UTF-8", "LC_MESSAGES=en_US.UTF-8"} << true;
    QTest::newRow("German locale") << none << QStringList{"LANG=de_DE.UTF-8"} << false;
    QTest::newRow("German, else English") << none << QStringList{"LANG=de_DE.UTF-8", "LANGUAGE=de:en"} << true;
    QTest::newRow("option") << QStringList{"--language", "en"} << none << true;
    QTest::newRow("option with equals sign") << QStringList{"--language=en"} << none << true;
    QTest::newRow("option against locale")
        << QStringList{"--language", "ru"} << QStringList{"LANG=en_GB.UTF-8"} << false;
}

void TestProgramLanguage::helpIsInTheLanguage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, variables);
    QFETCH(bool, english);
    for (const QString &path : {manager, ctl}) {
        Program program(path, arguments + QStringList{"--help"}, variables);
        QCOMPARE(program.run(), 0);
        QCOMPARE(program.err, QString());
        QVERIFY2(english ? isEnglish(program.out) : isRussian(program.out), qPrintable(program.out));
    }
}

void TestProgramLanguage::unknownLanguageIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("variables");
    QTest::addColumn<QString>("message");
    QTest::newRow("in Russian") << QStringList{"--language", "de"} << QStringList{}
                                << "Нет такого языка: «de». Языки: ru, en.";
    QTest::newRow("in English") << QStringList{"--language", "de"} << QStringList{"LANG=en_GB.UTF-8"}
                                << "There is no such language: “de”. The languages: ru, en.";
    QTest::newRow("empty") << QStringList{"--language="} << QStringList{} << "Нет такого языка: «». Языки: ru, en.";
}

void TestProgramLanguage::unknownLanguageIsRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, variables);
    QFETCH(QString, message);
    for (const auto &[path, task] : {std::pair(manager, "--self-test"), std::pair(ctl, "list")}) {
        Program program(path, arguments + QStringList(task), variables);
        QCOMPARE(program.run(), 2);
        QCOMPARE(program.err.section('\n', 0, 0), message);
        QCOMPARE(program.out, QString());
    }
}

void TestProgramLanguage::theManagerBeginsAsItWasLeft()
{
    Program english(manager, {"--help"});
    english.remember("[General]\nlanguage=en\n");
    QCOMPARE(english.run(), 0);
    QVERIFY2(isEnglish(english.out), qPrintable(english.out));

    Program wished(manager, {"--help", "--language", "ru"});
    wished.remember("[General]\nlanguage=en\n");
    QCOMPARE(wished.run(), 0);
    QVERIFY2(isRussian(wished.out), qPrintable(wished.out));

    Program gone(manager, {"--help"}, {"LANG=en_GB.UTF-8"});
    gone.remember("[General]\nlanguage=tlh\n");
    QCOMPARE(gone.run(), 0);
    QVERIFY2(isEnglish(gone.out), qPrintable(gone.out));
}

void TestProgramLanguage::refusalWithoutDisplay()
{
    Program russian(manager, {});
    QCOMPARE(russian.run(), 1);
    QCOMPARE(russian.err, QString("Нет дисплея. Без него доступны --render, --self-test, --help и --version.\n"));
    Program english(manager, {"--language", "en"});
    QCOMPARE(english.run(), 1);
    QCOMPARE(english.err, QString("There is no display. Without one, only --render, --self-test, --help and --version "
                                  "are available.\n"));
}

void TestProgramLanguage::errorsOfTheHostAndOfTheCommandLine()
{
    Program absent(ctl, {"--language", "en", "--database", "/nowhere/settings.db", "list"});
    QCOMPARE(absent.run(), 5);
    QCOMPARE(absent.err, QString("The database “/nowhere/settings.db” cannot be used.\nThe file does not exist.\nCheck "
                                 "the option --database, or create the database: vxsettingsctl init.\n"));
    Program misspelt(ctl, {"--language", "en", "lst"});
    QCOMPARE(misspelt.run(), 2);
    QCOMPARE(misspelt.err, QString("There is no such command: “lst”.\nFor help: vxsettingsctl --help\n"));
    Program described(ctl, {"--language", "en", "describe", "PT_PASS_REQUEST_SEQUENCE"});
    QCOMPARE(described.run(), 0);
    QVERIFY2(described.out.contains("Name:    Pass request number format"), qPrintable(described.out));
    QVERIFY2(described.out.contains("Example: REQ-${year}${month}-${zero8-num}"), qPrintable(described.out));
}

void TestProgramLanguage::translationsMoveWithTheProgram_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::newRow("plain") << "opt/settings";
    QTest::newRow("blanks and Russian letters") << "мои программы/v 1";
}

void TestProgramLanguage::translationsMoveWithTheProgram()
{
    QFETCH(QString, prefix);
    const QTemporaryDir folder;
    const QString moved = folder.filePath(prefix);
    const QString translations = QFileInfo(ctl).path() + "/../" TRANSLATIONS;
    for (const QFileInfo &file : QDir(translations).entryInfoList({"*.qm"}))
        copy(file.filePath(), moved + "/" TRANSLATIONS "/" + file.fileName());
    for (const QString &path : {manager, ctl}) {
        const QString program = moved + "/bin/" + QFileInfo(path).fileName();
        copy(path, program);
        Program english(program, {"--language", "en", "--help"});
        QCOMPARE(english.run(), 0);
        QVERIFY2(isEnglish(english.out), qPrintable(english.out));
        // A link from elsewhere, as administrators make them.
        const QString link = folder.filePath(QFileInfo(path).fileName());
        QVERIFY(QFile::link(program, link));
        Program linked(link, {"--language", "en", "--help"});
        QCOMPARE(linked.run(), 0);
        QVERIFY2(isEnglish(linked.out), qPrintable(linked.out));
    }
}

void TestProgramLanguage::withoutTranslationsThereIsRussian()
{
    const QTemporaryDir folder;
    const QString lonely = folder.filePath("bin/vxsettingsctl");
    copy(ctl, lonely);
    Program program(lonely, {"--help"}, {"LANG=en_GB.UTF-8"});
    QCOMPARE(program.run(), 0);
    QVERIFY2(isRussian(program.out), qPrintable(program.out));
    Program refused(lonely, {"--language", "en", "list"});
    QCOMPARE(refused.run(), 2);
    QCOMPARE(refused.err.section('\n', 0, 0), QString("Нет такого языка: «en». Языки: ru."));
}

QTEST_MAIN(TestProgramLanguage)
#include "tst_programlanguage.moc"
