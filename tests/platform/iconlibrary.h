#pragma once

#include <QPixmap>

/// A library between a host program and the styles library: @p name in black, 24 x 24 device-independent pixels.
Q_DECL_EXPORT QPixmap themeIconPixmap(const QString &name);
