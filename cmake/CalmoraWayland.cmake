# SPDX-License-Identifier: MIT
# The code of Wayland protocols as one static library with the headers NAME-client.h.
#
#   calmora_add_wayland_protocols(<target> <file>...)
#
# A file is looked for in resources/wayland-protocols, which has what no package brings, and then in
# the package wayland-protocols.

find_package(PkgConfig REQUIRED)
pkg_check_modules(WAYLAND_CLIENT REQUIRED IMPORTED_TARGET GLOBAL wayland-client)
pkg_get_variable(CALMORA_WAYLAND_PROTOCOLS wayland-protocols pkgdatadir)
find_program(WAYLAND_SCANNER wayland-scanner REQUIRED)

function(calmora_add_wayland_protocols target)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/${target}")
    file(MAKE_DIRECTORY "${folder}")
    add_library(${target} STATIC)
    foreach(protocol IN LISTS ARGN)
        find_file(file "${protocol}" NO_CACHE REQUIRED NO_DEFAULT_PATH
                  PATHS "${PROJECT_SOURCE_DIR}/resources/wayland-protocols"
                        "${CALMORA_WAYLAND_PROTOCOLS}")
        cmake_path(GET protocol STEM name)
        set(header "${folder}/${name}-client.h")
        set(code "${folder}/${name}.c")
        add_custom_command(OUTPUT "${header}" "${code}"
            COMMAND "${WAYLAND_SCANNER}" client-header "${file}" "${header}"
            COMMAND "${WAYLAND_SCANNER}" private-code "${file}" "${code}"
            DEPENDS "${file}")
        target_sources(${target} PRIVATE "${header}" "${code}")
        unset(file)
    endforeach()
    target_include_directories(${target} SYSTEM PUBLIC "${folder}")
    target_link_libraries(${target} PUBLIC PkgConfig::WAYLAND_CLIENT)
endfunction()
