#include "databaselocation.h"

#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUrl>

namespace {

const QString sqliteScheme = QStringLiteral("sqlite:");

QString defaultPath()
{
    const QString dataFolder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return dataFolder + QStringLiteral("/vxsettings/installation.db");
}

/// No shell expands the tilde behind a scheme.
QString withHomeFolder(const QString &path)
{
    return path.startsWith(QLatin1String("~/")) ? QDir::homePath() + path.mid(1) : path;
}

/// Of a URL that does not name a file, in lower case; null for a path.
QString serverScheme(const QString &url)
{
    static const QRegularExpression scheme(QStringLiteral("^([A-Za-z][A-Za-z0-9+.-]*)://"));
    return scheme.match(url).captured(1).toLower();
}

bool isPostgreSql(const QString &scheme)
{
    return scheme == QLatin1String("postgresql") || scheme == QLatin1String("postgres");
}
} // namespace

DatabaseLocation::DatabaseLocation(const QString &url)
{
    const QString scheme = serverScheme(url);
    if (isPostgreSql(scheme)) {
        readServer(url);
    } else if (!scheme.isEmpty() && scheme != QLatin1String("sqlite")) {
        m_problem = tr("Базы данных вида «%1://» не поддерживаются. Укажите файл или адрес "
                       "postgresql://пользователь@сервер:порт/имя.")
                        .arg(scheme);
    } else {
        m_path = withHomeFolder(url.startsWith(sqliteScheme) ? url.mid(sqliteScheme.size()) : url);
        if (m_path.isEmpty())
            m_problem = tr("Не указан файл базы данных.");
    }
}

DatabaseLocation DatabaseLocation::chosen(const QString &url)
{
    if (!url.isEmpty())
        return DatabaseLocation(url);
    const QString fromEnvironment = qEnvironmentVariable("VXSETTINGS_DATABASE");
    return DatabaseLocation(fromEnvironment.isEmpty() ? defaultPath() : fromEnvironment);
}

DatabaseLocation DatabaseLocation::ofFile(const QString &path)
{
    return DatabaseLocation(sqliteScheme + path);
}

void DatabaseLocation::readServer(const QString &text)
{
    m_engine = Engine::PostgreSql;
    const QUrl url(text, QUrl::StrictMode);
    if (!url.isValid()) {
        m_problem =
            tr("Адрес базы данных записан неверно. Он выглядит так: postgresql://пользователь@сервер:порт/имя.");
        return;
    }
    m_host = url.host();
    m_port = url.port(0);
    m_user = url.userName();
    m_database = url.path().mid(1);
    if (url.userInfo(QUrl::FullyEncoded).contains(QLatin1Char(':')))
        m_problem = tr("Пароль в адресе базы данных увидели бы другие пользователи компьютера. Уберите его оттуда и "
                       "запишите в файл ~/.pgpass (или PGPASSFILE) либо передайте в переменной PGPASSWORD.");
    else if (url.hasQuery() || url.hasFragment())
        m_problem = tr("После имени базы данных в адресе ничего быть не должно. Остальное задают переменные окружения "
                       "PostgreSQL, например PGSSLMODE.");
}

QString DatabaseLocation::problem() const
{
    return m_problem;
}

bool DatabaseLocation::isValid() const
{
    return m_problem.isNull();
}

DatabaseLocation::Engine DatabaseLocation::engine() const
{
    return m_engine;
}

QString DatabaseLocation::name() const
{
    if (m_engine == Engine::Sqlite)
        return filePath();
    QUrl url;
    url.setScheme(QStringLiteral("postgresql"));
    url.setHost(m_host.isEmpty() ? QStringLiteral("") : m_host); // a null one would take two slashes along
    url.setUserName(m_user);
    if (m_port > 0)
        url.setPort(m_port);
    url.setPath(QLatin1Char('/') + m_database);
    return url.toString();
}

QString DatabaseLocation::shortName() const
{
    return m_engine == Engine::Sqlite || !m_database.isEmpty() ? name().section(QLatin1Char('/'), -1) : name();
}

QString DatabaseLocation::filePath() const
{
    // Not QFileInfo, which takes a leading colon for a resource of the program.
    return QDir::cleanPath(m_path.startsWith(QLatin1Char('/')) ? m_path
                                                               : QDir::currentPath() + QLatin1Char('/') + m_path);
}

QString DatabaseLocation::host() const
{
    return m_host;
}

int DatabaseLocation::port() const
{
    return m_port;
}

QString DatabaseLocation::user() const
{
    return m_user;
}

QString DatabaseLocation::database() const
{
    return m_database;
}
