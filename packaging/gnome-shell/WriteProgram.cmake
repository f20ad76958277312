# SPDX-License-Identifier: MIT
# Writes the module `file` of the extension, by which the executable `program` is trusted. While a package
# is made both are below another `root`, and no link can be followed.
if("${root}" STREQUAL "")
    # As /proc names it. It may not have been built yet, its folder is there.
    cmake_path(GET program PARENT_PATH place)
    cmake_path(GET program FILENAME name)
    file(REAL_PATH "${place}" place)
    set(program "${place}/${name}")
endif()
string(REGEX REPLACE "['\\\\]" "\\\\\\0" program "${program}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/program.js.in" "${root}${file}" @ONLY
               FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
