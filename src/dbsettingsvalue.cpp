#include <vxsettings/dbsettingsvalue.h>

#include "widgethandle.h"

#include <vxsettings/dbparamwidget.h>

using vantorix::OBJECT_PARAMETERS;

DBSettingsValue::DBSettingsValue() = default;

DBSettingsValue::~DBSettingsValue() = default;

OBJECT_PARAMETERS DBSettingsValue::parameters() const
{
    const auto *editor = qobject_cast<DBParamWidget *>(widget().get());
    if (!editor)
        return {};
    return {{editor->key(), editor->value().toString()}};
}

std::shared_ptr<QWidget> DBSettingsValue::widget() const
{
    return widgethandle::alive(m_widget);
}

DBSettingsType DBSettingsValue::type() const
{
    return m_type;
}

void DBSettingsValue::setDefaultValue()
{
    if (auto *editor = qobject_cast<DBParamWidget *>(widget().get()))
        editor->setDefaultValue();
}

void DBSettingsValue::updateDefaultValue()
{
    if (auto *editor = qobject_cast<DBParamWidget *>(widget().get()))
        editor->setValue(editor->value());
}

bool DBSettingsValue::isGroup() const
{
    return false;
}

void DBSettingsValue::setType(DBSettingsType type)
{
    m_type = type;
}

void DBSettingsValue::setWidget(QWidget *widget)
{
    widgethandle::reset(m_widget, widget);
}
