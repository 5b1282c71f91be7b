find_package(Doxygen REQUIRED)
find_program(VXSETTINGS_QHELPGENERATOR qhelpgenerator REQUIRED
    HINTS /usr/lib/qt${VXSETTINGS_QT_VERSION}/bin /usr/lib/qt${VXSETTINGS_QT_VERSION}/libexec)

# As it is installed: what the pages link to lies where they expect it.
set(documentation_folder ${CMAKE_CURRENT_BINARY_DIR}/documentation)
configure_file(Doxyfile.in Doxyfile @ONLY)
add_custom_target(documentation ALL
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${documentation_folder}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${documentation_folder}
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${DOXYGEN_EXECUTABLE} ${CMAKE_CURRENT_BINARY_DIR}/Doxyfile
    COMMAND ${CMAKE_COMMAND} -E copy_directory docs/schema ${documentation_folder}/html/schema
    COMMAND ${CMAKE_COMMAND} -E copy_directory docs/pictures ${documentation_folder}/html/docs/pictures
    COMMAND ${CMAKE_COMMAND} -E copy_directory examples ${documentation_folder}/examples
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    VERBATIM)

install(DIRECTORY ${documentation_folder}/html ${documentation_folder}/examples
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libvxsettings-doc COMPONENT documentation)
install(FILES ${documentation_folder}/libvxsettings.qch
    DESTINATION ${CMAKE_INSTALL_DATADIR}/qt${VXSETTINGS_QT_VERSION}/doc COMPONENT documentation)
