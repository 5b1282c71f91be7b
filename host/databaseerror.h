#pragma once

#include <QCoreApplication>
#include <QString>

class QSqlError;

/// Why a database could not be used, in words for the person in front of it.
struct DatabaseError
{
    Q_DECLARE_TR_FUNCTIONS(DatabaseError)

public:
    QString path;
    QString reason; ///< what is wrong, a sentence
    QString advice; ///< what to do about it, a sentence or more

    /// What the driver said of @p path, with an explanation where the SQLite error is a common one. No value that was
    /// read or written is part of it.
    static DatabaseError fromDriver(const QString &path, const QSqlError &error);

    /// The whole message, several lines.
    QString text() const;
};
