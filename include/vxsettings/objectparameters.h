#pragma once

#include <QHash>
#include <QString>

namespace vantorix {

/// Collected values on their way to storage: stored key to text.
using OBJECT_PARAMETERS = QHash<QString, QString>;
} // namespace vantorix
