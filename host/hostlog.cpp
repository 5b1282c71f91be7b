#include "hostlog.h"

Q_LOGGING_CATEGORY(hostLog, "vxsettings.host", QtWarningMsg)
