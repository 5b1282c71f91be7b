#include <vxsettings/dbsettingslanguage.h>

#include "messages.h"
#include "translation.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettingshelper.h>

#include <QTest>
#include <QWidget>

using namespace db::database;

class TestDBSettingsLanguage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void withoutOneTheInstalledLanguageCounts();
    void theSourceLanguage();
    void aLanguageThatIsNotInstalled();
    void theInnermostCounts();
    void nobodyIsTold();
};

namespace {

/// English of a few texts.
class English : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (qstrcmp(context, "QObject") != 0)
            return {};
        return QString::fromUtf8(source) == "Порт" ? "Port" : QString();
    }
    bool isEmpty() const override { return false; }
};

class LanguageWitness : public QWidget
{
public:
    int changes = 0;

protected:
    void changeEvent(QEvent *event) override { changes += event->type() == QEvent::LanguageChange; }
};
} // namespace

void TestDBSettingsLanguage::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestDBSettingsLanguage::withoutOneTheInstalledLanguageCounts()
{
    QCOMPARE(DBSettingsHelper::paramName(MOBILE_PORT), QString("Порт"));
    const InstalledTranslation german({{"QObject", "Порт", "Anschluss"}});
    QCOMPARE(DBSettingsHelper::paramName(MOBILE_PORT), QString("Anschluss"));
}

void TestDBSettingsLanguage::theSourceLanguage()
{
    const InstalledTranslation german({{"QObject", "Порт", "Anschluss"},
                                       {"QObject", "Заявки", "Anträge"},
                                       {"QObject", "Да", "Ja"},
                                       {"QObject", "Без ограничений", "Unbegrenzt"}});
    {
        const DBSettingsLanguage source;
        QCOMPARE(DBSettingsHelper::paramName(MOBILE_PORT), QString("Порт"));
        QCOMPARE(DBSettingsHelper::groupName(DBGroups::PassRequests), QString("Заявки"));
        QCOMPARE(DBSettingsHelper::paramValues(ENABLE_FACE_SCANNING).at(1), QString("Да"));
        QCOMPARE(DBSettingsHelper::paramSpecialValue(USER_SESSION_COUNT), QString("Без ограничений"));
    }
    QCOMPARE(DBSettingsHelper::paramName(MOBILE_PORT), QString("Anschluss"));
    QCOMPARE(DBSettingsHelper::groupName(DBGroups::PassRequests), QString("Anträge"));
}

void TestDBSettingsLanguage::aLanguageThatIsNotInstalled()
{
    const InstalledTranslation german({{"QObject", "Порт", "Anschluss"}, {"QObject", "Хост", "Rechner"}});
    const English translator;
    const DBSettingsLanguage english(&translator);
    QCOMPARE(DBSettingsHelper::paramName(MOBILE_PORT), QString("Port"));
    QCOMPARE(DBSettingsHelper::paramName(MOBILE_HOST), QString("Хост")); // which it does not have
}

void TestDBSettingsLanguage::theInnermostCounts()
{
    const English translator;
    const DBSettingsLanguage english(&translator);
    {
        const DBSettingsLanguage source;
        QCOMPARE(DBSettingsHelper::paramName(MOBILE_PORT), QString("Порт"));
    }
    QCOMPARE(DBSettingsHelper::paramName(MOBILE_PORT), QString("Port"));
}

void TestDBSettingsLanguage::nobodyIsTold()
{
    LanguageWitness witness;
    witness.show();
    {
        const English translator;
        const DBSettingsLanguage english(&translator);
        QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents();
    QCOMPARE(witness.changes, 0);

    const InstalledTranslation german({});
    QTRY_COMPARE(witness.changes, 1); // an installed one tells
}

QTEST_MAIN(TestDBSettingsLanguage)
#include "tst_dbsettingslanguage.moc"
