#include "cataloguereference.h"

#include <parameterkind.h>

#include <host/jsonmembers.h>
#include <host/parameterdomain.h>
#include <host/settingspages.h>
#include <host/settingwords.h>

#include <vxsettings/dbsettingshelper.h>

#include <QSet>
#include <QVector>

#include <algorithm>

namespace {

constexpr char lineBreak[] = "<br>";

constexpr char introduction[] = R"(# Settings reference

<!-- Made by scripts/update-reference.sh from the catalogue; change that instead. -->

Every group and parameter, page by page, in the order in which they are shown: %1 groups, %2 parameters. Captions and
choices are in English and in Russian, which is the language of the sources. `vxsettingsctl describe KEY` tells the same of
one parameter.

Everything is stored as text, by the kind of the parameter:

| Kind | What is stored |
|---|---|
| number | a whole number in decimal digits, within the range, both ends included |
| choice | the number of the choice |
| flag | `true` or `false` |
| text | one line without control characters |
| secret | the same; never shown, logged or exported unless asked for |
| department, smart-card-profile | the number of the object, `0` for none |
| json-object | one JSON object with a string for each member |
| read-only | a text that no editor changes |

"Switches" names the values with which other parameters are enabled, and these parameters; with any other value they are
disabled. A parameter of a JSON setting is a member of the object stored under the setting's key, and is addressed as
`KEY.member`. A name that two objects have in common is one parameter.
)";

struct LabelWords
{
    LabelPosition position;
    const char *words;
};
constexpr LabelWords labelWords[] = {
    {LabelPosition::None, "no captions"},           {LabelPosition::Left, "captions on the left"},
    {LabelPosition::Top, "captions above"},         {LabelPosition::Right, "captions on the right"},
    {LabelPosition::Bottom, "captions underneath"},
};

QString code(const QString &text)
{
    return QLatin1Char('`') + text + QLatin1Char('`');
}

QString codeList(const QStringList &texts)
{
    QStringList coded;
    for (const QString &text : texts)
        coded.append(code(text));
    return coded.join(QStringLiteral(", "));
}

bool isJsonSetting(const QString &parameter)
{
    return DBSettingsHelper::paramType(parameter) == DBSettingsType::JsonGroup;
}

QString labels(DBGroups group)
{
    for (const LabelWords &row : labelWords) {
        if (row.position == DBSettingsHelper::labelsPosition(group))
            return QString::fromLatin1(row.words);
    }
    Q_UNREACHABLE();
}

/// Every value of a choice or a flag as it is stored.
QStringList allValues(const QString &parameter)
{
    if (DBSettingsHelper::paramType(parameter) == DBSettingsType::CheckBox)
        return {QStringLiteral("true"), QStringLiteral("false")};
    QStringList values;
    for (const auto &choice : DBSettingsHelper::paramValues(parameter))
        values.append(QString::number(choice.first));
    return values;
}

/// What the parameter switches on, and with which values.
QString dependents(const QString &parameter)
{
    const QStringList children = DBSettingsHelper::paramChilds(parameter);
    if (children.isEmpty())
        return {};
    QStringList enabling = allValues(parameter); // all dependents follow one rule
    enabling.erase(std::remove_if(enabling.begin(), enabling.end(),
                                  [&](const QString &value) {
                                      return !DBSettingsHelper::paramChildIsEnabled(parameter, value, children.first());
                                  }),
                   enabling.end());
    return QStringLiteral("%1: %2").arg(codeList(enabling), codeList(children));
}

/// What is stored when all members are as a page shows them with nothing stored.
QString shape(const QString &key)
{
    const ObjectIndex noObjects({});
    JsonMembers members;
    for (const QString &name : DBSettingsHelper::groupParams(DBSettingsHelper::jsonGroup(key)))
        members.setText(name, ParameterDomain(name, noObjects).shown({}));
    return members.text();
}
/// Pages and the JSON groups inside them.
QVector<DBGroups> allGroups()
{
    QVector<DBGroups> groups;
    for (const SettingsPageName &page : settingsPages) {
        groups.append(page.group);
        for (const QString &parameter : DBSettingsHelper::groupParams(page.group)) {
            if (isJsonSetting(parameter))
                groups.append(DBSettingsHelper::jsonGroup(parameter));
        }
    }
    return groups;
}

QString introductionText()
{
    const QVector<DBGroups> groups = allGroups();
    QSet<QString> parameters;
    for (const DBGroups group : groups) {
        for (const QString &parameter : DBSettingsHelper::groupParams(group))
            parameters.insert(parameter);
    }
    return QString::fromUtf8(introduction).arg(groups.size()).arg(parameters.size());
}
} // namespace

