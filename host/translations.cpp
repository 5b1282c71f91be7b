#include "translations.h"

#include <qtcompat.h>

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QSettings>
#include <QTranslator>

namespace {

QString sourceLanguage()
{
    return QStringLiteral("ru");
}

/// In the order of the user's preference.
QStringList systemLanguages()
{
    QStringList languages;
    for (const QString &language : QLocale::system().uiLanguages())
        languages.append(QLocale(language).name().section(QLatin1Char('_'), 0, 0));
    return languages;
}

QString settingsKey()
{
    return QStringLiteral("language");
}
} // namespace

Translations::Translations(const QString &program)
    : m_program(program)
    , m_language(sourceLanguage())
{}

Translations::~Translations() = default;

QString Translations::folder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/" VXSETTINGS_TRANSLATIONS));
}

QStringList Translations::languages()
{
    QStringList languages{sourceLanguage()};
    const QString start = QStringLiteral("vxsettings_");
    for (const QString &file : QDir(folder()).entryList({start + QStringLiteral("*.qm")}, QDir::Files, QDir::Name))
        languages.append(file.mid(start.size()).chopped(int(qstrlen(".qm"))));
    languages.removeDuplicates();
    return languages;
}

QString Translations::name(const QString &language)
{
    // The language of no country, or English would be American English.
    const QLocale locale(QLocale(language).language(), QLocale::World);
    const QString name = locale.nativeLanguageName();
    return locale.toUpper(name.left(1)) + name.mid(1); // clazy:exclude=qstring-left (may be empty)
}

QString Translations::preferred(const QStringList &wishes)
{
    const QStringList there = languages();
    for (const QString &language : wishes + systemLanguages()) {
        if (there.contains(language))
            return language;
    }
    return sourceLanguage();
}

QString Translations::remembered()
{
    return QSettings().value(settingsKey()).toString();
}

std::unique_ptr<QTranslator> Translations::libraryTexts(const QString &language)
{
    return load(QStringLiteral("vxsettings"), language, folder());
}

bool Translations::setLanguage(const QString &language)
{
    if (!languages().contains(language))
        return false;

    m_language = language;
    m_translators.clear();
    // Dates are written in the language of the words around them.
    QLocale::setDefault(QLocale(language));
    // What is installed last is asked first.
    install(QStringLiteral("qtbase"), qtcompat::translationsFolder());
    for (const QString &catalogue : {QStringLiteral("vantorix"), QStringLiteral("vxsettings"), m_program})
        install(catalogue, folder());
    return true;
}

bool Translations::choose(const QString &language)
{
    if (!setLanguage(language))
        return false;
    QSettings().setValue(settingsKey(), language);
    return true;
}

std::unique_ptr<QTranslator> Translations::load(const QString &catalogue, const QString &language,
                                                const QString &folder)
{
    auto translator = std::make_unique<QTranslator>();
    const bool isThere = translator->load(catalogue + QLatin1Char('_') + language, folder) && !translator->isEmpty();
    return isThere ? std::move(translator) : nullptr;
}

void Translations::install(const QString &catalogue, const QString &folder)
{
    auto translator = load(catalogue, m_language, folder);
    if (!translator)
        return;
    QCoreApplication::installTranslator(translator.get());
    m_translators.push_back(std::move(translator));
}
