# SPDX-License-Identifier: MIT
# Writes to `output` that the executable `program` is trusted, as /proc names it: without links.
if(NOT DEFINED ENV{DESTDIR})
    file(REAL_PATH "${program}" program)
endif()
string(REGEX REPLACE "['\\\\]" "\\\\\\0" program "${program}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/program.js.in" "${output}" @ONLY)
