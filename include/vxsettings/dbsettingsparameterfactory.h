#pragma once

#include <vxsettings/dbsettings.h>

#include <QString>

/// Builds single parameters.
class VXSETTINGS_EXPORT DBSettingsParameterFactory
{
public:
    /// Builds the editor of @p key, filled from vantorix::LocalStorage, as a child of @p parent.
    ///
    /// In a group of 14 and above the key is a member of that group's JSON object, else a stored key. A key that holds
    /// a JSON object yields a JsonGroup, whose frame becomes a child of @p rootWidget; any other a DBSettingsValue,
    /// without a widget if the catalogue has no editor for the key. The caller owns the result; it is never null.
    static std::unique_ptr<DBSettings> create(DBGroups group, const QString &key, QWidget *rootWidget, QWidget *parent);
};
