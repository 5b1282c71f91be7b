#pragma once

#include <QCoreApplication>
#include <QString>

/// Why a database could not be used, in words for the person in front of it.
struct DatabaseError
{
    Q_DECLARE_TR_FUNCTIONS(DatabaseError)

public:
    enum class Kind {
        Refused,      ///< what was asked for cannot be done; asking again changes nothing
        Missing,      ///< there is no installation database
        Exists,       ///< there is something already where one was to be made
        Busy,         ///< somebody else is writing
        Full,         ///< there is no room on the disk, and nothing was written
        Disconnected, ///< the connection is lost, or there was no answer in time
        Cancelled,    ///< the caller gave up
    };

    QString path;   ///< of the file, or the server's database as DatabaseLocation::name() has it
    QString reason; ///< what is wrong, a sentence
    QString advice; ///< what to do about it, a sentence or more
    Kind kind = Kind::Refused;

    /// The whole message, several lines.
    QString text() const;
};
