#include "hostenvironment.h"

#include <qtcompat.h>

#include <QLoggingCategory>

void HostEnvironment::prepare()
{
    qtcompat::useUtf8AsLocalEncoding();
    QLoggingCategory::setFilterRules(QStringLiteral("gui.lib.dbsettings.debug=false"));
}
