#include "durablefile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// A name is safe only when its folder is.
bool syncFolderOf(const QString &path)
{
    const QString folder = QFileInfo(QFileInfo(path).canonicalFilePath()).absolutePath();
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool isSynced = ::fsync(descriptor) == 0;
    ::close(descriptor);
    return isSynced;
}
} // namespace

std::optional<QString> DurableFile::write(const QString &path, const QByteArray &bytes, Readers readers)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return tr("Не удаётся записать «%1»: это не обычный файл.").arg(path);

    QSaveFile file(path);
    bool isWritten = file.open(QIODevice::WriteOnly);
    if (isWritten && readers == Readers::OwnerOnly)
        isWritten = file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    isWritten = isWritten && file.write(bytes) == bytes.size() && file.commit();
    if (!isWritten)
        return tr("Не удаётся записать файл «%1»: %2.").arg(path, file.errorString());
    if (!syncFolderOf(path))
        return tr("Файл «%1» записан, но может пропасть при сбое питания: не удаётся сохранить его папку.").arg(path);
    return {};
}
