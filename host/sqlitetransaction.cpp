#include "sqlitetransaction.h"

#include "sqliteconnection.h"

namespace {

/// A writer that only asks for the lock when it writes may find that what it has read is out of date.
QString beginStatement(SqliteTransaction::Kind kind)
{
    return kind == SqliteTransaction::Kind::Write ? QStringLiteral("BEGIN IMMEDIATE") : QStringLiteral("BEGIN");
}
} // namespace

SqliteTransaction::SqliteTransaction(SqliteConnection &connection, Kind kind)
    : m_connection(connection)
    , m_active(connection.execute(beginStatement(kind)))
{}

SqliteTransaction::~SqliteTransaction()
{
    if (m_active)
        m_connection.execute(QStringLiteral("ROLLBACK"));
}

bool SqliteTransaction::isActive() const
{
    return m_active;
}

bool SqliteTransaction::commit()
{
    const bool committed = m_active && m_connection.execute(QStringLiteral("COMMIT"));
    m_active = m_active && !committed;
    return committed;
}
