#include "dbsettingsbuilder.h"

DBSettingsBuilder::~DBSettingsBuilder() = default;

DBSettingsBuilder &DBSettingsBuilder::createIcon()
{
    return *this;
}

DBSettingsBuilder &DBSettingsBuilder::createTitle()
{
    return *this;
}

DBSettingsBuilder &DBSettingsBuilder::createKey()
{
    return *this;
}

DBSettingsBuilder &DBSettingsBuilder::createValue()
{
    return *this;
}

DBSettingsBuilder &DBSettingsBuilder::createParamValues()
{
    return *this;
}

DBSettingsBuilder &DBSettingsBuilder::createParamRange()
{
    return *this;
}

DBSettingsBuilder &DBSettingsBuilder::setParamWidget(DBParamWidget *)
{
    return *this;
}

DBSettingsBuilder &DBSettingsBuilder::setReadonly()
{
    return *this;
}

DBSettingsBuilder &DBSettingsBuilder::createSpecialValue()
{
    return *this;
}

DBSettingsBuilder &DBSettingsBuilder::createInvertedValue()
{
    return *this;
}

DBSettingsBuilder &DBSettingsBuilder::createToolTip()
{
    return *this;
}
