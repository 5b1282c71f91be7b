#pragma once

#include <host/sqlconnection.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <stdexcept>

/// A place for a database file that goes with this object, and a way to look into the file behind the back of the code
/// under test.
class TestDatabase
{
public:
    QString path() const { return folder() + QStringLiteral("/installation.db"); }
    QString folder() const { return m_folder.path(); }
    /// Everything in the folder, in alphabetical order.
    QStringList files() const
    {
        return QDir(folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QByteArray bytes() const
    {
        QFile file(path());
        if (!file.open(QIODevice::ReadOnly))
            throw std::runtime_error("no file to read");
        return file.readAll();
    }
    void setBytes(const QByteArray &bytes) const
    {
        QFile file(path());
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            throw std::runtime_error("the file cannot be written");
    }

    void execute(const QString &statement, const QVariantList &values = {}) const
    {
        SqlConnection connection(DatabaseLocation::ofFile(path()), SqlConnection::Mode::ReadWrite);
        if (!connection.execute(statement, values))
            throw std::runtime_error(connection.error().text().toStdString());
    }
    void store(const QString &key, const QString &value) const
    {
        execute(QStringLiteral("INSERT INTO settings(key, value) VALUES(?, ?) "
                               "ON CONFLICT(key) DO UPDATE SET value = excluded.value"),
                {key, value});
    }
    /// The first column of the first row.
    QVariant ask(const QString &query) const
    {
        SqlConnection connection(DatabaseLocation::ofFile(path()), SqlConnection::Mode::ReadWrite);
        return connection.selectOne(query);
    }
    QString stored(const QString &key) const { return settings().value(key); }
    QHash<QString, QString> settings() const
    {
        SqlConnection connection(DatabaseLocation::ofFile(path()), SqlConnection::Mode::ReadWrite);
        auto rows = connection.select(QStringLiteral("SELECT key, value FROM settings"));
        if (!rows)
            throw std::runtime_error(connection.error().text().toStdString());
        QHash<QString, QString> settings;
        while (rows->next())
            settings.insert(rows->value(0).toString(), rows->value(1).toString());
        return settings;
    }

private:
    QTemporaryDir m_folder;
};
