#pragma once

#include "exitstatus.h"

#include <QJsonDocument>
#include <QString>

/// What a command has to say, to people and to programs.
struct Report
{
    ExitStatus status = ExitDone;
    QString text;    ///< for people, lines that end in a line break; goes to the standard output
    QString message; ///< what went wrong or deserves attention, without a final line break; goes to the error output
    QJsonDocument json{}; ///< for programs, takes the place of the text

    /// An object with "error" and "status" for programs.
    static Report failure(ExitStatus status, const QString &message);
};
