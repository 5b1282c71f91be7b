#pragma once

#include "messages.h"

/// What the library wrote at debug level, in order.
inline QStringList debugLines(const CapturedMessages &log)
{
    QStringList lines;
    for (const CapturedMessage &message : log.all()) {
        if (message.type == QtDebugMsg && message.category == QLatin1String("gui.lib.dbsettings"))
            lines << message.text;
    }
    return lines;
}
