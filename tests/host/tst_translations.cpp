#include <host/translations.h>

#include "messages.h"

#include <host/settingaddress.h>
#include <host/settingproblem.h>
#include <host/settingssearch.h>

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettingsgroup.h>
#include <vxsettings/dbsettingsgroupfactory.h>
#include <vxsettings/dbsettingshelper.h>

#include <vxwidgets/vxsettingsgroupwidget.h>

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <QWidget>

using namespace db::database;

namespace {

/// Counts the changes of language that a window hears of.
class Listener : public QWidget
{
public:
    int changes = 0;

protected:
    void changeEvent(QEvent *event) override
    {
        changes += event->type() == QEvent::LanguageChange;
        QWidget::changeEvent(event);
    }
};

/// Every text of the catalogue, each with where it comes from.
QMap<QString, QString> catalogueTexts()
{
    QMap<QString, QString> texts;
    const auto add = [&texts](const QString &name, const QString &text) {
        if (!text.isEmpty())
            texts.insert(name, text);
    };
    for (int group = 0; group <= int(DBGroups::PalmTemplatesAmount); ++group)
        add(QStringLiteral("group %1").arg(group), DBSettingsHelper::groupName(DBGroups(group)));
    for (const SettingAddress &address : SettingAddress::all()) {
        const QString &parameter = address.parameter();
        if (!address.isJsonObject())
            add(parameter, DBSettingsHelper::paramName(parameter));
        add(parameter + " special", DBSettingsHelper::paramSpecialValue(parameter));
        add(parameter + " tip", DBSettingsHelper::toolTip(parameter));
        for (const auto &[number, caption] : DBSettingsHelper::paramValues(parameter))
            add(QStringLiteral("%1 %2").arg(parameter).arg(number), caption);
    }
    return texts;
}

QString cancelOfTheToolkit()
{
    return QDialogButtonBox(QDialogButtonBox::Cancel).button(QDialogButtonBox::Cancel)->text().remove('&');
}
} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void languagesThatThereAre();
    void foldersAndFiles();
    void names_data();
    void names();
    void preferred_data();
    void preferred();
    void choiceIsRemembered();
    void russianNeedsNothing();
    void everyLayerChangesItsLanguage();
    void windowsHearOfAChange();
    void anUnknownLanguageChangesNothing_data();
    void anUnknownLanguageChangesNothing();
    void textsGoWithTheObject();
    void everyTextOfTheCatalogueIsTranslated();
    void anOpenPageFollows();
    void searchUnderstandsALanguageThatIsNotInstalled();

private:
    QTemporaryDir m_userSettings;
};

void TestTranslations::initTestCase()
{
    failOnUnexpectedMessages();
    QCoreApplication::setOrganizationName("vxsettings");
    QCoreApplication::setApplicationName("tst_translations");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_userSettings.path());
}

void TestTranslations::init()
{
    QSettings().clear();
}

void TestTranslations::languagesThatThereAre()
{
    QCOMPARE(Translations::languages(), QStringList({"ru", "en"}));
}

void TestTranslations::foldersAndFiles()
{
    QCOMPARE(Translations::folder(), QFileInfo(QCoreApplication::applicationDirPath()).path() + "/" TRANSLATIONS);
    for (const char *name : {"vantorix", "vxsettings", "vxsettings-manager", "vxsettingsctl"}) {
        for (const QString &language : Translations::languages())
            QVERIFY2(QFileInfo::exists(Translations::folder() + QString("/%1_%2.qm").arg(name, language)), name);
    }
}

void TestTranslations::names_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("name");
    QTest::newRow("Russian") << "ru"
                             << "Русский";
    QTest::newRow("English") << "en"
                             << "English";
    QTest::newRow("German") << "de"
                            << "Deutsch";
}

void TestTranslations::names()
{
    QFETCH(QString, language);
    QTEST(Translations::name(language), "name");
}

void TestTranslations::preferred_data()
{
    QTest::addColumn<QStringList>("wishes");
    QTest::addColumn<QString>("language");

    QTest::newRow("a wish") << QStringList{"en"} << "en";
    QTest::newRow("the first wish") << QStringList{"ru", "en"} << "ru";
    QTest::newRow("an empty wish") << QStringList{QString(), "en"} << "en";
    QTest::newRow("a wish for what is not there") << QStringList{"de", "en"} << "en";
    QTest::newRow("nothing that is there") << QStringList{"de"} << "ru";
    QTest::newRow("no wish") << QStringList{} << "ru";
}

void TestTranslations::preferred()
{
    QFETCH(QStringList, wishes);
    QTEST(Translations::preferred(wishes), "language");
}

void TestTranslations::choiceIsRemembered()
{
    QVERIFY(Translations::remembered().isNull());
    Translations translations("vxsettings-manager");
    QVERIFY(translations.setLanguage("en"));
    QVERIFY(Translations::remembered().isNull());
    QVERIFY(translations.choose("en"));
    QCOMPARE(Translations::remembered(), QString("en"));
    QVERIFY(!translations.choose("de"));
    QCOMPARE(Translations::remembered(), QString("en"));
    QVERIFY(translations.choose("ru"));
    QCOMPARE(Translations::remembered(), QString("ru"));
    QCOMPARE(translations.language(), QString("ru"));
}

