#pragma once

#include <QHash>
#include <QString>

/// What the programs of an installation share.
namespace vantorix {

/// Collected values on their way to storage: stored key to text.
using OBJECT_PARAMETERS = QHash<QString, QString>;
} // namespace vantorix
