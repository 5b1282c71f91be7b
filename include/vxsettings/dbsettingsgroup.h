#pragma once

#include <vxsettings/dbsettings.h>

#include <QString>
#include <QStringList>
#include <QVariant>

#include <vector>

/// A titled group of parameters: owns its child nodes and one frame widget.
///
/// The lookups by key search the widgets below the frame, not the child nodes. Editors of nested groups are found too;
/// keys are compared case-sensitively; an unknown key is silently nothing.
class VXSETTINGS_EXPORT DBSettingsGroup : public DBSettings
{
public:
    /// @p id is the DBGroups value, or -1 for the node of a nested JSON group.
    explicit DBSettingsGroup(int id);
    /// Deletes the children, then the frame. Widgets whose handle somebody else still holds leave the frame before.
    ~DBSettingsGroup() override;

    vantorix::OBJECT_PARAMETERS parameters() const override;
    std::shared_ptr<QWidget> widget() const override;
    /// 5, which no parameter has.
    DBSettingsType type() const override;
    void setDefaultValue() override;
    void updateDefaultValue() override;
    /// True.
    bool isGroup() const override;

    /// Keys of all editors below the frame, each once, in no particular order.
    virtual QStringList paramKeys() const;
    /// Enables or disables every editor whose key is in @p keys.
    virtual void setParamEnabled(const QStringList &keys, bool enabled);
    /// Enables or disables the first editor with that key.
    virtual void setParamEnabled(const QString &key, bool enabled);
    /// What the first editor with that key shows, in the editor's own type; invalid if there is none.
    virtual QVariant paramValue(const QString &key) const;

    /// Shows every text of the page in the language installed now, nested groups included. Values, edits and stored
    /// values stay, and no signal is emitted. To be called when the host's widgets get QEvent::LanguageChange: a page
    /// does not change its language by itself.
    void retranslate();

    /// The number that was given to the constructor.
    int id() const;
    /// The child nodes in display order, to read or to change.
    std::vector<std::unique_ptr<DBSettings>> &settings();
    /// The stored key of a JSON group; empty for any other group.
    void setKey(const QString &key);
    /// Takes @p widget over and drops the previous one. Null drops it; the same widget again changes nothing.
    void setWidget(QWidget *widget);

protected:
    /// What setKey() was given.
    QString key() const;

private:
    std::shared_ptr<QWidget> m_widget;
    std::vector<std::unique_ptr<DBSettings>> m_settings;
    QString m_key;
    int m_id;
};

/// A group whose parameters are the members of one JSON object, which is stored as text under the group's key.
class VXSETTINGS_EXPORT JsonGroup : public DBSettingsGroup
{
public:
    /// @p id is the DBGroups value if the group is a tree of its own, or -1 for a nested group.
    explicit JsonGroup(int id = -1);
    ~JsonGroup() override;

    /// One entry: the group's key → an indented JSON object of string members in ascending order.
    vantorix::OBJECT_PARAMETERS parameters() const override;
    /// DBSettingsType::JsonGroup.
    DBSettingsType type() const override;
};
