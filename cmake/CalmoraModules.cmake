# SPDX-License-Identifier: MIT
# Adds a module: one library, usually the files of one folder of src. Every header compiles alone: its
# .cpp file includes it first, and a header without one is verified (all_verify_interface_header_sets).
#
#   calmora_add_module(<target> PLAIN|QT
#       FOLDERS <folder>...       the default is the folder of the CMakeLists.txt
#       FILES <name>...           file names without extension; the default is every file that no
#                                 earlier module has
#       LINK <target>...)         public dependencies
#
# PLAIN modules use the standard library and C libraries; QT modules may also use Qt. Modules are
# added from the lowest to the highest: a module can link only what was added before it, so that
# there is no circle between modules. calmora_check_includes() checks the files against that.

add_library(calmora_warnings INTERFACE)
target_compile_options(calmora_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    -Wcast-qual -Wformat=2 -Wundef
    # C headers with keywords of C++ for names need such macros.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-keyword-macro>
    $<$<BOOL:${CALMORA_WARNINGS_AS_ERRORS}>:-Werror>)

function(calmora_add_module target kind)
    cmake_parse_arguments(MODULE "" "" "FOLDERS;FILES;LINK" ${ARGN})
    if(NOT kind MATCHES "^(PLAIN|QT)$")
        message(FATAL_ERROR "${target}: a module is PLAIN or QT, not '${kind}'")
    endif()
    foreach(dependency IN LISTS MODULE_LINK)
        if(NOT TARGET ${dependency})
            message(FATAL_ERROR "${target} links ${dependency}, which is no module added before it")
        endif()
        get_target_property(dependency_kind ${dependency} CALMORA_KIND)
        if(kind STREQUAL "PLAIN" AND (dependency MATCHES "^Qt6::" OR dependency_kind STREQUAL "QT"))
            message(FATAL_ERROR "${target} is a PLAIN module but links ${dependency}")
        endif()
    endforeach()

    if(NOT MODULE_FOLDERS)
        set(MODULE_FOLDERS .)
    endif()
    get_property(taken GLOBAL PROPERTY CALMORA_FILES)
    set(headers "")
    set(headers_alone "")
    set(sources "")
    foreach(folder IN LISTS MODULE_FOLDERS)
        file(GLOB found CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.h"
                                          "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp")
        foreach(file IN LISTS found)
            cmake_path(NORMAL_PATH file)
            cmake_path(GET file STEM name)
            if(file IN_LIST taken OR file MATCHES "/main\\.cpp$"
               OR (MODULE_FILES AND NOT name IN_LIST MODULE_FILES))
                continue()
            endif()
            if(file MATCHES "\\.h$")
                list(APPEND headers "${file}")
                cmake_path(REPLACE_EXTENSION file cpp OUTPUT_VARIABLE source)
                if(NOT EXISTS "${source}")
                    list(APPEND headers_alone "${file}")
                endif()
            else()
                list(APPEND sources "${file}")
            endif()
            set_property(GLOBAL APPEND PROPERTY CALMORA_FILES "${file}")
            set_property(GLOBAL PROPERTY "CALMORA_MODULE_OF_${file}" ${target})
        endforeach()
    endforeach()

    if(sources)
        set(scope PUBLIC)
        add_library(${target} STATIC ${sources})
        target_link_libraries(${target} PRIVATE calmora_warnings)
    else()
        set(scope INTERFACE)
        add_library(${target} INTERFACE)
    endif()
    target_sources(${target} ${scope} FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/src"
                   FILES ${headers})
    if(headers_alone)
        target_sources(${target} INTERFACE FILE_SET alone TYPE HEADERS
                       BASE_DIRS "${PROJECT_SOURCE_DIR}/src" FILES ${headers_alone})
        set_property(TARGET ${target} PROPERTY INTERFACE_HEADER_SETS_TO_VERIFY alone)
    else()
        set_property(TARGET ${target} PROPERTY VERIFY_INTERFACE_HEADER_SETS OFF)
    endif()
    target_link_libraries(${target} ${scope} ${MODULE_LINK})
    if(kind STREQUAL "QT")
        # Qt's macros "emit" and "slots" would rename members of ours.
        target_compile_definitions(${target} ${scope} QT_NO_KEYWORDS)
    endif()
    set_property(TARGET ${target} PROPERTY CALMORA_KIND ${kind})
    set_property(TARGET ${target} PROPERTY CALMORA_LINK ${MODULE_LINK})
