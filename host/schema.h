#pragma once

#include <host/databaseerror.h>
#include <host/installation.h>

#include <QCoreApplication>

#include <optional>

class SqliteConnection;

/// The tables of an installation database.
///
/// settings(key, value) holds one setting a row. objects(data_name, uid, parent_uid, type, name, granted) holds the
/// objects of every data name in their order. The user version of the file numbers the schema.
class Schema
{
    Q_DECLARE_TR_FUNCTIONS(Schema)

public:
    /// Makes the tables and fills them, in one transaction.
    [[nodiscard]] static std::optional<DatabaseError> create(SqliteConnection &connection,
                                                             const Installation &installation);

    /// Why the database is none of these, is of a newer version, or is damaged.
    [[nodiscard]] static std::optional<DatabaseError> problem(SqliteConnection &connection);
};
