# Finds Qwt built for Qt 6 and provides the imported target Qwt::Qwt.
#
# Looks first in QWT_ROOT (CMake or environment variable), then in the prefix
# that scripts/setup.sh installs to, then in the system paths.
#
# Sets Qwt_FOUND, Qwt_VERSION, QWT_INCLUDE_DIR, QWT_LIBRARY, QWT_LIBRARY_DIR.

set(_qwt_hints)
if(QWT_ROOT)
  list(APPEND _qwt_hints "${QWT_ROOT}")
endif()
if(DEFINED ENV{QWT_ROOT})
  list(APPEND _qwt_hints "$ENV{QWT_ROOT}")
endif()
list(APPEND _qwt_hints /opt/qwt-6.3.0 /usr/local/qwt-6.3.0)

find_path(QWT_INCLUDE_DIR qwt_global.h
  HINTS ${_qwt_hints}
  PATH_SUFFIXES include include/qwt include/qt6/qwt
  NO_CMAKE_SYSTEM_PATH)
find_library(QWT_LIBRARY NAMES qwt-qt6 qwt
  HINTS ${_qwt_hints}
  PATH_SUFFIXES lib lib64
  NO_CMAKE_SYSTEM_PATH)

if(QWT_INCLUDE_DIR AND EXISTS "${QWT_INCLUDE_DIR}/qwt_global.h")
  file(STRINGS "${QWT_INCLUDE_DIR}/qwt_global.h" _qwt_version_line
       REGEX "^#define[ \t]+QWT_VERSION_STR[ \t]+\"[0-9.]+\"")
  string(REGEX REPLACE ".*\"([0-9.]+)\".*" "\\1" Qwt_VERSION "${_qwt_version_line}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Qwt
  REQUIRED_VARS QWT_LIBRARY QWT_INCLUDE_DIR
  VERSION_VAR Qwt_VERSION)

if(Qwt_FOUND)
  get_filename_component(QWT_LIBRARY_DIR "${QWT_LIBRARY}" DIRECTORY)
  if(NOT TARGET Qwt::Qwt)
    add_library(Qwt::Qwt SHARED IMPORTED)
    set_target_properties(Qwt::Qwt PROPERTIES
      IMPORTED_LOCATION "${QWT_LIBRARY}"
      INTERFACE_INCLUDE_DIRECTORIES "${QWT_INCLUDE_DIR}"
      INTERFACE_COMPILE_DEFINITIONS "QWT_DLL"
      INTERFACE_LINK_LIBRARIES "Qt6::Widgets;Qt6::Svg")
    find_package(Qt6 COMPONENTS PrintSupport QUIET)
    if(TARGET Qt6::PrintSupport)
      set_property(TARGET Qwt::Qwt APPEND PROPERTY INTERFACE_LINK_LIBRARIES Qt6::PrintSupport)
    endif()
  endif()
endif()
mark_as_advanced(QWT_INCLUDE_DIR QWT_LIBRARY)
