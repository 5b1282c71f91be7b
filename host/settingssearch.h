#pragma once

#include <host/settingaddress.h>

#include <QString>
#include <QVector>

#include <memory>

class QTranslator;

/// Finds settings by what people call them: captions, choices, titles, tool tips, keys and synonyms, in Russian and in
/// other languages at once, whichever is installed.
///
/// Upper and lower case are alike, and so are "ё" and "е". The beginning of a word is enough, and the form of a Russian
/// word does not matter. The catalogue is searched: no page has to be open. An index is made by the first search.
class SettingsSearch
{
public:
    /// In what a setting was found; the earlier, the better.
    enum class Source { Caption, Choice, Title, Synonym, Key, ToolTip };

    struct Hit
    {
        SettingAddress address;
        DBGroups page; ///< the one that shows the editor
        Source source; ///< of the text
        QString text;  ///< where the word was found that fits worst, in the language that it was found in
        int score;     ///< higher is better; to be compared within one search
    };

    /// @p translators: the languages besides Russian. They must live longer, and need not be installed.
    explicit SettingsSearch(const QVector<const QTranslator *> &translators = {});
    ~SettingsSearch();

    /// The parameters in which every word of @p words was found, the best first, equally good ones in the order of the
    /// pages. Empty if there is no word.
    QVector<Hit> find(const QString &words) const;

private:
    struct Index;

    const Index &index() const;

    QVector<const QTranslator *> m_translators;
    mutable std::unique_ptr<const Index> m_index; ///< null before the first search
};
