#pragma once

class SqliteConnection;

/// A transaction on a connection, rolled back unless it was committed.
class SqliteTransaction
{
public:
    /// A reader sees one state of the database throughout, a writer is the only one from the start.
    enum class Kind { Read, Write };

    SqliteTransaction(SqliteConnection &connection, Kind kind);
    ~SqliteTransaction();
    SqliteTransaction(const SqliteTransaction &) = delete;
    SqliteTransaction &operator=(const SqliteTransaction &) = delete;

    /// False if it could not begin, and after commit().
    bool isActive() const;
    [[nodiscard]] bool commit();

private:
    SqliteConnection &m_connection;
    bool m_active;
};
