#pragma once

#include <host/sqlconnection.h>

#include <QFile>
#include <QProcess>
#include <QUuid>

#include <csignal>
#include <stdexcept>

/// A database of its own on a real PostgreSQL server, which goes with this object, and a way to look into it behind the
/// back of the code under test.
///
/// The server is the one that the environment names, a throw-away cluster that pg_virtualenv has started for the test
/// program: its superuser is connected, and it may be stopped.
class TestServer
{
public:
    TestServer()
        : m_name(QStringLiteral("vx_") + QUuid::createUuid().toString(QUuid::Id128))
    {
        if (qEnvironmentVariableIsEmpty("PGHOST"))
            throw std::runtime_error("There is no PostgreSQL server. Run this program with tests/withserver.sh.");
        administrate(QStringLiteral("CREATE DATABASE ") + m_name);
    }
    ~TestServer()
    {
        SqlConnection connection(location(QStringLiteral("postgres")), SqlConnection::Mode::ReadWrite);
        connection.execute(QStringLiteral("DROP DATABASE %1 WITH (FORCE)").arg(m_name));
    }
    TestServer(const TestServer &) = delete;
    TestServer &operator=(const TestServer &) = delete;

    DatabaseLocation location() const { return location(m_name); }
    QString url() const { return location().name(); }

    void execute(const QString &statement, const QVariantList &values = {}) const
    {
        SqlConnection connection(location(), SqlConnection::Mode::ReadWrite);
        if (!connection.execute(statement, values))
            throw std::runtime_error(connection.error().text().toStdString());
    }
    /// The first column of the first row.
    QVariant ask(const QString &query) const
    {
        SqlConnection connection(location(), SqlConnection::Mode::ReadWrite);
        return connection.selectOne(query);
    }
    QString stored(const QString &key) const
    {
        return ask(QStringLiteral("SELECT value FROM settings WHERE key = '%1'").arg(key)).toString();
    }
    /// The processes of the server that somebody else's connections to this database have.
    QVector<qint64> backends() const
    {
        SqlConnection connection(location(QStringLiteral("postgres")), SqlConnection::Mode::ReadWrite);
        auto rows = connection.select(QStringLiteral("SELECT pid FROM pg_stat_activity WHERE datname = ?"), {m_name});
        QVector<qint64> pids;
        while (rows && rows->next())
            pids.append(rows->value(0).toLongLong());
        return pids;
    }
    void signalBackends(int signal) const
    {
        for (const qint64 pid : backends())
            ::kill(pid_t(pid), signal);
    }

    /// Ends the server as a power cut would.
    static void stopHard() { control({QStringLiteral("stop"), QStringLiteral("-m"), QStringLiteral("immediate")}); }
    static void start() { control({QStringLiteral("start")}); }

private:
    static DatabaseLocation location(const QString &database)
    {
        return DatabaseLocation(QStringLiteral("postgresql://%1@%2:%3/%4")
                                    .arg(qEnvironmentVariable("PGUSER"), qEnvironmentVariable("PGHOST"),
                                         qEnvironmentVariable("PGPORT"), database));
    }
    static void administrate(const QString &statement)
    {
        SqlConnection connection(location(QStringLiteral("postgres")), SqlConnection::Mode::ReadWrite);
        if (!connection.execute(statement))
            throw std::runtime_error(connection.error().text().toStdString());
    }
    static void control(const QStringList &action)
    {
        // pg_virtualenv gives its cluster this name.
        const QStringList cluster{qEnvironmentVariable("PGVERSION"), QStringLiteral("regress")};
        if (QProcess::execute(QStringLiteral("pg_ctlcluster"), cluster + action) != 0)
            throw std::runtime_error("pg_ctlcluster failed");
    }

    QString m_name;
};
