#pragma once

#include <vxsettings/dbsettingstypes.h>
#include <vxsettings/vxsettings_export.h>

#include <QString>
#include <QStringList>

#include <map>
#include <utility>

class QVariant;

/// What the compiled-in catalogue knows of groups and parameters.
///
/// Keys are the texts of dbkeys.h, compared case-sensitively. Captions, titles, choices, special values and tool tips
/// come in the language installed at the time of the call. Nothing throws: an unknown group or key yields the neutral
/// value named below. GUI thread only.
class VXSETTINGS_EXPORT DBSettingsHelper
{
public:
    /// The title; empty for a group that is not in the catalogue.
    static QString groupName(DBGroups group);
    /// A theme icon name; null for a group without an icon, as all JSON groups are.
    static QString groupIconName(DBGroups group);
    /// The parameters in display order; empty for a group that is not in the catalogue.
    static QStringList groupParams(DBGroups group);
    /// Where the group's editors show their captions; LabelPosition::None for a group that is not in the catalogue.
    static LabelPosition labelsPosition(DBGroups group);
    /// How the group's editors are laid out; one column unless the catalogue says otherwise.
    static LayoutConcrete groupLayout(DBGroups group);
    /// The stored key of the JSON object that the group edits; empty for any but the JSON groups.
    static QString jsonParam(DBGroups group);
    /// The group that edits the JSON object stored under @p key; DBGroups::Database for any key but the JSON settings.
    static DBGroups jsonGroup(const QString &key);

    /// The caption. Null, and a critical message on every call, for a key without one; JSON settings have none.
    static QString paramName(const QString &key);
    /// The editor kind. DBSettingsType::Unknown, and a critical message on the first call, for an unknown key.
    static DBSettingsType paramType(const QString &key);
    /// Rich text for a tool tip; null for most keys.
    static QString toolTip(const QString &key);

    /// Stored number → caption, ascending; empty for anything but a combo box.
    static std::map<unsigned int, QString> paramValues(const QString &key);
    /// Inclusive {minimum, maximum} in the unit that the caption names; {0, 0} for anything but a spin box.
    static std::pair<int, int> paramRange(const QString &key);
    /// What a spin box shows instead of its minimum; null if it shows the number.
    static QString paramSpecialValue(const QString &key);
    /// Whether the stored value is the negation of what the editor shows; no parameter of the catalogue is.
    static bool isInvertedValue(const QString &key);

    /// The parameters that @p parentKey switches on and off, in display order; empty for most keys.
    static QStringList paramChilds(const QString &parentKey);
    /// Whether a dependent of @p parentKey is enabled while that holds @p parentValue, as text or in the editor's type.
    /// All dependents of one parent are enabled together; those of an unknown parent always are.
    static bool paramChildIsEnabled(const QString &parentKey, const QVariant &parentValue, const QString &childKey);
};
