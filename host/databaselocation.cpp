#include "databaselocation.h"

#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>

namespace {

QString defaultPath()
{
    const QString dataFolder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return dataFolder + QStringLiteral("/vxsettings/installation.db");
}

QString withoutScheme(const QString &url)
{
    static const QString sqlite = QStringLiteral("sqlite:");
    return url.startsWith(sqlite) ? url.mid(sqlite.size()) : url;
}

/// No shell expands the tilde behind a scheme.
QString withHomeFolder(const QString &path)
{
    return path.startsWith(QLatin1String("~/")) ? QDir::homePath() + path.mid(1) : path;
}

bool namesAnotherKind(const QString &path)
{
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*://"));
    return scheme.match(path).hasMatch();
}
} // namespace

DatabaseLocation::DatabaseLocation(const QString &url)
    : m_url(url)
    , m_path(withHomeFolder(withoutScheme(url)))
{}

DatabaseLocation DatabaseLocation::chosen(const QString &url)
{
    if (!url.isEmpty())
        return DatabaseLocation(url);
    const QString fromEnvironment = qEnvironmentVariable("VXSETTINGS_DATABASE");
    return DatabaseLocation(fromEnvironment.isEmpty() ? defaultPath() : fromEnvironment);
}

bool DatabaseLocation::isValid() const
{
    return !m_path.isEmpty() && !namesAnotherKind(m_path);
}

QString DatabaseLocation::url() const
{
    return m_url;
}

QString DatabaseLocation::filePath() const
{
    // Not QFileInfo, which takes a leading colon for a resource of the program.
    return QDir::cleanPath(m_path.startsWith(QLatin1Char('/')) ? m_path
                                                               : QDir::currentPath() + QLatin1Char('/') + m_path);
}
