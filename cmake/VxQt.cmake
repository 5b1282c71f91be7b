# Which Qt this build is for, and how what it makes is named. The builds for both can be installed side by side: the one
# for Qt 5 has the plain names.
set(VXSETTINGS_QT_VERSION 5 CACHE STRING "Major version of Qt to build for: 5 or 6")
set_property(CACHE VXSETTINGS_QT_VERSION PROPERTY STRINGS 5 6)

set(VX_QT Qt${VXSETTINGS_QT_VERSION})
if(VXSETTINGS_QT_VERSION EQUAL 5)
    set(VX_QT_MINIMUM 5.15)
    set(VX_NAME_SUFFIX "")
    set(VX_PACKAGE_SUFFIX "")
elseif(VXSETTINGS_QT_VERSION EQUAL 6)
    set(VX_QT_MINIMUM 6.4)
    set(VX_NAME_SUFFIX -qt6)
    set(VX_PACKAGE_SUFFIX 6)
else()
    message(FATAL_ERROR "VXSETTINGS_QT_VERSION is ${VXSETTINGS_QT_VERSION}, not 5 or 6")
endif()

# Both builds have programs of the same names, so only one of them can install its own.
if(VXSETTINGS_QT_VERSION EQUAL 5)
    set(install_programs ON)
else()
    set(install_programs OFF)
endif()
option(VXSETTINGS_INSTALL_PROGRAMS "Install the settings manager and the command-line tool" ${install_programs})

# vx_find_qt(COMPONENTS...)
macro(vx_find_qt)
    find_package(${VX_QT} ${VX_QT_MINIMUM} REQUIRED COMPONENTS ${ARGN})
endmacro()
