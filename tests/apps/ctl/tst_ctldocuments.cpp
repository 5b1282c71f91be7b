#include "childprocess.h"
#include "commandtable.h"
#include "messages.h"
#include "terminal.h"

#include <host/translations.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <sys/ioctl.h>

namespace {

struct Shell
{
    const char *name;
    const char *file; ///< with the completion, below SHARE
};

// clang-format off
constexpr Shell shells[] = {
    {"bash", "/bash-completion/completions/vxsettingsctl"},
    {"zsh",  "/zsh/site-functions/_vxsettingsctl"},
    {"fish", "/fish/vendor_completions.d/vxsettingsctl.fish"},
};
// clang-format on

struct Manual
{
    const char *language;
    const char *path;
};

constexpr Manual manuals[] = {
    {"en", SHARE "/man/man1/vxsettingsctl.1"},
    {"ru", SHARE "/man/ru/man1/vxsettingsctl.1"},
};

void addManualRows()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("path");
    for (const Manual &manual : manuals)
        QTest::newRow(manual.language) << manual.language << manual.path;
}

QString path(const Shell &shell)
{
    return QStringLiteral(SHARE) + QLatin1String(shell.file);
}

QString content(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("no file " + path.toStdString());
    return QString::fromUtf8(file.readAll());
}

struct Output
{
    int status;
    QString out;
    QString err;
};

Output run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("MANWIDTH", "500"); // no sentence is wrapped
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished())
        throw std::runtime_error("cannot run " + program.toStdString());
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

/// A shell that somebody types in. It has the completions, and instead of the program a function that tells what the
/// program would have been given, in a folder with two files.
class TypedShell : public ChildProcess
{
public:
    explicit TypedShell(const Shell &shell)
    {
        write("settings.json", {});
        write("a b.json", {});
        write(".bashrc", ". '" + path(shell) + "'\n" + stub);
        write(".zshrc", "fpath=('" SHARE "/zsh/site-functions' $fpath); autoload -U compinit; compinit -u -D\n" + stub);
        QProcessEnvironment environment;
        environment.insert("PATH", qEnvironmentVariable("PATH"));
        environment.insert("HOME", m_folder.path());
        environment.insert("LC_ALL", "C.UTF-8");
        environment.insert("TERM", "dumb");
        setProcessEnvironment(environment);
        setWorkingDirectory(m_folder.path());
        setStandardInputFile(m_terminal.name());
        setStandardOutputFile(m_terminal.name());
        setStandardErrorFile(m_terminal.name());
        start(shell.name, {"-i"});
    }
    ~TypedShell() override
    {
        kill();
        waitForFinished();
    }

    bool isReady() { return m_terminal.screen().contains("ready>"); }
    void type(const QByteArray &keys) { m_terminal.type(keys); }
    QString screen() { return m_terminal.screen(); }
    /// Null as long as nothing was run.
    QString whatWasRun()
    {
        const QString screen = m_terminal.screen();
        const int start = screen.indexOf("<<");
        const int end = screen.indexOf(">>");
        return end < 0 ? QString() : screen.mid(start + 2, end - start - 2);
    }

protected:
    void prepareChild() override
    {
        setsid();
        ioctl(STDIN_FILENO, TIOCSCTTY, 0);
    }

private:
    void write(const QString &name, const QString &text) const
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
            throw std::runtime_error("no start file");
    }

    inline static const QString stub =
        "PS1='ready>'\nvxsettingsctl() { printf '<''<'; printf '%s|' \"$@\"; printf '>''>'; }\n";

    QTemporaryDir m_folder;
    Terminal m_terminal;
};
} // namespace

class TestCtlDocuments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void completionsAgreeWithTheHelp_data();
    void completionsAgreeWithTheHelp();
    void theManualPageAgreesWithTheHelp_data();
    void theManualPageAgreesWithTheHelp();
    void shellsAcceptTheirScript_data();
    void shellsAcceptTheirScript();
    void theFormatterHasNoComplaints_data();
    void theFormatterHasNoComplaints();
    void typing_data();
    void typing();
    void choicesAreListedWithTheirCaptions_data();
    void choicesAreListedWithTheirCaptions();
    void fishOffers_data();
    void fishOffers();
};

void TestCtlDocuments::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestCtlDocuments::completionsAgreeWithTheHelp_data()
{
    QTest::addColumn<QString>("path");
    for (const Shell &shell : shells)
        QTest::newRow(shell.name) << path(shell);
}

void TestCtlDocuments::completionsAgreeWithTheHelp()
{
    QFETCH(QString, path);
    const QString script = content(path);
    for (const Command &command : CommandTable::commands()) {
        QVERIFY2(script.contains(QString("%1\t%2").arg(command.name, CommandTable::tr(command.summary))), command.name);
        const int start = script.indexOf(QString("'options %1'").arg(command.name));
        QVERIFY2(start > 0, command.name);
        const QString offered = script.mid(start, script.indexOf("options ", start + 9) - start);
        for (const OptionDescription &row : CommandTable::options()) {
            const bool isExpected = (commonOptions | command.options).testFlag(row.option);
            const QString line = QString("--%1\t%2").arg(row.name, CommandTable::tr(row.text));
            QVERIFY2(offered.contains(line) == isExpected, qPrintable(command.name + (' ' + line)));
        }
    }
    for (const char *line : {"users\tПользователи", "PT_PIN_STRENGTH.min_len=\t", "PT_MOBILE_PORT@\tПорт"})
        QVERIFY2(script.contains(line), line);
}

