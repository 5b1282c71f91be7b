#include <vxsettings/dbsettingsparameterfactory.h>

#include "builders/jsongroupbuilder.h"
#include "builders/jsonparambuilder.h"
#include "dbdirector.h"

#include <vxsettings/dbsettingshelper.h>

namespace {

using Recipe = void (DBDirector::*)();

/// Null for a type that has no editor.
Recipe recipeFor(DBSettingsType type)
{
    switch (type) {
    case DBSettingsType::CheckBox:
        return &DBDirector::makeCheckBoxSetting;
    case DBSettingsType::ComboBox:
        return &DBDirector::makeComboBoxSetting;
    case DBSettingsType::LineEdit:
        return &DBDirector::makeLineEditSetting;
    case DBSettingsType::SpinBox:
        return &DBDirector::makeSpinBoxSetting;
    case DBSettingsType::JsonGroup:
        return &DBDirector::makeJsonGroup;
    case DBSettingsType::Readonly:
        return &DBDirector::makeReadonlySetting;
    case DBSettingsType::Password:
        return &DBDirector::makePasswordSetting;
    case DBSettingsType::OrgstructureSelector:
        return &DBDirector::makeOrgstructureSelectorSetting;
    case DBSettingsType::SmartCardProfileSelector:
        return &DBDirector::makeSmartCardProfileSelectorSetting;
    case DBSettingsType::Unknown:
        break;
    }
    return nullptr;
}

std::unique_ptr<DBSettingsBuilder> paramBuilder(DBGroups group, const QString &key, QWidget *rootWidget,
                                                QWidget *parent)
{
    if (group < DBGroups::PinStrength)
        return std::make_unique<ParamBuilder>(group, key, rootWidget, parent);
    return std::make_unique<JsonParamBuilder>(group, key, rootWidget, parent);
}
} // namespace

std::unique_ptr<DBSettings> DBSettingsParameterFactory::create(DBGroups group, const QString &key, QWidget *rootWidget,
                                                               QWidget *parent)
{
    std::unique_ptr<DBSettingsBuilder> builder = paramBuilder(group, key, rootWidget, parent);
    const DBSettingsType type = builder->type();
    // The frame of a nested group belongs to the page, not to the frame around it, until the grid takes it in.
    if (type == DBSettingsType::JsonGroup)
        builder = std::make_unique<JsonGroupBuilder>(DBSettingsHelper::jsonGroup(key), key, rootWidget, nullptr);
    if (const Recipe make = recipeFor(type))
        (DBDirector(*builder).*make)();
    return builder->getSettings();
}
