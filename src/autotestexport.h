#pragma once

#include <vxsettings/vxsettings_export.h>

/// Exports what only tests need; nothing in a build without tests.
#ifdef VXSETTINGS_BUILD_AUTOTESTS
#define VXSETTINGS_AUTOTEST_EXPORT VXSETTINGS_EXPORT
#else
#define VXSETTINGS_AUTOTEST_EXPORT
#endif
