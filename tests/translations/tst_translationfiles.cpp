#include "messages.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>

namespace {

struct Message
{
    QString file;
    QString context;
    QString source;
    QString state; ///< "unfinished", "vanished", "obsolete"; empty if it is finished
    QStringList forms;
    bool isNumerus = false;

    QString name() const { return QStringLiteral("%1, %2: %3").arg(file, context, source.left(60)); }
};

Message readMessage(QXmlStreamReader &xml)
{
    Message message;
    message.isNumerus = xml.attributes().value("numerus") == QLatin1String("yes");
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("source")) {
            message.source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            message.state = xml.attributes().value("type").toString();
            if (!message.isNumerus)
                message.forms = QStringList(xml.readElementText());
            while (message.isNumerus && xml.readNextStartElement())
                message.forms.append(xml.readElementText());
        } else {
            xml.skipCurrentElement();
        }
    }
    return message;
}

QVector<Message> readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("no file " + path.toStdString());
    QXmlStreamReader xml(&file);
    QVector<Message> messages;
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        if (xml.name() == QLatin1String("message")) {
            messages.append(readMessage(xml));
            messages.last().file = QFileInfo(path).fileName();
            messages.last().context = context;
        }
    }
    if (xml.hasError())
        throw std::runtime_error(path.toStdString() + ": " + xml.errorString().toStdString());
    return messages;
}

QStringList files(const QString &language)
{
    const QDir folder(QStringLiteral(TRANSLATIONS));
    QStringList paths;
    for (const QString &name : folder.entryList({QStringLiteral("*_%1.ts").arg(language)}))
        paths.append(folder.filePath(name));
    return paths;
}

/// Everything that is translated into @p language.
QVector<Message> messagesIn(const QString &language)
{
    QVector<Message> all;
    for (const QString &path : files(language))
        all += readFile(path);
    return all;
}

/// What @p pattern finds in @p text, sorted.
QStringList found(const QString &text, const QString &pattern)
{
    QStringList parts;
    auto matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext())
        parts.append(matches.next().captured());
    parts.sort();
    return parts;
}

QStringList placeholders(const QString &text)
{
    return found(text, QStringLiteral("%L?[0-9n]+|\\[\\*\\]|</?[a-z]+/?>|\\$\\{[^}]*\\}|--[a-z-]+|Ctrl\\+[A-Z]"));
}

int mnemonics(const QString &text)
{
    return found(text, QStringLiteral("&[^& ]")).size();
}

/// White space at both ends, and what stands at the end of a sentence.
QString frame(const QString &text)
{
    const QString start = QRegularExpression(QStringLiteral("^\\s*")).match(text).captured();
    QString end = QRegularExpression(QStringLiteral("[.:?…]?\\s*$")).match(text).captured();
    // How many blanks there are depends on how long the words are.
    return start + QLatin1Char('|') + end.replace(QRegularExpression(QStringLiteral(" +")), QStringLiteral(" "));
}

bool isAbbreviation(const QString &text)
{
    return text.endsWith(QLatin1Char('.')) && !text.contains(QLatin1Char(' '));
}
} // namespace

class TestTranslationFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyPartIsThere_data();
    void everyPartIsThere();
    void everyTextIsTranslated_data();
    void everyTextIsTranslated();
    void placeholdersStay();
    void mnemonicsStay();
    void whiteSpaceAndPunctuationStay();
    void englishIsEnglish();
};

void TestTranslationFiles::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestTranslationFiles::everyPartIsThere_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<int>("least");
    QTest::newRow("platform") << "vantorix" << 10;
    QTest::newRow("library") << "vxsettings" << 80;
    QTest::newRow("host") << "vxsettings-host" << 100;
    QTest::newRow("manager") << "vxsettings-manager" << 50;
    QTest::newRow("command line") << "vxsettingsctl" << 100;
}

void TestTranslationFiles::everyPartIsThere()
{
    QFETCH(QString, part);
    QFETCH(int, least);
    const QString path = QStringLiteral(TRANSLATIONS "/%1_%2.ts");
    QVERIFY(readFile(path.arg(part, "en")).size() >= least);
    // The sources are in Russian: only the forms of words after a number are written there.
    for (const Message &message : readFile(path.arg(part, "ru")))
        QVERIFY2(message.isNumerus, qPrintable(message.name()));
}

void TestTranslationFiles::everyTextIsTranslated_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("numerusForms");
    QTest::newRow("English") << "en" << 2;
    QTest::newRow("Russian") << "ru" << 3;
}

void TestTranslationFiles::everyTextIsTranslated()
{
    QFETCH(QString, language);
    QFETCH(int, numerusForms);
    QCOMPARE(files(language).size(), 5);
    for (const Message &message : messagesIn(language)) {
        QVERIFY2(message.state.isEmpty(), qPrintable(message.state + ": " + message.name()));
        QVERIFY2(message.forms.size() == (message.isNumerus ? numerusForms : 1), qPrintable(message.name()));
        QVERIFY2(!message.forms.contains(QString()), qPrintable(message.name()));
    }
}

void TestTranslationFiles::placeholdersStay()
{
    for (const Message &message : messagesIn("en") + messagesIn("ru")) {
        for (const QString &form : message.forms)
            QVERIFY2(placeholders(form) == placeholders(message.source), qPrintable(message.name()));
    }
}

void TestTranslationFiles::mnemonicsStay()
{
    QHash<QString, QStringList> letters;
    for (const Message &message : messagesIn("en")) {
        for (const QString &form : message.forms) {
            QVERIFY2(mnemonics(form) == mnemonics(message.source), qPrintable(message.name()));
            letters[message.file + message.context] += found(form.toLower(), QStringLiteral("&[^& ]"));
        }
    }
    QVERIFY(!letters.isEmpty());
    for (auto used = letters.begin(); used != letters.end(); ++used)
        QVERIFY2(used->removeDuplicates() == 0, qPrintable(used.key()));
}

void TestTranslationFiles::whiteSpaceAndPunctuationStay()
{
    for (const Message &message : messagesIn("en") + messagesIn("ru")) {
        if (isAbbreviation(message.source))
            continue;
        for (const QString &form : message.forms)
            QVERIFY2(frame(form) == frame(message.source), qPrintable(message.name()));
    }
}

void TestTranslationFiles::englishIsEnglish()
{
    const QRegularExpression russian(QStringLiteral("[а-яёА-ЯЁ«»]"));
    const QRegularExpression straight(QStringLiteral("^[^<]*[\"'][^<]*$"));
    for (const Message &message : messagesIn("en")) {
        for (const QString &form : message.forms) {
            QVERIFY2(!form.contains(russian), qPrintable(message.name()));
            QVERIFY2(!form.contains(straight), qPrintable(message.name()));
        }
    }
}

QTEST_MAIN(TestTranslationFiles)
#include "tst_translationfiles.moc"
