#include <host/databaselocation.h>
#include <host/settingsdraft.h>

#include <vxsettings/dbkeys.h>

#include <QCoreApplication>
#include <QTextStream>

/// draftkeeper DATABASE PORT: keeps the edit of a port, says so once it is written, and waits to be killed.
int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    SettingsDraft draft{DatabaseLocation(application.arguments().at(1))};
    QObject::connect(&draft, &SettingsDraft::written, [] { QTextStream(stdout) << "written\n"; });
    draft.keep({{{db::database::MOBILE_PORT}, application.arguments().at(2), QStringLiteral("80"), 3}});
    return QCoreApplication::exec();
}