void TestTranslations::russianNeedsNothing()
{
    const Translations translations("vxsettings-manager");
    QCOMPARE(translations.language(), QString("ru"));
    QCOMPARE(DBSettingsHelper::groupName(DBGroups::Users), QString("Пользователи"));
}

void TestTranslations::everyLayerChangesItsLanguage()
{
    Translations translations("vxsettings-manager");
    const auto texts = [] {
        return QStringList{cancelOfTheToolkit(), QCoreApplication::translate("SettingsGroupHeader", "Свернуть"),
                           DBSettingsHelper::paramName(MOBILE_PORT),
                           SettingProblem::words(SettingProblem::Kind::TooLong),
                           QCoreApplication::translate("ChangeBar", "Несохранённых изменений нет")};
    };
    const QStringList russian{"Отмена", "Свернуть", "Порт", "Текст слишком длинный.", "Несохранённых изменений нет"};
    const QStringList english{"Cancel", "Collapse", "Port", "The text is too long.", "No unsaved changes"};

    QVERIFY(translations.setLanguage("ru"));
    QCOMPARE(texts(), russian);
    QVERIFY(translations.setLanguage("en"));
    QCOMPARE(texts(), english);
    QVERIFY(translations.setLanguage("en"));
    QCOMPARE(texts(), english);
    QVERIFY(translations.setLanguage("ru"));
    QCOMPARE(texts(), russian);
}

void TestTranslations::windowsHearOfAChange()
{
    Translations translations("vxsettings-manager");
    translations.setLanguage("ru");
    QCoreApplication::sendPostedEvents();
    Listener window;

    QVERIFY(translations.setLanguage("en"));
    QTRY_COMPARE(window.changes, 1);
    QVERIFY(translations.setLanguage("ru"));
    QTRY_COMPARE(window.changes, 2);
}

void TestTranslations::anUnknownLanguageChangesNothing_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("not there") << "de";
    QTest::newRow("none") << QString();
    QTest::newRow("a country as well") << "ru_RU";
    QTest::newRow("a path") << "../../bin/en";
}

void TestTranslations::anUnknownLanguageChangesNothing()
{
    QFETCH(QString, language);
    Translations translations("vxsettings-manager");
    QVERIFY(translations.setLanguage("en"));
    QCoreApplication::sendPostedEvents();
    Listener window;
    QVERIFY(!translations.setLanguage(language));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(window.changes, 0);
    QCOMPARE(translations.language(), QString("en"));
    QCOMPARE(DBSettingsHelper::paramName(MOBILE_PORT), QString("Port"));
}

void TestTranslations::textsGoWithTheObject()
{
    {
        Translations translations("vxsettings-manager");
        QVERIFY(translations.setLanguage("en"));
        QCOMPARE(DBSettingsHelper::paramName(MOBILE_PORT), QString("Port"));
    }
    QCOMPARE(DBSettingsHelper::paramName(MOBILE_PORT), QString("Порт"));
}

void TestTranslations::everyTextOfTheCatalogueIsTranslated()
{
    const QStringList names{"Corvalen", "Vantorix", "Vantorix ID", "Vantorix Studio"}; // alike in every language
    Translations translations("vxsettings-manager");
    const QMap<QString, QString> russian = catalogueTexts();
    QVERIFY(translations.setLanguage("en"));
    const QMap<QString, QString> english = catalogueTexts();

    QVERIFY(russian.size() > 100);
    QCOMPARE(english.keys(), russian.keys());
    for (auto text = russian.begin(); text != russian.end(); ++text) {
        const bool isAlike = english[text.key()] == text.value();
        QVERIFY2(isAlike == names.contains(text.value()), qPrintable(text.key() + ": " + text.value()));
    }
}

void TestTranslations::anOpenPageFollows()
{
    Translations translations("vxsettings-manager");
    QWidget window;
    const auto page = DBSettingsGroupFactory::create(DBGroups::Connection, &window, nullptr);
    const auto title = [&page] { return qobject_cast<VXSettingsGroupWidget *>(page->widget().get())->title(); };
    QCOMPARE(title(), QString("Настройки подключения"));

    QVERIFY(translations.setLanguage("en"));
    page->toGroup()->retranslate();
    QCOMPARE(title(), QString("Connection settings"));
    QVERIFY(translations.setLanguage("ru"));
    page->toGroup()->retranslate();
    QCOMPARE(title(), QString("Настройки подключения"));
}

void TestTranslations::searchUnderstandsALanguageThatIsNotInstalled()
{
    const auto english = Translations::libraryTexts("en");
    QVERIFY(english);
    QVERIFY(!Translations::libraryTexts("de"));
    QCOMPARE(DBSettingsHelper::paramName(ENROLL_FACE_BLUR_QUALITY),
             QString("Требуемое качество размытости изображения лица"));
    const auto hits = SettingsSearch({english.get()}).find("blur quality");
    QVERIFY(!hits.isEmpty());
    QCOMPARE(hits.first().address.key, ENROLL_FACE_BLUR_QUALITY);
    QCOMPARE(hits.first().text, QString("Required blur quality of the face image"));
}

QTEST_MAIN(TestTranslations)
#include "tst_translations.moc"
