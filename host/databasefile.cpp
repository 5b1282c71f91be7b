#include "databasefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <sys/stat.h>

namespace {

const QByteArray sqliteSignature = QByteArrayLiteral("SQLite format 3\0");

QByteArray firstBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(sqliteSignature.size()) : QByteArray();
}
} // namespace

DatabaseFile::DatabaseFile(const QString &path)
    : m_path(path)
{}

bool DatabaseFile::exists() const
{
    const QFileInfo info(m_path);
    return info.exists() || info.isSymLink();
}

QByteArray DatabaseFile::identity() const
{
    struct stat status = {};
    if (::stat(QFile::encodeName(m_path).constData(), &status) != 0)
        return {};
    return QByteArray::number(quint64(status.st_dev)) + ':' + QByteArray::number(quint64(status.st_ino));
}

std::optional<DatabaseError> DatabaseFile::problem() const
{
    const QFileInfo info(m_path);
    const QString otherFile = tr("Укажите другой файл в параметре --database.");
    const QString rights = tr("Разрешите вашей учётной записи чтение и запись файла и его папки.");

    if (info.isDir())
        return error(tr("Это папка, а не файл."), otherFile);
    if (!info.exists())
        return error(tr("Файла, на который указывает ссылка, нет."), otherFile);
    if (!info.isFile())
        return error(tr("Это не обычный файл."), otherFile);
    if (!info.isReadable())
        return error(tr("Нет прав на чтение файла."), rights);
    if (info.size() == 0)
        return error(tr("Файл пуст."), tr("Удалите его, чтобы создать новую базу данных, или укажите другой файл."));
    if (firstBytes(m_path) != sqliteSignature)
        return error(tr("Файл не является базой данных SQLite."), otherFile);
    if (!info.isWritable())
        return error(tr("Файл доступен только для чтения."), rights);
    // A transaction needs files of its own beside the database.
    if (!QFileInfo(info.absolutePath()).isWritable())
        return error(tr("Папка файла доступна только для чтения."), rights);
    // Opening a pipe would wait for somebody at its other end.
    for (const char *suffix : {"-wal", "-journal", "-shm"}) {
        const QFileInfo log(m_path + QLatin1String(suffix));
        if (log.exists() && !log.isFile())
            return error(tr("Рядом лежит «%1», и это не обычный файл.").arg(log.filePath()),
                         tr("На этом месте база данных хранит свой журнал. Уберите то, что там лежит."));
    }
    return {};
}

std::optional<DatabaseError>
DatabaseFile::create(const std::function<std::optional<DatabaseError>(const QString &path)> &fill) const
{
    if (exists())
        return existsError();
    // SQLite would play the last changes of a database that is gone into the new one.
    for (const char *suffix : {"-wal", "-journal"}) {
        const QString log = m_path + QLatin1String(suffix);
        if (DatabaseFile(log).exists())
            return error(tr("Рядом лежит журнал «%1» другой базы данных.").arg(log),
                         tr("В нём могут быть её последние изменения. Уберите его, если он не нужен, или укажите "
                            "другой файл в параметре --database."));
    }

    const QString folder = QFileInfo(m_path).absolutePath();
    const QString advice = tr("Проверьте путь и права доступа к папке или укажите другой файл в параметре --database.");
    if (!QDir().mkpath(folder))
        return error(tr("Не удаётся создать папку «%1».").arg(folder), advice);

    QTemporaryFile draft(m_path + QStringLiteral(".XXXXXX")); // has mode 0600
    if (!draft.open())
        return error(tr("Не удаётся создать файл: %1.").arg(draft.errorString()), advice);
    draft.close();
    if (auto failure = fill(draft.fileName()))
        return failure;

    // Takes the final name only if nobody else has taken it meanwhile.
    if (!draft.rename(m_path))
        return exists() ? existsError() : error(tr("Не удаётся создать файл: %1.").arg(draft.errorString()), advice);
    draft.setAutoRemove(false);
    return {};
}

DatabaseError DatabaseFile::existsError() const
{
    return {m_path, tr("Файл уже есть."), tr("Он остался как есть. Укажите другой в параметре --database."),
            DatabaseError::Kind::Exists};
}

DatabaseError DatabaseFile::error(const QString &reason, const QString &advice) const
{
    return {m_path, reason, advice};
}
