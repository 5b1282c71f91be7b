#include <vxsettings/dbsettingsgroupfactory.h>

#include "builders/groupbuilder.h"
#include "dbdirector.h"

std::unique_ptr<DBSettings> DBSettingsGroupFactory::create(DBGroups group, QWidget *parent, QWidget *root)
{
    GroupBuilder builder(group, parent, root);
    DBDirector(builder).makeGroup();
    return builder.getSettings();
}
