#include "settingsfile.h"

#include <host/settingsdocument.h>

#include <QFile>
#include <QFileInfo>

using vantorix::OBJECT_PARAMETERS;

namespace {

/// The file that would be replaced, behind all links; a file that is not there under the real name of its folder.
QString realPath(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists())
        return info.canonicalFilePath();
    return QFileInfo(info.absolutePath()).canonicalFilePath() + QLatin1Char('/') + info.fileName();
}
} // namespace

SettingsFile::SettingsFile(const QString &path)
    : m_path(path)
{}

std::optional<Report> SettingsFile::read(OBJECT_PARAMETERS &settings) const
{
    QFile file(m_path);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    const QByteArray json = isOpen ? file.readAll() : QByteArray();
    if (!isOpen || file.error() != QFileDevice::NoError)
        return Report::failure(ExitDatabase, tr("Не удаётся прочитать файл «%1»: %2.").arg(m_path, file.errorString()));
    const SettingsDocument::Reading reading = SettingsDocument::fromJson(json);
    if (!reading.document)
        return Report::failure(ExitInvalid, tr("Файл «%1» нельзя использовать. %2").arg(m_path, reading.error));
    settings = reading.document->settings();
    return {};
}

bool SettingsFile::isPartOf(const DatabaseLocation &location) const
{
    if (location.engine() != DatabaseLocation::Engine::Sqlite)
        return false;
    const QString database = realPath(location.filePath());
    for (const char *suffix : {"", "-wal", "-shm", "-journal"}) {
        if (realPath(m_path) == database + QLatin1String(suffix))
            return true;
    }
    return false;
}
