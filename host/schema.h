#pragma once

#include <host/changestamp.h>
#include <host/databaseerror.h>
#include <host/installation.h>

#include <QCoreApplication>

#include <optional>

class SqlConnection;

/// The tables of an installation database.
///
/// They are made by the numbered files in the folder "schema", each of which leads from one version to the next; a
/// version is the same on all engines. The number of the last one that was run is the user version of a file, and
/// stands in the table schema_version of a server's database.
class Schema
{
    Q_DECLARE_TR_FUNCTIONS(Schema)

public:
    /// The version that this program writes.
    static int version();

    /// Makes the tables and fills them, in one transaction; an error of the kind Exists if one of them is there. The
    /// revisions of @p installation are not looked at: every setting starts with revision 1, changed as @p stamp says.
    [[nodiscard]] static std::optional<DatabaseError>
    create(SqlConnection &connection, const Installation &installation, const ChangeStamp &stamp = ChangeStamp::now());

    /// Brings a database without a problem() to the version of this program, in one transaction. On an error it stays
    /// as it was.
    [[nodiscard]] static std::optional<DatabaseError> migrate(SqlConnection &connection);

    /// Why the database is none of these, is of a newer version, or is damaged. An error of the kind Missing if a
    /// server's database has none of the tables.
    [[nodiscard]] static std::optional<DatabaseError> problem(SqlConnection &connection);
};
