#include "ctl.h"

#include <host/hostenvironment.h>

#include <vxsettings/vxsettings_version.h>

#include <qtcompat.h>

#include <QCoreApplication>
#include <QTranslator>

int main(int argc, char *argv[])
{
    HostEnvironment::prepare();
    const QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("vxsettings"));
    QCoreApplication::setApplicationName(QStringLiteral("vxsettingsctl"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VXSETTINGS_VERSION_STRING));

    // The toolkit's own texts in the language of the program's; without the file they are English.
    QTranslator toolkitTexts;
    if (toolkitTexts.load(QStringLiteral("qtbase_ru"), qtcompat::translationsFolder()))
        QCoreApplication::installTranslator(&toolkitTexts);

    return Ctl::run(QCoreApplication::arguments());
}