void TestCtlDocuments::theManualPageAgreesWithTheHelp_data()
{
    addManualRows();
}

void TestCtlDocuments::theManualPageAgreesWithTheHelp()
{
    QFETCH(QString, language);
    QFETCH(QString, path);
    Translations translations("vxsettingsctl");
    QVERIFY(translations.setLanguage(language));
    const Output page = run("man", {"--local-file", "--encoding=UTF-8", path});
    QCOMPARE(page.status, 0);
    const QString text = page.out.simplified();
    const auto tells = [&text](const QString &part) { return text.contains(part.simplified()); };
    QVERIFY(tells("vxsettingsctl - " + CommandTable::purpose()));
    QVERIFY(tells("vxsettingsctl " + CommandTable::synopsis()));
    for (const Command &command : CommandTable::commands()) {
        const QString summary = CommandTable::synopsis(command) + ' ' + CommandTable::tr(command.summary);
        QVERIFY2(tells(summary), qPrintable(summary));
        QVERIFY2(!command.details || tells(CommandTable::tr(command.details)), command.name);
    }
    for (const OptionDescription &row : CommandTable::options())
        QVERIFY2(tells(CommandTable::synopsis(row) + ' ' + CommandTable::tr(row.text)), row.name);
    for (const EnvironmentVariable &row : CommandTable::environment())
        QVERIFY2(tells(row.names + (' ' + CommandTable::tr(row.text))), row.names);
    for (const ExitStatusText &row : exitStatusTexts)
        QVERIFY2(tells(QString::number(row.status) + ' ' + QCoreApplication::translate("ExitStatus", row.text)),
                 row.text);
}

void TestCtlDocuments::shellsAcceptTheirScript_data()
{
    QTest::addColumn<QString>("shell");
    QTest::addColumn<QString>("path");
    for (const Shell &shell : shells)
        QTest::newRow(shell.name) << shell.name << path(shell);
}

void TestCtlDocuments::shellsAcceptTheirScript()
{
    QFETCH(QString, shell);
    QFETCH(QString, path);
    const Output output = run(shell, {"-n", path});
    QCOMPARE(output.status, 0);
    QCOMPARE(output.out + output.err, QString());
}

void TestCtlDocuments::theFormatterHasNoComplaints_data()
{
    addManualRows();
}

void TestCtlDocuments::theFormatterHasNoComplaints()
{
    QFETCH(QString, path);
    const Output asMan = run("man", {"--warnings=all", "--local-file", "--encoding=UTF-8", path});
    QCOMPARE(asMan.status, 0);
    QCOMPARE(asMan.err, QString());
    const Output bare = run("groff", {"-Kutf8", "-Tutf8", "-ww", "-man", "-z", path});
    QCOMPARE(bare.status, 0);
    QCOMPARE(bare.err, QString());
    const Output whatis = run("lexgrog", {path});
    QVERIFY2(whatis.out.contains("\"vxsettingsctl - "), qPrintable(whatis.out));
}

void TestCtlDocuments::typing_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<QString>("run"); // each argument with a bar behind it
    QTest::newRow("a command") << QByteArray("hist\t") << "history|";
    QTest::newRow("a key") << QByteArray("get PT_MOBILE_PO\t") << "get|PT_MOBILE_PORT|";
    QTest::newRow("a member") << QByteArray("get PT_PIN_STRENGTH.max\t") << "get|PT_PIN_STRENGTH.max_len|";
    QTest::newRow("a page") << QByteArray("list us\t") << "list|users|";
    QTest::newRow("an option") << QByteArray("list --j\t us\t") << "list|--json|users|";
    QTest::newRow("an option of another command") << QByteArray("list --dry\t") << "list|--dry|";
    QTest::newRow("a key to set") << QByteArray("set PT_CARD_VIEW_F\t1") << "set|PT_CARD_VIEW_FORMAT=1|";
    QTest::newRow("a page for operators")
        << QByteArray("set --as-adm\tVX_PAGE_ACCESS.us\t0") << "set|--as-administrator|VX_PAGE_ACCESS.users=0|";
    QTest::newRow("a second one") << QByteArray("set PT_MOBILE_PORT=1 PT_PIN_STRENGTH.deny_s\t1\t")
                                  << "set|PT_MOBILE_PORT=1|PT_PIN_STRENGTH.deny_sequence=1|";
    QTest::newRow("a read-only setting") << QByteArray("set PT_VERS\t") << "set|PT_VERS|";
    QTest::newRow("a secret in the open") << QByteArray("set PT_LOCKER_ACC\t") << "set|PT_LOCKER_ACC|";
    QTest::newRow("a secret from the input")
        << QByteArray("set --stdin PT_LOCKER_ACC\t") << "set|--stdin|PT_LOCKER_ACCESS_TOKEN|";
    QTest::newRow("a revision") << QByteArray("restore PT_MOBILE_PO\t7") << "restore|PT_MOBILE_PORT@7|";
    QTest::newRow("a file") << QByteArray("import set\t") << "import|settings.json|";
    QTest::newRow("a file with a blank") << QByteArray("import a\t") << "import|a b.json|";
    QTest::newRow("a database") << QByteArray("--database set\t li\t") << "--database|settings.json|list|";
    QTest::newRow("a database's URL") << QByteArray("list --database sqlite:set\t")
                                      << "list|--database|sqlite:settings.json|";
    QTest::newRow("after words with blanks")
        << QByteArray("--reason 'set get' set PT_MOBILE_HOS\tx") << "--reason|set get|set|PT_MOBILE_HOST=x|";
    QTest::newRow("an argument too many")
        << QByteArray("get PT_MOBILE_PORT PT_MOBILE_HO\t") << "get|PT_MOBILE_PORT|PT_MOBILE_HO|";
    QTest::newRow("nothing known") << QByteArray("destroy PT_MOBILE_HO\t") << "destroy|PT_MOBILE_HO|";
}

