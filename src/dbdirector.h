#pragma once

#include "autotestexport.h"

class DBSettingsBuilder;

/// Knows, for each kind of node, which steps a builder takes in which order.
///
/// An editor gets its stored value after its caption and key, but before its choices or its range.
class VXSETTINGS_AUTOTEST_EXPORT DBDirector
{
public:
    /// @p builder must outlive the director.
    explicit DBDirector(DBSettingsBuilder &builder);

    void makeGroup();
    void makeReadonlySetting();
    void makeLineEditSetting();
    void makePasswordSetting();
    void makeComboBoxSetting();
    void makeOrgstructureSelectorSetting();
    void makeSmartCardProfileSelectorSetting();
    void makeCheckBoxSetting();
    void makeSpinBoxSetting();
    void makeJsonGroup();

private:
    DBSettingsBuilder &m_builder;
};
