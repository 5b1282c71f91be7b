#pragma once

#include <vxsettings/dbsettings.h>

/// One parameter: a leaf of the settings tree that holds the parameter's editor, a DBParamWidget.
class VXSETTINGS_EXPORT DBSettingsValue : public DBSettings
{
public:
    DBSettingsValue();
    ~DBSettingsValue() override;

    /// One entry, the editor's key → its value as text; empty without an editor.
    vantorix::OBJECT_PARAMETERS parameters() const override;
    std::shared_ptr<QWidget> widget() const override;
    /// The editor kind; DBSettingsType::Unknown until setType().
    DBSettingsType type() const override;
    void setDefaultValue() override;
    void updateDefaultValue() override;
    /// False.
    bool isGroup() const override;

    /// Says what kind of editor the widget is; it is not looked at.
    void setType(DBSettingsType type);
    /// Takes @p widget over and drops the previous one. Null drops it; the same widget again changes nothing.
    void setWidget(QWidget *widget);

private:
    std::shared_ptr<QWidget> m_widget;
    DBSettingsType m_type = DBSettingsType::Unknown;
};
