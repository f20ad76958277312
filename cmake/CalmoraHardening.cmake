# SPDX-License-Identifier: MIT
# What makes faults in the program harder to exploit: tables of functions that are resolved at the
# start and cannot be written then; in what users run also addresses that change from start to start
# and checks of the stack and of buffers. Sanitizers have their own.
add_link_options(LINKER:-z,relro LINKER:-z,now)
if(CMAKE_BUILD_TYPE MATCHES "Rel")
    include(CheckPIESupported)
    check_pie_supported()
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    add_compile_options(-fstack-protector-strong "SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2")
endif()