void TestCtlDocuments::typing()
{
    QFETCH(QByteArray, keys);
    QFETCH(QString, run);
    for (const Shell &shell : {shells[0], shells[1]}) {
        TypedShell typed(shell);
        QTRY_VERIFY_WITH_TIMEOUT(typed.isReady(), 30000);
        typed.type("vxsettingsctl " + keys + '\n');
        QTRY_VERIFY2(!typed.whatWasRun().isNull(), qPrintable(typed.screen()));
        QVERIFY2(typed.whatWasRun() == run, qPrintable(QString("%1: %2").arg(shell.name, typed.screen())));
    }
}

void TestCtlDocuments::choicesAreListedWithTheirCaptions_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<QStringList>("numbers");
    QTest::addColumn<QStringList>("captions");
    QTest::newRow("a choice") << QByteArray("set PT_CARD_VIEW_FORMAT=") << QStringList{"0", "1", "2"}
                              << QStringList{"Десятичный", "Шестнадцатеричный", "Семейство-код"};
    QTest::newRow("a flag") << QByteArray("set PT_PIN_STRENGTH.deny_equal=") << QStringList{"1", "0"}
                            << QStringList{"да", "нет"};
}

void TestCtlDocuments::choicesAreListedWithTheirCaptions()
{
    QFETCH(QByteArray, keys);
    QFETCH(QStringList, numbers);
    QFETCH(QStringList, captions);
    for (const Shell &shell : {shells[0], shells[1]}) {
        TypedShell typed(shell);
        QTRY_VERIFY_WITH_TIMEOUT(typed.isReady(), 30000);
        typed.type("vxsettingsctl " + keys + "\t\t");
        for (int i = 0; i < numbers.size(); ++i) {
            const QRegularExpression entry(numbers[i] + "  +(-- |\\()" + captions[i]);
            QTRY_VERIFY2(typed.screen().contains(entry), qPrintable(typed.screen()));
        }
    }
}

void TestCtlDocuments::fishOffers_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("offered"); // a word, a tab and its description each
    QTest::newRow("a command") << "hist"
                               << QStringList{"history\t" + CommandTable::tr(CommandTable::find("history")->summary)};
    QTest::newRow("a key") << "get PT_MOBILE_PO" << QStringList{"PT_MOBILE_PORT\tПорт"};
    QTest::newRow("a page") << "list us" << QStringList{"users\tПользователи"};
    QTest::newRow("a key to set") << "set --reason 'a b' PT_CARD_VIEW_F"
                                  << QStringList{"PT_CARD_VIEW_FORMAT=\tФормат отображения номеров карт"};
    QTest::newRow("choices") << "set PT_CARD_VIEW_FORMAT="
                             << QStringList{"PT_CARD_VIEW_FORMAT=0\tДесятичный",
                                            "PT_CARD_VIEW_FORMAT=1\tШестнадцатеричный",
                                            "PT_CARD_VIEW_FORMAT=2\tСемейство-код"};
    QTest::newRow("a secret from the input")
        << "set --stdin PT_LOCKER_ACC" << QStringList{"PT_LOCKER_ACCESS_TOKEN\tТокен доступа"};
    QTest::newRow("a revision") << "restore PT_MOBILE_PO" << QStringList{"PT_MOBILE_PORT@\tПорт"};
    QTest::newRow("an option of another command") << "list --dry" << QStringList{};
    QTest::newRow("an argument too many") << "get PT_MOBILE_PORT PT_MOBILE_HO" << QStringList{};
}

void TestCtlDocuments::fishOffers()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, offered);
    const QString script =
        QString("source '%1'; complete --do-complete \"vxsettingsctl %2\"").arg(path(shells[2]), typed);
    const Output output = run("fish", {"--no-config", "--command", script});
    QCOMPARE(output.err, QString());
    QCOMPARE(output.out.split('\n', Qt::SkipEmptyParts), offered);
}

QTEST_MAIN(TestCtlDocuments)
#include "tst_ctldocuments.moc"
