#pragma once

#include <vxsettings/dbsettingstypes.h>
#include <vxsettings/objectparameters.h>
#include <vxsettings/vxsettings_export.h>

#include <memory>

class DBSettingsGroup;
class QWidget;

/// A node of a settings tree: a group, or one parameter.
///
/// The tree keeps no values. Every value lives in an editor, which was filled from storage when the tree was built.
/// A node whose widget is missing, or was deleted by its Qt parent, has nothing to do and says nothing. GUI thread
/// only.
class VXSETTINGS_EXPORT DBSettings
{
public:
    DBSettings() = default;
    /// Deletes the node's widget unless somebody else still holds its handle.
    virtual ~DBSettings();
    DBSettings(const DBSettings &) = delete;
    DBSettings &operator=(const DBSettings &) = delete;

    /// What the editors show now, as stored key → text. A JSON group yields one entry: its key → one JSON object.
    virtual vantorix::OBJECT_PARAMETERS parameters() const = 0;
    /// The group's frame or the parameter's editor, shared with the node; empty if there is none (any more).
    virtual std::shared_ptr<QWidget> widget() const = 0;
    /// The editor kind of a parameter; what a group answers says DBSettingsGroup.
    virtual DBSettingsType type() const = 0;
    /// Puts every editor back to its stored value.
    virtual void setDefaultValue() = 0;
    /// Makes what every editor shows its stored value, typically after it was saved.
    virtual void updateDefaultValue() = 0;
    /// Whether this is a DBSettingsGroup, plain or JSON.
    virtual bool isGroup() const = 0;

    /// This node as a group, unchecked: ask isGroup() first.
    DBSettingsGroup *toGroup();
};
