#include "hostenvironment.h"

#include <QLoggingCategory>
#include <QTextCodec>

void HostEnvironment::prepare()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QLoggingCategory::setFilterRules(QStringLiteral("gui.lib.dbsettings.debug=false"));
}
