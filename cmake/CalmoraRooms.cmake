# A room is one library target: one folder of src, its headers verified to compile alone.
#
#   calmora_add_room(<target> PLAIN|VIEWS
#       FLOOR <n>                 1 is the ground; a room may link its own floor and those below
#       HEADERS <file>...
#       SOURCES <file>...         none makes a header-only room
#       LINK <target>...)         public dependencies
#
# PLAIN rooms use the standard library and plain C libraries; VIEWS rooms may use Qt. The mixture is
# refused by calmora_check_rooms() when configuring ends.

add_library(calmora_warnings INTERFACE)
target_compile_options(calmora_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    -Wcast-qual -Wformat=2 -Wundef
    $<$<BOOL:${CALMORA_WARNINGS_AS_ERRORS}>:-Werror>)

function(calmora_add_room target kind)
    cmake_parse_arguments(ROOM "" "FLOOR" "HEADERS;SOURCES;LINK" ${ARGN})
    if(NOT kind MATCHES "^(PLAIN|VIEWS)$")
        message(FATAL_ERROR "${target}: a room is PLAIN or VIEWS, not '${kind}'")
    endif()
    if(NOT ROOM_FLOOR)
        message(FATAL_ERROR "${target}: a room stands on a FLOOR")
    endif()
    if(ROOM_SOURCES)
        set(scope PUBLIC)
        add_library(${target} STATIC ${ROOM_SOURCES})
        target_link_libraries(${target} PRIVATE calmora_warnings)
    else()
        set(scope INTERFACE)
        add_library(${target} INTERFACE)
    endif()
    target_sources(${target} ${scope} FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/src"
                   FILES ${ROOM_HEADERS})
    target_link_libraries(${target} ${scope} ${ROOM_LINK})
    if(kind STREQUAL "VIEWS")
        # Qt's macros "emit" and "slots" would rename members of ours.
        target_compile_definitions(${target} ${scope} QT_NO_KEYWORDS)
    endif()
    set_property(TARGET ${target} PROPERTY CALMORA_KIND ${kind})
    set_property(TARGET ${target} PROPERTY CALMORA_FLOOR ${ROOM_FLOOR})
    set_property(GLOBAL APPEND PROPERTY CALMORA_ROOMS ${target})
endfunction()

# Stops with the name of the offender when a plain room reaches Qt, or a room reaches up.
function(calmora_check_rooms)
    get_property(rooms GLOBAL PROPERTY CALMORA_ROOMS)
    foreach(room IN LISTS rooms)
        get_target_property(kind ${room} CALMORA_KIND)
        get_target_property(floor ${room} CALMORA_FLOOR)
        set(queue ${room})
        set(seen "")
        while(queue)
            list(POP_FRONT queue current)
            if(current IN_LIST seen)
                continue()
            endif()
            list(APPEND seen ${current})
            if(kind STREQUAL "PLAIN" AND current MATCHES "^Qt[0-9]*::")
                message(FATAL_ERROR "${room} is a plain room but links ${current}")
            endif()
            if(NOT TARGET ${current})
                continue()
            endif()
            get_target_property(current_kind ${current} CALMORA_KIND)
            if(NOT current_kind)
                continue()
            endif()
            if(kind STREQUAL "PLAIN" AND current_kind STREQUAL "VIEWS")
                message(FATAL_ERROR "${room} is a plain room but links the views room ${current}")
            endif()
            get_target_property(current_floor ${current} CALMORA_FLOOR)
            if(current_floor GREATER floor)
                message(FATAL_ERROR "${room} (floor ${floor}) reaches up to ${current} (floor ${current_floor})")
            endif()
            foreach(property IN ITEMS LINK_LIBRARIES INTERFACE_LINK_LIBRARIES)
                get_target_property(links ${current} ${property})
                if(links)
                    list(APPEND queue ${links})
                endif()
            endforeach()
        endwhile()
    endforeach()
endfunction()
