#pragma once

#include <host/databaseerror.h>

#include <QCoreApplication>

class DatabaseLocation;
class QSqlError;

/// What a driver says, in the words of the person in front of it.
class SqlErrorWords
{
    Q_DECLARE_TR_FUNCTIONS(SqlErrorWords)

public:
    /// @p isLost: there is no connection, or none any more. No value that was read or written is part of the result.
    static DatabaseError error(const DatabaseLocation &location, const QSqlError &error, bool isLost);

private:
    static DatabaseError fileError(const DatabaseLocation &location, const QSqlError &error);
    static DatabaseError serverError(const DatabaseLocation &location, const QSqlError &error, bool isLost);
};
