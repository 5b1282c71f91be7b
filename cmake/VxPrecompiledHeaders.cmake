# Headers of the toolkit that are read once a build, not once a file. Builds of the checks use them; the others prove that
# every file includes what it needs.
option(VXSETTINGS_PRECOMPILED_HEADERS "Read the toolkit's headers once for all files" OFF)

# vx_precompile(KIND TARGETS...): the targets use the precompiled headers of that kind, "library" or "test". They have to
# link to what those hold; the compiler says so where they do not.
function(vx_precompile kind)
    if(NOT VXSETTINGS_PRECOMPILED_HEADERS)
        return()
    endif()
    foreach(target IN LISTS ARGN)
        target_precompile_headers(${target} REUSE_FROM vx_${kind}_headers)
    endforeach()
endfunction()

# vx_add_precompiled_headers(KIND HEADERS LIBRARIES...)
function(vx_add_precompiled_headers kind headers)
    if(NOT VXSETTINGS_PRECOMPILED_HEADERS)
        return()
    endif()
    set(target vx_${kind}_headers)
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/${target}.cpp CONTENT "")
    add_library(${target} OBJECT ${PROJECT_BINARY_DIR}/${target}.cpp)
    target_precompile_headers(${target} PRIVATE ${headers})
    target_link_libraries(${target} PRIVATE ${ARGN} vx_compiler_settings)
    set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
endfunction()
