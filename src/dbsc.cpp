#include "dbsc.h"

Q_LOGGING_CATEGORY(dbsc, "gui.lib.dbsettings")
