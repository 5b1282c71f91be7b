# How the shared libraries are named, versioned and installed. All paths in what is installed are relative.
#
# Components: runtime (libraries, logging categories), devel (headers, CMake packages, pkg-config files), programs.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

# Libraries and programs find one another wherever the prefix is moved to. Distributions, whose library folder is known
# to the loader, set CMAKE_SKIP_INSTALL_RPATH.
if(NOT DEFINED CMAKE_INSTALL_RPATH)
    file(RELATIVE_PATH VX_LIBDIR_FROM_BINDIR ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set(CMAKE_INSTALL_RPATH $ORIGIN $ORIGIN/${VX_LIBDIR_FROM_BINDIR})
endif()

# Folder of PACKAGE's headers. Both builds have headers of the same names, so one of them needs a folder of its own.
function(vx_include_folder result package)
    set(folder ${CMAKE_INSTALL_INCLUDEDIR})
    if(VX_NAME_SUFFIX)
        string(TOLOWER ${package} name)
        string(APPEND folder /${name}${VX_NAME_SUFFIX})
    endif()
    set(${result} ${folder} PARENT_SCOPE)
endfunction()

# vx_install_library(TARGET PACKAGE NAME DESCRIPTION TEXT HEADERS DIRECTORY QT_MODULE NAME)
#
# HEADERS is the folder whose headers are all public; generated ones are taken from include/ of the build folder.
function(vx_install_library target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "PACKAGE;DESCRIPTION;HEADERS;QT_MODULE" "")
    vx_include_folder(include_folder ${arg_PACKAGE})

    set_target_properties(${target} PROPERTIES
        OUTPUT_NAME ${target}${VX_NAME_SUFFIX}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
    target_link_options(${target} PRIVATE -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map)
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${arg_HEADERS}>
        $<BUILD_INTERFACE:${CMAKE_CURRENT_BINARY_DIR}/include>
        $<INSTALL_INTERFACE:${include_folder}>)
    install(TARGETS ${target} EXPORT ${arg_PACKAGE}Targets
        RUNTIME COMPONENT runtime
        LIBRARY COMPONENT runtime NAMELINK_COMPONENT devel
        ARCHIVE COMPONENT devel)
    install(DIRECTORY ${arg_HEADERS}/ ${CMAKE_CURRENT_BINARY_DIR}/include/
        DESTINATION ${include_folder} COMPONENT devel FILES_MATCHING PATTERN "*.h")

    set(pc_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
    set(pc_name ${target}${VX_NAME_SUFFIX})
    set(pc_description ${arg_DESCRIPTION})
    set(pc_include_folder ${include_folder})
    set(pc_requires "${VX_QT}${arg_QT_MODULE} >= ${VX_QT_MINIMUM}")
    file(RELATIVE_PATH pc_prefix /${pc_folder} /)
    string(REGEX REPLACE "/$" "" pc_prefix ${pc_prefix})
    configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${pc_name}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${pc_name}.pc DESTINATION ${pc_folder} COMPONENT devel)
endfunction()

# vx_install_package(NAME DEPENDENCIES FIND_DEPENDENCY_ARGUMENTS...)
#
# What find_package(NAME) finds, NAME6 in a build for Qt 6: the libraries that were installed for NAME, as NAME::LIBRARY.
function(vx_install_package name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "DEPENDENCIES")
    set(package ${name}${VX_PACKAGE_SUFFIX})
    set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/${package})

    list(TRANSFORM arg_DEPENDENCIES REPLACE "(.+)" "find_dependency(\\1)")
    list(JOIN arg_DEPENDENCIES "\n" find_dependencies)
    configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/PackageConfig.cmake.in ${package}Config.cmake
        INSTALL_DESTINATION ${package_folder})
    write_basic_package_version_file(${package}ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${package}Config.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/${package}ConfigVersion.cmake
        DESTINATION ${package_folder} COMPONENT devel)
    install(EXPORT ${name}Targets FILE ${package}Targets.cmake NAMESPACE ${name}::
        DESTINATION ${package_folder} COMPONENT devel)
endfunction()
