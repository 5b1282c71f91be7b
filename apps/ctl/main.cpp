#include "commandline.h"
#include "ctl.h"

#include <host/hostenvironment.h>
#include <host/translations.h>

#include <vxsettings/vxsettings_version.h>

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    HostEnvironment::prepare();
    const QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("vxsettings"));
    QCoreApplication::setApplicationName(QStringLiteral("vxsettingsctl"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VXSETTINGS_VERSION_STRING));

    const QStringList arguments = QCoreApplication::arguments();
    Translations translations(QStringLiteral("vxsettingsctl"));
    translations.setLanguage(Translations::preferred({CommandLine(arguments).language()}));
    return Ctl::run(arguments);
}
