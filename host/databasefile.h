#pragma once

#include <host/databaseerror.h>

#include <QByteArray>
#include <QCoreApplication>

#include <functional>
#include <optional>

/// The file of a database, seen from outside.
class DatabaseFile
{
    Q_DECLARE_TR_FUNCTIONS(DatabaseFile)

public:
    /// @p path is absolute.
    explicit DatabaseFile(const QString &path);

    /// Whether there is anything at the path, be it a database or not.
    bool exists() const;

    /// Tells this file from another one that has or had the same path; empty if there is none.
    QByteArray identity() const;

    /// Why the file cannot be a database that this program may read and write. Only looks at it.
    [[nodiscard]] std::optional<DatabaseError> problem() const;

    /// Makes the file, readable and writable for its owner alone, and the folders above it.
    ///
    /// @p fill gets the path of a file beside it that has another name until it is complete: nobody ever sees a
    /// half-made database. What is there already, or has appeared meanwhile, is left alone: the error is of the kind
    /// Exists.
    [[nodiscard]] std::optional<DatabaseError>
    create(const std::function<std::optional<DatabaseError>(const QString &path)> &fill) const;

private:
    DatabaseError existsError() const;
    DatabaseError error(const QString &reason, const QString &advice) const;

    QString m_path;
};
