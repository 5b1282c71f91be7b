#pragma once

#include "autotestexport.h"

#include <vxsettings/dbsettings.h>

#include <memory>

class DBParamWidget;

/// Builds one settings node step by step, under a director.
///
/// A concrete builder overrides the steps that mean something for its node; the others do nothing. Every step answers
/// the builder itself, so that a recipe is one chain of calls.
class VXSETTINGS_AUTOTEST_EXPORT DBSettingsBuilder
{
public:
    DBSettingsBuilder() = default;
    virtual ~DBSettingsBuilder();
    Q_DISABLE_COPY(DBSettingsBuilder)

    /// Hands the node over; the builder holds nothing afterwards.
    virtual std::unique_ptr<DBSettings> getSettings() = 0;
    virtual DBSettingsType type() const = 0;
    virtual DBSettingsBuilder &createWidget() = 0;

    virtual DBSettingsBuilder &createIcon();
    virtual DBSettingsBuilder &createTitle();
    virtual DBSettingsBuilder &createKey();
    virtual DBSettingsBuilder &createValue();
    virtual DBSettingsBuilder &createParamValues();
    virtual DBSettingsBuilder &createParamRange();
    virtual DBSettingsBuilder &setParamWidget(DBParamWidget *widget);
    virtual DBSettingsBuilder &setReadonly();
    virtual DBSettingsBuilder &createSpecialValue();
    virtual DBSettingsBuilder &createInvertedValue();
    virtual DBSettingsBuilder &createToolTip();
};
