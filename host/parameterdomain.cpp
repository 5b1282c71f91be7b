#include "parameterdomain.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettingshelper.h>

#include <qtcompat.h>

#include <QStringList>

#include <algorithm>

using Kind = SettingProblem::Kind;
using Presence = ObjectIndex::Presence;

namespace {

struct Parameter
{
    const QString &key;
    const ObjectIndex &objects;
};

bool areAlike(const QString &left, const QString &right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

bool isWholeNumber(const QString &text)
{
    const int start = text.startsWith(QLatin1Char('-')) ? 1 : 0;
    const auto isDigit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
    return text.size() > start && std::all_of(text.begin() + start, text.end(), isDigit);
}

/// Without leading zeros; what is no whole number stays as it is.
QString plainNumber(const QString &text)
{
    bool isNumber = false;
    const qlonglong number = text.toLongLong(&isNumber);
    return isNumber && isWholeNumber(text) ? QString::number(number) : text;
}

// A number in a spin box

QString number(const Parameter &parameter, const QString &words)
{
    const QString special = DBSettingsHelper::paramSpecialValue(parameter.key);
    if (!special.isEmpty() && areAlike(words, special))
        return QString::number(DBSettingsHelper::paramRange(parameter.key).first);
    return plainNumber(words);
}

Kind numberProblem(const Parameter &parameter, const QString &stored)
{
    if (!isWholeNumber(stored))
        return Kind::NotANumber;
    bool fits = false;
    const int number = stored.toInt(&fits);
    const auto [minimum, maximum] = DBSettingsHelper::paramRange(parameter.key);
    return fits && number >= minimum && number <= maximum ? Kind::None : Kind::OutOfRange;
}

QString shownNumber(const Parameter &parameter, const QVariant &stored)
{
    const auto [minimum, maximum] = DBSettingsHelper::paramRange(parameter.key);
    return QString::number(qBound(minimum, qtcompat::numberText(stored).toInt(), maximum));
}

QString allowedNumbers(const Parameter &parameter)
{
    const auto [minimum, maximum] = DBSettingsHelper::paramRange(parameter.key);
    const QString special = DBSettingsHelper::paramSpecialValue(parameter.key);
    if (special.isEmpty())
        return ParameterDomain::tr("Допустимы целые числа от %1 до %2.").arg(minimum).arg(maximum);
    return ParameterDomain::tr("Допустимы целые числа от %1 до %2; %1 означает «%3».")
        .arg(QString::number(minimum), QString::number(maximum), special);
}

// A choice in a combo box

QString choice(const Parameter &parameter, const QString &words)
{
    QStringList same, alike;
    for (const auto &[number, caption] : DBSettingsHelper::paramValues(parameter.key)) {
        if (caption == words)
            same.append(QString::number(number));
        if (areAlike(caption, words))
            alike.append(QString::number(number));
    }
    const QStringList &meant = same.isEmpty() ? alike : same;
    return meant.size() == 1 ? meant.first() : plainNumber(words);
}

Kind choiceProblem(const Parameter &parameter, const QString &stored)
{
    bool isNumber = false;
    const unsigned int number = stored.toUInt(&isNumber);
    const bool isChoice =
        isNumber && isWholeNumber(stored) && DBSettingsHelper::paramValues(parameter.key).count(number) > 0;
    return isChoice ? Kind::None : Kind::UnknownChoice;
}

QString shownChoice(const Parameter &parameter, const QVariant &stored)
{
    const auto choices = DBSettingsHelper::paramValues(parameter.key);
    const auto found = choices.find(unsigned(qtcompat::numberText(stored).toInt()));
    return QString::number(found == choices.end() ? choices.begin()->first : found->first);
}

QString allowedChoices(const Parameter &parameter)
{
    QStringList choices;
    for (const auto &[number, caption] : DBSettingsHelper::paramValues(parameter.key))
        choices.append(QStringLiteral("%1 (%2)").arg(QString::number(number), caption));
    return ParameterDomain::tr("Допустимые значения: %1.").arg(choices.join(QStringLiteral(", ")));
}

// A flag in a check box

struct FlagWord
{
    const char *word;
    const char *stored;
};
constexpr FlagWord flagWords[] = {
    {"true", "true"},
    {"yes", "true"},
    {"1", "true"},
    {"false", "false"},
    {"no", "false"},
    {"0", "false"},
    //: What a user types to switch a flag on, in lower case.
    {QT_TRANSLATE_NOOP("ParameterDomain", "да"), "true"},
    //: What a user types to switch a flag off, in lower case.
    {QT_TRANSLATE_NOOP("ParameterDomain", "нет"), "false"},
};

QString flag(const Parameter &, const QString &words)
{
    return ParameterDomain::storedFlag(words);
}

Kind flagProblem(const Parameter &, const QString &stored)
{
    for (const char *flag : {"true", "false", "1", "0"}) {
        if (stored == QLatin1String(flag))
            return Kind::None;
    }
    return Kind::NotAFlag;
}

QString shownFlag(const Parameter &, const QVariant &stored)
{
    return QVariant(stored.toBool()).toString();
}

QString allowedFlags(const Parameter &)
{
    return ParameterDomain::tr("Допустимые значения: true (да), false (нет).");
}

// A reference in an object selector

Presence presence(const Parameter &parameter, unsigned int uid)
{
    const bool isProfile = DBSettingsHelper::paramType(parameter.key) == DBSettingsType::SmartCardProfileSelector;
    const QString dataName = isProfile ? vantorix::SMARTCARD_PROFILE_DATANAME : vantorix::ORGSTRUCTURE_DATANAME;
    return parameter.objects.presence(dataName, uid);
}

QString reference(const Parameter &, const QString &words)
{
    return words.isEmpty() ? QStringLiteral("0") : plainNumber(words);
}

/// In the order of Presence.
constexpr Kind presenceProblems[] = {Kind::ObjectGone, Kind::ObjectOfOtherType, Kind::ObjectNotGranted, Kind::None};

Kind referenceProblem(const Parameter &parameter, const QString &stored)
{
    if (stored.isEmpty() || stored == QLatin1String("0"))
        return Kind::None; // nothing is chosen
    if (!isWholeNumber(stored))
        return Kind::NotANumber;
    return presenceProblems[int(presence(parameter, stored.toUInt()))];
}

QString shownReference(const Parameter &parameter, const QVariant &stored)
{
    const unsigned int uid = qtcompat::numberText(stored).toUInt();
    return QString::number(presence(parameter, uid) == Presence::Choosable ? uid : 0);
}

QString allowedReferences(const Parameter &)
{
    return ParameterDomain::tr("Допустим номер объекта, который предлагает страница настроек, или 0: не выбран.");
}

// A text in a line edit

constexpr int longestLine = 32767; // what a line edit takes

bool isControl(QChar c)
{
    return c.category() == QChar::Other_Control;
}

QString line(const Parameter &, const QString &words)
{
    return words;
}

Kind lineProblem(const Parameter &, const QString &stored)
{
    if (stored.size() > longestLine)
        return Kind::TooLong;
    const bool isLine = stored.isValidUtf16() && std::none_of(stored.begin(), stored.end(), isControl);
    return isLine ? Kind::None : Kind::NotALine;
}

QString shownLine(const Parameter &, const QVariant &stored)
{
    return stored.toString().left(longestLine);
}

QString allowedLines(const Parameter &)
{
    return ParameterDomain::tr("Допустима одна строка длиной до %1 знаков.").arg(longestLine);
}

/// What an editor kind makes of texts.
struct Editor
{
    DBSettingsType type;
    QString (*stored)(const Parameter &parameter, const QString &words);
    Kind (*problem)(const Parameter &parameter, const QString &stored);
    QString (*shown)(const Parameter &parameter, const QVariant &stored);
    QString (*allowed)(const Parameter &parameter);
};

// clang-format off
constexpr Editor editors[] = {
    {DBSettingsType::CheckBox,                 flag,      flagProblem,      shownFlag,      allowedFlags},
    {DBSettingsType::ComboBox,                 choice,    choiceProblem,    shownChoice,    allowedChoices},
    {DBSettingsType::SpinBox,                  number,    numberProblem,    shownNumber,    allowedNumbers},
    {DBSettingsType::OrgstructureSelector,     reference, referenceProblem, shownReference, allowedReferences},
    {DBSettingsType::SmartCardProfileSelector, reference, referenceProblem, shownReference, allowedReferences},
    {DBSettingsType::LineEdit,                 line,      lineProblem,      shownLine,      allowedLines},
    {DBSettingsType::Password,                 line,      lineProblem,      shownLine,      allowedLines},
    {DBSettingsType::Readonly,                 line,      lineProblem,      shownLine,      allowedLines},
};
// clang-format on

const Editor &editorOf(const QString &parameter)
{
    const DBSettingsType type = DBSettingsHelper::paramType(parameter);
    const auto found = std::find_if(std::begin(editors), std::end(editors),
                                    [type](const Editor &editor) { return editor.type == type; });
    Q_ASSERT(found != std::end(editors));
    return *found;
}
} // namespace

ParameterDomain::ParameterDomain(const QString &parameter, const ObjectIndex &objects)
    : m_parameter(parameter)
    , m_objects(objects)
{}

QString ParameterDomain::stored(const QString &words) const
{
    return editorOf(m_parameter).stored({m_parameter, m_objects}, words);
}

QString ParameterDomain::storedFlag(const QString &words)
{
    for (const FlagWord &known : flagWords) {
        const QString word = QString::fromUtf8(known.word);
        const QString translated = tr(known.word);
        if (areAlike(words, word) || areAlike(words, translated))
            return QString::fromLatin1(known.stored);
    }
    return words;
}

Kind ParameterDomain::problem(const QString &stored) const
{
    return editorOf(m_parameter).problem({m_parameter, m_objects}, stored);
}

QString ParameterDomain::shown(const QVariant &stored) const
{
    return editorOf(m_parameter).shown({m_parameter, m_objects}, stored);
}

QString ParameterDomain::allowed() const
{
    return editorOf(m_parameter).allowed({m_parameter, m_objects});
}
