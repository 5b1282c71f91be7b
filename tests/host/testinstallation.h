#pragma once

#include "testdatabase.h"
#include "testserver.h"

#include <memory>
#include <optional>

/// An installation database of a test on either engine: a file, or a database on a server.
class TestInstallation
{
public:
    enum class Engine { File, Server };

    explicit TestInstallation(Engine engine)
    {
        if (engine == Engine::File)
            m_file = std::make_unique<TestDatabase>();
        else
            m_server = std::make_unique<TestServer>();
    }

    bool isFile() const { return m_file != nullptr; }
    const TestDatabase &file() const { return *m_file; }
    const TestServer &server() const { return *m_server; }

    DatabaseLocation location() const
    {
        return isFile() ? DatabaseLocation::ofFile(m_file->path()) : m_server->location();
    }
    void execute(const QString &statement, const QVariantList &values = {}) const
    {
        isFile() ? m_file->execute(statement, values) : m_server->execute(statement, values);
    }
    QVariant ask(const QString &query) const { return isFile() ? m_file->ask(query) : m_server->ask(query); }
    QString stored(const QString &key) const { return isFile() ? m_file->stored(key) : m_server->stored(key); }
    /// As a program that knows nothing of revisions does.
    void store(const QString &key, const QString &value) const
    {
        execute(QStringLiteral("INSERT INTO settings(key, value) VALUES(?, ?) "
                               "ON CONFLICT(key) DO UPDATE SET value = excluded.value"),
                {key, value});
    }

private:
    std::unique_ptr<TestDatabase> m_file;
    std::unique_ptr<TestServer> m_server;
};
Q_DECLARE_METATYPE(TestInstallation::Engine)
