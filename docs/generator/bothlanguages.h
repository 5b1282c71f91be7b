#pragma once

#include <host/translations.h>

#include <vxsettings/dbsettingslanguage.h>

#include <QString>
#include <QTranslator>

/// Texts of the catalogue in English and in Russian, whichever language is installed.
class BothLanguages
{
public:
    BothLanguages()
        : m_english(Translations::libraryTexts(QStringLiteral("en")))
    {}

    /// What the function @p text gives while the catalogue speaks that language.
    template <typename Text>
    QString english(Text text) const
    {
        const DBSettingsLanguage language(m_english.get());
        return text();
    }
    template <typename Text>
    QString russian(Text text) const
    {
        const DBSettingsLanguage language;
        return text();
    }
    /// English, and Russian behind @p separator unless it is the same.
    template <typename Text>
    QString both(Text text, const QString &separator = QStringLiteral(" · ")) const
    {
        const QString first = english(text);
        const QString second = russian(text);
        return first == second ? first : first + separator + second;
    }

private:
    std::unique_ptr<QTranslator> m_english;
};
