# SPDX-License-Identifier: MIT
# What makes faults in the program harder to exploit: tables of functions that are resolved at the
# start and cannot be written then; in what users run also checks of the stack and of buffers.
# Sanitizers have their own. Compilers make position-independent programs by themselves; -fPIE at the
# link would let link-time optimisation copy Qt's meta-objects, and the program then crashes.
add_link_options(LINKER:-z,relro LINKER:-z,now)
if(CMAKE_BUILD_TYPE MATCHES "Rel")
    add_compile_options(-fstack-protector-strong "SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2")
endif()
