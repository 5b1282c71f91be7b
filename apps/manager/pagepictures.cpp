#include "pagepictures.h"

#include <host/settingspages.h>
#include <host/settingssession.h>

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QPixmap>
#include <QTextStream>
#include <QVBoxLayout>
#include <QWidget>

namespace {

constexpr int width = 960; // or what the page needs at least

void fitToContent(QWidget &sheet)
{
    const QLayout *layout = sheet.layout();
    const int sheetWidth = qMax(width, layout->totalMinimumSize().width());
    const int sheetHeight =
        layout->hasHeightForWidth() ? layout->totalHeightForWidth(sheetWidth) : layout->totalSizeHint().height();
    sheet.resize(sheetWidth, sheetHeight);
}

QPixmap picture(SettingsSession &session, DBGroups group)
{
    QWidget sheet;
    sheet.setAttribute(Qt::WA_DontShowOnScreen);
    auto *layout = new QVBoxLayout(&sheet);
    layout->addWidget(session.openPage(group, &sheet));

    // Widgets have their final sizes and fonts only once they are shown.
    sheet.resize(width, 1);
    sheet.show();
    fitToContent(sheet);
    // At its new width a caption may ask for another line.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    fitToContent(sheet);
    return sheet.grab();
}
} // namespace

bool PagePictures::write(SettingsSession &session, const QString &folder, QTextStream &out, QTextStream &err)
{
    const QDir dir(folder);
    if (!dir.mkpath(QStringLiteral("."))) {
        err << tr("Не удаётся создать папку «%1».").arg(dir.absolutePath()) << '\n';
        return false;
    }
    for (const SettingsPageName &page : settingsPages) {
        const QString path = dir.absoluteFilePath(QStringLiteral("%1.png").arg(QLatin1String(page.name)));
        if (!picture(session, page.group).save(path, "PNG")) {
            err << tr("Не удаётся записать файл «%1».").arg(path) << '\n';
            return false;
        }
        out << path << '\n';
        out.flush();
    }
    return true;
}
