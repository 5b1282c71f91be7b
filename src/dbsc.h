#pragma once

#include "autotestexport.h"

#include <QLoggingCategory>

/// The library's one logging category, "gui.lib.dbsettings".
VXSETTINGS_AUTOTEST_EXPORT const QLoggingCategory &dbsc();

/// A fixed message context. Hosts see it and may filter by it, so it stays put when the code around it moves.
struct LogPoint
{
    const char *file;
    int line;
    const char *function;

    QMessageLogger operator()() const { return {file, line, function, dbsc().categoryName()}; }
};