endfunction()

# A library that the program loads when it first needs it, so that most sessions never have what it
# links in memory: calmora_add_loaded_library(<target> <source> <target to link>...). It exports
# functions with the C ABI; loadedLibrary() finds it.
function(calmora_add_loaded_library target source)
    add_library(${target} MODULE "${source}")
    target_link_libraries(${target} PRIVATE calmora_warnings ${ARGN})
    target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS)
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/src")
    set_target_properties(${target} PROPERTIES
        PREFIX "" CXX_VISIBILITY_PRESET hidden
        LIBRARY_OUTPUT_DIRECTORY "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${CALMORA_MODULES_FROM_PROGRAM}")
    install(TARGETS ${target} LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}/calmora")
endfunction()

# Reads the includes of all modules. Stops and names the file that
# - has a header but does not include it first,
# - includes a header of a module that its own does not link,
# - includes X11 outside platform/x11, or Qt in a PLAIN module,
# or the files that make a circle between folders.
function(calmora_check_includes)
    get_property(files GLOBAL PROPERTY CALMORA_FILES)
    set(source_folder "${PROJECT_SOURCE_DIR}/src/")
    set(folders "")
    foreach(file IN LISTS files)
        get_property(module GLOBAL PROPERTY "CALMORA_MODULE_OF_${file}")
        get_target_property(kind ${module} CALMORA_KIND)
        get_target_property(links ${module} CALMORA_LINK)
        string(REPLACE "${source_folder}" "" short "${file}")
        cmake_path(GET short PARENT_PATH folder)
        list(APPEND folders "${folder}")
        file(STRINGS "${file}" lines REGEX "^#include ")
        string(REGEX REPLACE "\\.cpp$" ".h" own "${short}")
        if(file MATCHES "\\.cpp$" AND EXISTS "${source_folder}${own}"
           AND NOT lines MATCHES "^#include \"${own}\"")
            message(FATAL_ERROR "src/${short} does not include ${own} first")
        endif()
        foreach(line IN LISTS lines)
            if(line MATCHES "<(xcb|X11)/" AND NOT folder MATCHES "^platform/x11")
                message(FATAL_ERROR "src/${short}: only platform/x11 may use X11 (${line})")
            elseif(line MATCHES "<Q" AND kind STREQUAL "PLAIN")
                message(FATAL_ERROR "src/${short}: ${module} is a PLAIN module (${line})")
            elseif(NOT line MATCHES "\"(.+)\"")
                continue()
            endif()
            set(included "${CMAKE_MATCH_1}")
            get_property(other GLOBAL PROPERTY "CALMORA_MODULE_OF_${source_folder}${included}")
            if(other AND NOT other STREQUAL module AND NOT other IN_LIST links)
                message(FATAL_ERROR "src/${short} includes ${included}, but ${module} does not link "
                                    "${other}")
            endif()
            cmake_path(GET included PARENT_PATH included_folder)
            if(other AND NOT included_folder STREQUAL folder)
                list(APPEND arrows_${folder} "${included_folder}")
                list(APPEND examples_${folder} "${included_folder}: src/${short} includes ${included}")
            endif()
        endforeach()
    endforeach()

    # A folder that includes none of the remaining ones, or is included by none, is in no circle.
    list(REMOVE_DUPLICATES folders)
    set(shrinks TRUE)
    while(shrinks)
        set(shrinks FALSE)
        set(reached "")
        foreach(folder IN LISTS folders)
            list(APPEND reached ${arrows_${folder}})
        endforeach()
        foreach(folder IN LISTS folders)
            set(reaches FALSE)
            foreach(target IN LISTS arrows_${folder})
                if(target IN_LIST folders)
                    set(reaches TRUE)
                    break()
                endif()
            endforeach()
            if(NOT reaches OR NOT folder IN_LIST reached)
                list(REMOVE_ITEM folders "${folder}")
                set(shrinks TRUE)
            endif()
        endforeach()
    endwhile()
    set(circle "")
    foreach(folder IN LISTS folders)
        foreach(example IN LISTS examples_${folder})
            string(REGEX REPLACE ": .*" "" target "${example}")
            if(target IN_LIST folders)
                string(REGEX REPLACE "^[^:]*: " "" example "${example}")
                string(APPEND circle "\n  ${example}")
            endif()
        endforeach()
    endforeach()
    if(circle)
        message(FATAL_ERROR "These files make a circle between folders:${circle}")
    endif()
endfunction()