QString CatalogueReference::text() const
{
    QString text = introductionText();
    for (const SettingsPageName &page : settingsPages)
        text += this->page(page.group, QString::fromLatin1(page.name));
    return text;
}

QString CatalogueReference::page(DBGroups group, const QString &name) const
{
    const QString title = m_languages.both([group] { return DBSettingsHelper::groupName(group); });
    QString text = QStringLiteral("\n## %1\n\nPage %2, %3, icon %4.\n\n")
                       .arg(title, code(name), groupFacts(group), code(DBSettingsHelper::groupIconName(group)));
    text += table(group) + toolTips(group);
    for (const QString &parameter : DBSettingsHelper::groupParams(group)) {
        if (isJsonSetting(parameter))
            text += jsonSetting(parameter);
    }
    return text;
}

QString CatalogueReference::jsonSetting(const QString &key) const
{
    const DBGroups group = DBSettingsHelper::jsonGroup(key);
    return QStringLiteral("\n### Members of `%1`\n\nInside the page above: %2. [JSON Schema](schema/%1.json)\n\n%3\n"
                          "What a page shows, and an edit stores, where nothing is stored yet:\n\n```json\n%4```\n")
        .arg(key, groupFacts(group), table(group), shape(key));
}

QString CatalogueReference::groupFacts(DBGroups group) const
{
    const int columns = DBSettingsHelper::groupLayout(group).columnCount;
    return QStringLiteral("group %1, %2, %3")
        .arg(QString::number(int(group)),
             columns == 1 ? QStringLiteral("one column") : QStringLiteral("%1 columns").arg(columns), labels(group));
}

QString CatalogueReference::table(DBGroups group) const
{
    QString text = QStringLiteral("| Key | Caption | Kind | Values | Switches |\n|---|---|---|---|---|\n");
    for (const QString &parameter : DBSettingsHelper::groupParams(group))
        text += row(parameter);
    return text;
}

QString CatalogueReference::row(const QString &parameter) const
{
    const QStringList cells{code(parameter), caption(parameter), ParameterKind::name(parameter), values(parameter),
                            dependents(parameter)};
    return QStringLiteral("| %1 |\n").arg(cells.join(QStringLiteral(" | ")));
}

QString CatalogueReference::caption(const QString &parameter) const
{
    return m_languages.both([&parameter] { return SettingWords::caption(parameter); }, QLatin1String(lineBreak));
}

QString CatalogueReference::values(const QString &parameter) const
{
    switch (DBSettingsHelper::paramType(parameter)) {
    case DBSettingsType::ComboBox:
        return choices(parameter);
    case DBSettingsType::SpinBox:
        return range(parameter);
    case DBSettingsType::JsonGroup:
        return QStringLiteral("its members, below");
    default:
        return {};
    }
}

QString CatalogueReference::choices(const QString &parameter) const
{
    QStringList lines;
    for (const auto &choice : DBSettingsHelper::paramValues(parameter)) {
        const unsigned int number = choice.first;
        const QString caption = m_languages.both([&] { return DBSettingsHelper::paramValues(parameter).at(number); });
        lines.append(QStringLiteral("%1 %2").arg(code(QString::number(number)), caption));
    }
    return lines.join(QLatin1String(lineBreak));
}

QString CatalogueReference::range(const QString &parameter) const
{
    const auto [minimum, maximum] = DBSettingsHelper::paramRange(parameter);
    const QString range = QStringLiteral("%1 … %2").arg(minimum).arg(maximum);
    const QString special = m_languages.both([&parameter] { return DBSettingsHelper::paramSpecialValue(parameter); });
    return special.isEmpty()
               ? range
               : range + QLatin1String(lineBreak) + code(QString::number(minimum)) + QLatin1Char(' ') + special;
}

QString CatalogueReference::toolTips(DBGroups group) const
{
    QString text;
    for (const QString &parameter : DBSettingsHelper::groupParams(group)) {
        const QString toolTip =
            m_languages.both([&parameter] { return DBSettingsHelper::toolTip(parameter); }, QStringLiteral("\n\n> "));
        if (!toolTip.isEmpty())
            text += QStringLiteral("\nTool tip of %1:\n\n> %2\n").arg(code(parameter), toolTip);
    }
    return text.remove(QStringLiteral("<html>")).remove(QStringLiteral("</html>"));
}
