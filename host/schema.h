#pragma once

#include <host/changestamp.h>
#include <host/databaseerror.h>
#include <host/installation.h>

#include <QCoreApplication>

#include <optional>

class SqliteConnection;

/// The tables of an installation database.
///
/// They are made by the numbered files in the folder "schema", each of which leads from one version to the next. The
/// user version of the database numbers the last one that was run.
class Schema
{
    Q_DECLARE_TR_FUNCTIONS(Schema)

public:
    /// The version that this program writes.
    static int version();

    /// Makes the tables and fills them, in one transaction. The revisions of @p installation are not looked at: every
    /// setting starts with revision 1, changed as @p stamp says.
    [[nodiscard]] static std::optional<DatabaseError> create(SqliteConnection &connection,
                                                             const Installation &installation,
                                                             const ChangeStamp &stamp = ChangeStamp::now());

    /// Brings a database without a problem() to the version of this program, in one transaction. On an error it stays
    /// as it was.
    [[nodiscard]] static std::optional<DatabaseError> migrate(SqliteConnection &connection);

    /// Why the database is none of these, is of a newer version, or is damaged.
    [[nodiscard]] static std::optional<DatabaseError> problem(SqliteConnection &connection);
};
