#include "dbdirector.h"

#include "dbsettingsbuilder.h"

#include <vxsettings/dbcheckboxwidget.h>
#include <vxsettings/dbcomboboxwidget.h>
#include <vxsettings/dbkeys.h>
#include <vxsettings/dblineeditwidget.h>
#include <vxsettings/dbobjselectorwidget.h>
#include <vxsettings/dbpasswordwidget.h>
#include <vxsettings/dbspinboxwidget.h>

DBDirector::DBDirector(DBSettingsBuilder &builder)
    : m_builder(builder)
{}

void DBDirector::makeGroup()
{
    m_builder.createWidget().createTitle().createIcon();
}

void DBDirector::makeReadonlySetting()
{
    m_builder.setParamWidget(new DBLineEditWidget(nullptr))
        .createWidget()
        .createTitle()
        .createKey()
        .createValue()
        .setReadonly();
}

void DBDirector::makeLineEditSetting()
{
    m_builder.setParamWidget(new DBLineEditWidget(nullptr))
        .createWidget()
        .createTitle()
        .createKey()
        .createValue()
        .createToolTip();
}

void DBDirector::makePasswordSetting()
{
    m_builder.setParamWidget(new DBPasswordWidget(nullptr))
        .createWidget()
        .createTitle()
        .createKey()
        .createValue()
        .createToolTip();
}

void DBDirector::makeComboBoxSetting()
{
    m_builder.setParamWidget(new DBComboBoxWidget(nullptr))
        .createWidget()
        .createTitle()
        .createKey()
        .createValue()
        .createParamValues()
        .createToolTip();
}

void DBDirector::makeOrgstructureSelectorSetting()
{
    m_builder.setParamWidget(new DBObjSelectorWidget(vantorix::ORGSTRUCTURE_DATANAME, nullptr))
        .createWidget()
        .createTitle()
        .createKey()
        .createValue()
        .createParamValues()
        .createToolTip();
}

void DBDirector::makeSmartCardProfileSelectorSetting()
{
    m_builder.setParamWidget(new DBObjSelectorWidget(vantorix::SMARTCARD_PROFILE_DATANAME, nullptr))
        .createWidget()
        .createTitle()
        .createKey()
        .createValue()
        .createParamValues()
        .createToolTip();
}

void DBDirector::makeCheckBoxSetting()
{
    m_builder.setParamWidget(new DBCheckBoxWidget(nullptr))
        .createWidget()
        .createTitle()
        .createKey()
        .createValue()
        .createInvertedValue();
}

void DBDirector::makeSpinBoxSetting()
{
    m_builder.setParamWidget(new DBSpinBoxWidget(nullptr))
        .createWidget()
        .createTitle()
        .createKey()
        .createValue()
        .createParamRange()
        .createSpecialValue()
        .createToolTip();
}

void DBDirector::makeJsonGroup()
{
    m_builder.createWidget().createTitle().createKey();
}
