#include "sqltransaction.h"

#include "sqlconnection.h"

using Engine = DatabaseLocation::Engine;

namespace {

QString beginStatement(Engine engine, SqlTransaction::Kind kind)
{
    const bool isWriter = kind == SqlTransaction::Kind::Write;
    // A writer of a file that only asks for the lock when it writes may find that what it has read is out of date.
    if (engine == Engine::Sqlite)
        return isWriter ? QStringLiteral("BEGIN IMMEDIATE") : QStringLiteral("BEGIN");
    // On a server every changed row is compared with its newest version, and locked from then on.
    return isWriter ? QStringLiteral("BEGIN ISOLATION LEVEL READ COMMITTED")
                    : QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
}
} // namespace

SqlTransaction::SqlTransaction(SqlConnection &connection, Kind kind)
    : m_connection(connection)
    , m_active(connection.execute(beginStatement(connection.engine(), kind)))
{}

SqlTransaction::~SqlTransaction()
{
    if (m_active)
        m_connection.execute(QStringLiteral("ROLLBACK"));
}

bool SqlTransaction::isActive() const
{
    return m_active;
}

bool SqlTransaction::commit()
{
    const bool committed = m_active && m_connection.execute(QStringLiteral("COMMIT"));
    m_active = m_active && !committed;
    return committed;
}
