#include "settingswidgets.h"

#include "settingswidget.h"

#include <vxsettings/dbbuttonwidget.h>
#include <vxsettings/dbcheckboxwidget.h>
#include <vxsettings/dbcomboboxwidget.h>
#include <vxsettings/dblineeditwidget.h>
#include <vxsettings/dbobjselectorwidget.h>
#include <vxsettings/dbpasswordwidget.h>
#include <vxsettings/dbspinboxwidget.h>
#include <vxsettings/dependentwidgetsbox.h>

namespace {

template <typename Widget>
QWidget *create(QWidget *parent)
{
    return new Widget(parent);
}

// clang-format off
constexpr SettingsWidget::Description descriptions[] = {
    {"DBCheckBoxWidget",    "checkbox",    QT_TRANSLATE_NOOP("SettingsWidget", "Параметр «да или нет»"),             create<DBCheckBoxWidget>,    true},
    {"DBComboBoxWidget",    "combobox",    QT_TRANSLATE_NOOP("SettingsWidget", "Параметр с выбором из списка"),      create<DBComboBoxWidget>,    true},
    {"DBLineEditWidget",    "lineedit",    QT_TRANSLATE_NOOP("SettingsWidget", "Параметр — строка"),                 create<DBLineEditWidget>,    true},
    {"DBPasswordWidget",    "password",    QT_TRANSLATE_NOOP("SettingsWidget", "Параметр — пароль или токен"),       create<DBPasswordWidget>,    true},
    {"DBSpinBoxWidget",     "spinbox",     QT_TRANSLATE_NOOP("SettingsWidget", "Параметр — целое число в границах"), create<DBSpinBoxWidget>,     true},
    {"DBButtonWidget",      "button",      QT_TRANSLATE_NOOP("SettingsWidget", "Параметр — ключ смарт-карты"),       create<DBButtonWidget>,      true},
    {"DBObjSelectorWidget", "objselector", QT_TRANSLATE_NOOP("SettingsWidget", "Параметр — подразделение"),          create<DBObjSelectorWidget>, true},
    {"DependentWidgetsBox", "dependent",   QT_TRANSLATE_NOOP("SettingsWidget", "Группа зависимых флажков"),          create<DependentWidgetsBox>, false},
};
// clang-format on
} // namespace

SettingsWidgets::SettingsWidgets(QObject *parent)
    : QObject(parent)
{
    for (const SettingsWidget::Description &description : descriptions)
        m_widgets.append(new SettingsWidget(description, this));
}

QList<QDesignerCustomWidgetInterface *> SettingsWidgets::customWidgets() const
{
    return m_widgets;
}
