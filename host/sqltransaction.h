#pragma once

class SqlConnection;

/// A transaction on a connection, rolled back unless it was committed.
class SqlTransaction
{
public:
    /// A reader sees one state of the database throughout. A writer of a file is the only one from the start.
    enum class Kind { Read, Write };

    SqlTransaction(SqlConnection &connection, Kind kind);
    ~SqlTransaction();
    SqlTransaction(const SqlTransaction &) = delete;
    SqlTransaction &operator=(const SqlTransaction &) = delete;

    /// False if it could not begin, and after commit().
    bool isActive() const;
    /// If it fails, the changes may be stored all the same when the connection was lost.
    [[nodiscard]] bool commit();

private:
    SqlConnection &m_connection;
    bool m_active;
};
