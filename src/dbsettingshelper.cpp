#include <vxsettings/dbsettingshelper.h>
#include <vxsettings/dbsettingslanguage.h>

#include "catalogue.h"
#include "dbsc.h"

#include <qtcompat.h>

#include <QHash>
#include <QVariant>

using catalogue::EnabledWhen;

namespace {

constexpr LogPoint nameMiss{"src/dbsettingshelper", 345, "static QString DBSettingsHelper::paramName(const QString&)"};
constexpr LogPoint typeMiss{"src/dbsettingshelper", 262,
                            "static DBSettingsType DBSettingsHelper::paramType(const QString&)"};

void reportMiss(const LogPoint &point, const QString &key)
{
    if (dbsc().isCriticalEnabled())
        point().critical() << "dbsettings does not contain parameter" << key;
}

/// Null for a row without that text.
QString translated(const char *text)
{
    return text ? DBSettingsLanguage::translated(text) : QString();
}
} // namespace

QString DBSettingsHelper::groupName(DBGroups group)
{
    const catalogue::Group *row = catalogue::findGroup(group);
    return row ? translated(row->title) : QString();
}

QString DBSettingsHelper::groupIconName(DBGroups group)
{
    const catalogue::Group *row = catalogue::findGroup(group);
    return row ? QString::fromLatin1(row->icon) : QString();
}

QStringList DBSettingsHelper::groupParams(DBGroups group)
{
    if (const catalogue::Group *row = catalogue::findGroup(group)) {
        QStringList keys;
        keys.reserve(int(row->parameters.count));
        for (const catalogue::Parameter &parameter : row->parameters)
            keys.append(*parameter.key);
        return keys;
    }
    static QHash<int, QStringList> misses;
    return misses[int(group)];
}

LabelPosition DBSettingsHelper::labelsPosition(DBGroups group)
{
    if (const catalogue::Group *row = catalogue::findGroup(group))
        return row->labels;
    static QHash<int, LabelPosition> misses;
    return misses[int(group)];
}

LayoutConcrete DBSettingsHelper::groupLayout(DBGroups group)
{
    if (const catalogue::Group *row = catalogue::findGroup(group))
        return {row->columnCount, {}};
    static QHash<int, LayoutConcrete> misses;
    return misses[int(group)];
}

QString DBSettingsHelper::jsonParam(DBGroups group)
{
    const catalogue::Group *row = catalogue::findGroup(group);
    if (row && row->jsonParam)
        return *row->jsonParam;
    static QHash<int, QString> misses;
    return misses[int(group)];
}

DBGroups DBSettingsHelper::jsonGroup(const QString &key)
{
    if (const catalogue::Group *row = catalogue::findJsonGroup(key))
        return row->id;
    static QHash<QString, DBGroups> misses;
    return misses[key];
}

QString DBSettingsHelper::paramName(const QString &key)
{
    const catalogue::Parameter *parameter = catalogue::findParameter(key);
    if (parameter && parameter->caption)
        return translated(parameter->caption);

    reportMiss(nameMiss, key);
    return {};
}

DBSettingsType DBSettingsHelper::paramType(const QString &key)
{
    if (const catalogue::Parameter *parameter = catalogue::findParameter(key))
        return parameter->type;

    // Reported once per process, unlike a missing caption: every page that is built asks for the type.
    static QHash<QString, DBSettingsType> misses;
    if (!misses.contains(key))
        reportMiss(typeMiss, key);
    return misses[key];
}

QString DBSettingsHelper::toolTip(const QString &key)
{
    const catalogue::Parameter *parameter = catalogue::findParameter(key);
    return parameter ? translated(parameter->toolTip) : QString();
}

std::map<unsigned int, QString> DBSettingsHelper::paramValues(const QString &key)
{
    std::map<unsigned int, QString> values;
    if (const catalogue::Parameter *parameter = catalogue::findParameter(key)) {
        for (const catalogue::Choice &choice : parameter->choices)
            values.emplace_hint(values.end(), choice.value, translated(choice.caption));
    }
    return values;
}

std::pair<int, int> DBSettingsHelper::paramRange(const QString &key)
{
    const catalogue::Parameter *parameter = catalogue::findParameter(key);
    if (parameter && parameter->type == DBSettingsType::SpinBox)
        return parameter->range;
    static QHash<QString, std::pair<int, int>> misses;
    return misses[key];
}

QString DBSettingsHelper::paramSpecialValue(const QString &key)
{
    const catalogue::Parameter *parameter = catalogue::findParameter(key);
    return parameter ? translated(parameter->specialValue) : QString();
}

bool DBSettingsHelper::isInvertedValue(const QString &)
{
    return false;
}

QStringList DBSettingsHelper::paramChilds(const QString &parentKey)
{
    QStringList children;
    if (const catalogue::Dependency *dependency = catalogue::findDependency(parentKey)) {
        for (const QString *child : dependency->children)
            children.append(*child);
    }
    return children;
}

bool DBSettingsHelper::paramChildIsEnabled(const QString &parentKey, const QVariant &parentValue, const QString &)
{
    const catalogue::Dependency *dependency = catalogue::findDependency(parentKey);
    if (!dependency)
        return true;
    switch (dependency->rule) {
    case EnabledWhen::One:
        return qtcompat::numberText(parentValue).toUInt() == 1;
    case EnabledWhen::True:
        return parentValue.toBool();
    case EnabledWhen::False:
        return !parentValue.toBool();
    }
    Q_UNREACHABLE();
}
