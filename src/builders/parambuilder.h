#pragma once

#include "dbsettingsbuilder.h"

#include <vxsettings/dbsettingsvalue.h>

#include <QString>

class QVariant;

/// Builds one parameter: fills an editor from the catalogue and from the stored settings.
class VXSETTINGS_AUTOTEST_EXPORT ParamBuilder : public DBSettingsBuilder
{
public:
    /// @p parent becomes the editor's parent; @p rootWidget is only named in the log. @p key must outlive the builder.
    ParamBuilder(DBGroups group, const QString &key, QWidget *rootWidget, QWidget *parent);
    ~ParamBuilder() override;

    std::unique_ptr<DBSettings> getSettings() override;
    DBSettingsType type() const override;
    DBSettingsBuilder &createWidget() override;
    DBSettingsBuilder &createTitle() override;
    DBSettingsBuilder &createKey() override;
    DBSettingsBuilder &createValue() override;
    DBSettingsBuilder &createParamValues() override;
    DBSettingsBuilder &createParamRange() override;
    /// The builder only borrows @p widget; createWidget() makes the node own it.
    DBSettingsBuilder &setParamWidget(DBParamWidget *widget) override;
    DBSettingsBuilder &setReadonly() override;
    DBSettingsBuilder &createSpecialValue() override;
    DBSettingsBuilder &createInvertedValue() override;
    DBSettingsBuilder &createToolTip() override;

protected:
    /// The editor once the node owns it, else null.
    DBParamWidget *boundEditor() const;
    DBGroups group() const;
    const QString &key() const;

private:
    std::unique_ptr<DBSettingsValue> m_node;
    DBGroups m_group;
    const QString &m_key;
    QWidget *m_rootWidget;
    QWidget *m_parent;
    DBParamWidget *m_editor = nullptr; // not owned
};
