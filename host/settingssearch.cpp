#include "settingssearch.h"

#include <host/settingspages.h>
#include <host/settingsynonyms.h>

#include <vxsettings/dbsettingshelper.h>
#include <vxsettings/dbsettingslanguage.h>

#include <QTextDocumentFragment>

#include <algorithm>
#include <vector>

namespace {

using Hit = SettingsSearch::Hit;
using Source = SettingsSearch::Source;

/// A word as it is compared.
struct Word
{
    QString text;
    QString stem; ///< without its ending
};
using Words = std::vector<Word>;

struct Text
{
    Source source;
    QString shown;
    Words words;
};

struct Parameter
{
    SettingAddress address;
    DBGroups page;
    std::vector<Text> texts;
};

// How words are compared

/// Endings of Russian nouns, adjectives and verbs, and the English plural; a longer one before what it ends with.
const QString endings[] = {
    QStringLiteral("ами"), QStringLiteral("ями"), QStringLiteral("ого"), QStringLiteral("его"), QStringLiteral("ому"),
    QStringLiteral("ему"), QStringLiteral("ыми"), QStringLiteral("ими"), QStringLiteral("ать"), QStringLiteral("ить"),
    QStringLiteral("ять"), QStringLiteral("ие"),  QStringLiteral("ия"),  QStringLiteral("ий"),  QStringLiteral("ию"),
    QStringLiteral("ии"),  QStringLiteral("ов"),  QStringLiteral("ев"),  QStringLiteral("ей"),  QStringLiteral("ам"),
    QStringLiteral("ям"),  QStringLiteral("ах"),  QStringLiteral("ях"),  QStringLiteral("ом"),  QStringLiteral("ем"),
    QStringLiteral("ой"),  QStringLiteral("ый"),  QStringLiteral("ая"),  QStringLiteral("яя"),  QStringLiteral("ое"),
    QStringLiteral("ее"),  QStringLiteral("ые"),  QStringLiteral("ых"),  QStringLiteral("их"),  QStringLiteral("ым"),
    QStringLiteral("им"),  QStringLiteral("ую"),  QStringLiteral("юю"),  QStringLiteral("а"),   QStringLiteral("я"),
    QStringLiteral("о"),   QStringLiteral("е"),   QStringLiteral("и"),   QStringLiteral("ы"),   QStringLiteral("у"),
    QStringLiteral("ю"),   QStringLiteral("ь"),   QStringLiteral("й"),   QStringLiteral("s"),
};

QString stemOf(const QString &word)
{
    constexpr int shortestStem = 3;
    for (const QString &ending : endings) {
        if (word.size() - ending.size() >= shortestStem && word.endsWith(ending))
            return word.chopped(ending.size());
    }
    return word;
}

Words wordsOf(const QString &text)
{
    Words words;
    const QString folded = text.toCaseFolded().replace(QChar(u'ё'), QChar(u'е')) + QLatin1Char(' ');
    QString word;
    for (const QChar c : folded) {
        if (c.isLetterOrNumber()) {
            word += c;
        } else if (!word.isEmpty()) {
            words.push_back({word, stemOf(word)});
            word.clear();
        }
    }
    return words;
}

// How matches are ranked: by the kind of text of the weakest one, then by how much of the texts was meant

constexpr int wholeText = 40;
constexpr int wholeWord = 20;
constexpr int otherForm = 15;
constexpr int beginning = 10;
constexpr int firstWord = 5;

int sourceScore(Source source)
{
    return 1000 * (int(Source::ToolTip) + 1 - int(source));
}

/// 0 if the two have nothing in common.
int score(const Word &wanted, const Word &word)
{
    if (!word.text.startsWith(wanted.text))
        return word.stem == wanted.stem ? otherForm : 0;
    return word.text.size() == wanted.text.size() ? wholeWord : beginning;
}

int score(const Word &wanted, const Text &text)
{
    int best = 0;
    for (const Word &word : text.words) {
        const int match = score(wanted, word);
        best = qMax(best, match > 0 && &word == &text.words.front() ? match + firstWord : match);
    }
    return best;
}

struct Match
{
    const Text *text = nullptr;
    int score = 0;

