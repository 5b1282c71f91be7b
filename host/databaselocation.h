#pragma once

#include <QCoreApplication>
#include <QString>

/// Where an installation database is.
class DatabaseLocation
{
    Q_DECLARE_TR_FUNCTIONS(DatabaseLocation)

public:
    enum class Engine { Sqlite, PostgreSql };

    /// @p url is "sqlite:PATH" or a bare path, where "~/" at the start of the path is the user's home folder; or
    /// "postgresql://user@host:port/name", where everything but the scheme may be left to the usual defaults of
    /// PostgreSQL's programs (PGUSER, PGHOST, ~/.pgpass, …).
    explicit DatabaseLocation(const QString &url);

    /// @p url unless it is empty, else VXSETTINGS_DATABASE from the environment, else a file in the user's data folder.
    static DatabaseLocation chosen(const QString &url);
    /// The file at @p path, whatever it looks like.
    static DatabaseLocation ofFile(const QString &path);

    /// Why the URL names no database, a few sentences; null if it does. A password is refused, and never repeated.
    QString problem() const;
    bool isValid() const;

    Engine engine() const;
    /// What was asked for: the absolute path of a file, the URL of a server's database. Holds no password.
    QString name() const;
    /// The last part of that, for a window title.
    QString shortName() const;

    /// The absolute path of a database file.
    QString filePath() const;

    /// Of a server's database; empty, or 0, for what is left to the defaults.
    QString host() const;
    int port() const;
    QString user() const;
    QString database() const;

private:
    void readServer(const QString &url);

    Engine m_engine = Engine::Sqlite;
    QString m_problem;
    QString m_path;
    QString m_host;
    int m_port = 0;
    QString m_user;
    QString m_database;
};
