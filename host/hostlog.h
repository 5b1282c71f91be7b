#pragma once

#include <QLoggingCategory>

/// The host's logging category, "vxsettings.host": connections and saves of which somebody has to be told later, in
/// English, for administrators. Never what is stored. Off unless asked for.
const QLoggingCategory &hostLog();
