#include <vxsettings/dbsettings.h>

#include <vxsettings/dbsettingsgroup.h>

DBSettings::~DBSettings() = default;

DBSettingsGroup *DBSettings::toGroup()
{
    return static_cast<DBSettingsGroup *>(this);
}
