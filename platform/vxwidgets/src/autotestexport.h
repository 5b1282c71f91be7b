#pragma once

#include <vxwidgets/vxwidgets_export.h>

/// Exports what only tests need; nothing in a build without tests.
#ifdef VXWIDGETS_BUILD_AUTOTESTS
#define VXWIDGETS_AUTOTEST_EXPORT VXWIDGETS_EXPORT
#else
#define VXWIDGETS_AUTOTEST_EXPORT
#endif
