#pragma once

#include <QtCore/qglobal.h>

// Symbols are hidden by default; the public API is exported with FIGURA_EXPORT.
#if defined(FIGURA_LIBRARY)
#  define FIGURA_EXPORT Q_DECL_EXPORT
#else
#  define FIGURA_EXPORT Q_DECL_IMPORT
#endif

// Internal classes are visible outside the library only in builds with tests,
// so that the tests can reach them; hosts never see them.
#if defined(FIGURA_BUILD_AUTOTESTS)
#  define FIGURA_AUTOTEST_EXPORT FIGURA_EXPORT
#else
#  define FIGURA_AUTOTEST_EXPORT
#endif