    int rank() const { return sourceScore(text->source) + score; }
};

Match bestMatch(const Word &wanted, const Parameter &parameter)
{
    Match best;
    for (const Text &text : parameter.texts) {
        const Match match{&text, score(wanted, text)};
        if (match.score > 0 && (!best.text || match.rank() > best.rank()))
            best = match;
    }
    return best;
}

bool isWhole(const Text &text, const Words &wanted)
{
    return std::equal(text.words.begin(), text.words.end(), wanted.begin(), wanted.end(),
                      [](const Word &left, const Word &right) { return left.text == right.text; });
}

/// A score of 0 if a word was not found.
Hit hit(const Words &wanted, const Parameter &parameter)
{
    Match weakest;
    int score = 0;
    for (const Word &word : wanted) {
        const Match match = bestMatch(word, parameter);
        if (!match.text)
            return {};
        score += match.score;
        if (!weakest.text || match.rank() < weakest.rank())
            weakest = match;
    }
    const Text &text = *weakest.text;
    score += sourceScore(text.source) + (isWhole(text, wanted) ? wholeText : 0);
    return {parameter.address, parameter.page, text.source, text.shown, score};
}
} // namespace

/// Every parameter with its words, in the order of the pages.
struct SettingsSearch::Index
{
    explicit Index(const QVector<const QTranslator *> &translators)
    {
        for (const SettingAddress &address : SettingAddress::all()) {
            if (!address.isJsonObject())
                parameters.push_back({address, SettingAddress{address.key}.group(), {}});
        }
        addLanguage(nullptr);
        for (const QTranslator *translator : translators)
            addLanguage(translator);
        for (Parameter &parameter : parameters)
            addNames(parameter);
    }

    void addLanguage(const QTranslator *translator)
    {
        const DBSettingsLanguage language(translator);
        for (Parameter &parameter : parameters)
            addTexts(parameter);
    }

    static void addTexts(Parameter &parameter)
    {
        const QString &key = parameter.address.parameter();
        add(parameter, Source::Caption, DBSettingsHelper::paramName(key));
        for (const auto &choice : DBSettingsHelper::paramValues(key))
            add(parameter, Source::Choice, choice.second);
        add(parameter, Source::Choice, DBSettingsHelper::paramSpecialValue(key));
        add(parameter, Source::Title, DBSettingsHelper::groupName(parameter.page));
        if (!parameter.address.member.isEmpty()) {
            add(parameter, Source::Title, DBSettingsHelper::groupName(parameter.address.group()));
            add(parameter, Source::Title, parameter.address.caption()); // names what switches it
        }
        add(parameter, Source::ToolTip, QTextDocumentFragment::fromHtml(DBSettingsHelper::toolTip(key)).toPlainText());
    }

    static void addNames(Parameter &parameter)
    {
        for (const QString &synonym : SettingSynonyms::of(parameter.address))
            add(parameter, Source::Synonym, synonym);
        add(parameter, Source::Key, parameter.address.text());
    }

    static void add(Parameter &parameter, Source source, const QString &text)
    {
        if (!text.isEmpty())
            parameter.texts.push_back({source, text, wordsOf(text)});
    }

    std::vector<Parameter> parameters;
};

SettingsSearch::SettingsSearch(const QVector<const QTranslator *> &translators)
    : m_translators(translators)
{}

SettingsSearch::~SettingsSearch() = default;

QVector<SettingsSearch::Hit> SettingsSearch::find(const QString &words) const
{
    const Words wanted = wordsOf(words);
    if (wanted.empty())
        return {};
    QVector<Hit> hits;
    for (const Parameter &parameter : index().parameters) {
        const Hit found = hit(wanted, parameter);
        if (found.score > 0)
            hits.append(found);
    }
    std::stable_sort(hits.begin(), hits.end(),
                     [](const Hit &left, const Hit &right) { return left.score > right.score; });
    return hits;
}

const SettingsSearch::Index &SettingsSearch::index() const
{
    if (!m_index)
        m_index = std::make_unique<const Index>(m_translators);
    return *m_index;
}
