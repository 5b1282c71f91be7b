#pragma once

#include "autotestexport.h"

#include <QWidget>

#include <memory>

/// Widgets that a settings node and a Qt parent both own.
///
/// The node owns its widget through a shared handle, the Qt parent owns it too, and either may go first. A handle whose
/// widget was deleted by Qt has nothing left to delete. That also holds while the widget's destroyed() signal is being
/// delivered, when a QPointer still says that it is there.
namespace widgethandle {

/// Takes @p widget over; deletes it and throws if there is no memory for the handle. A null widget yields no handle.
VXSETTINGS_AUTOTEST_EXPORT std::shared_ptr<QWidget> make(QWidget *widget);

/// @p handle while its widget lives, else an empty handle.
VXSETTINGS_AUTOTEST_EXPORT std::shared_ptr<QWidget> alive(const std::shared_ptr<QWidget> &handle);

/// Makes @p handle own @p widget. What it owned before dies unless somebody else holds it; the same widget stays.
VXSETTINGS_AUTOTEST_EXPORT void reset(std::shared_ptr<QWidget> &handle, QWidget *widget);
} // namespace widgethandle
