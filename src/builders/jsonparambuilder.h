#pragma once

#include "parambuilder.h"

/// Builds one member of a JSON setting: its stored value is a member of the group's JSON object.
class VXSETTINGS_AUTOTEST_EXPORT JsonParamBuilder : public ParamBuilder
{
public:
    using ParamBuilder::ParamBuilder;

    /// A member that is missing, or that cannot be read because the stored text is no JSON object, is an invalid value.
    DBSettingsBuilder &createValue() override;
    DBSettingsBuilder &createInvertedValue() override;
};
