# Programs are position independent with every compiler, not only where that is its default.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

# Compiler settings that every target of this project shares; they never reach a consumer.
add_library(vx_compiler_settings INTERFACE)
target_include_directories(vx_compiler_settings INTERFACE ${PROJECT_SOURCE_DIR}/compat)
target_compile_options(vx_compiler_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow
    # qCDebug(category) << … is a variadic macro without further arguments.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>
    $<$<BOOL:${VXSETTINGS_WARNINGS_AS_ERRORS}>:-Werror>
    # Log contexts and assertions name files relative to the project, wherever it was built.
    -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)
target_compile_definitions(vx_compiler_settings INTERFACE
    QT_DEPRECATED_WARNINGS
    QT_NO_CAST_TO_ASCII
    QT_NO_URL_CAST_FROM_STRING
    QT_STRICT_ITERATORS
    QT_MESSAGELOGCONTEXT)
