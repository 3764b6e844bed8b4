# Parts of the program that need a large Qt library are built as modules that the program loads
# the first time the user needs them, so that starting the program maps none of those libraries:
# "velmora-graphs" (Qt Charts and Qt Print Support) and "velmora-network" (Qt Network).
#
# A module holds only its own code. Everything else it calls (the store, the ui helpers, the
# analysis logic) comes from the program that loads it, which exports its symbols and links the
# whole of every library of ours that a module builds on. Where loading is not built (systems
# other than Linux), the same code is linked into the program and called directly.

if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set(VELMORA_LOADABLE_MODULES_DEFAULT ON)
else()
    set(VELMORA_LOADABLE_MODULES_DEFAULT OFF)
endif()
option(VELMORA_LOADABLE_MODULES "Load the graphs and network parts of the program on first use"
    ${VELMORA_LOADABLE_MODULES_DEFAULT})

# velmora_add_module(NAME SOURCES files... LINK libraries...)
# Makes the object library velmora_NAME (linked by tests and, without loading, by the program)
# and, with loading, the module velmora-NAME beside the program.
function(velmora_add_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_library(velmora_${name} OBJECT ${arg_SOURCES})
    set_target_properties(velmora_${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_include_directories(velmora_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(velmora_${name} PUBLIC ${arg_LINK})
    set_property(GLOBAL APPEND PROPERTY VELMORA_MODULES ${name})
    if(NOT VELMORA_LOADABLE_MODULES)
        return()
    endif()
    set(qt_libraries)
    set(our_libraries)
    foreach(library ${arg_LINK})
        if(library MATCHES "^Qt6::")
            list(APPEND qt_libraries ${library})
        else()
            list(APPEND our_libraries ${library})
        endif()
    endforeach()
    add_library(velmora-${name} MODULE $<TARGET_OBJECTS:velmora_${name}>)
    set_target_properties(velmora-${name} PROPERTIES PREFIX ""
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
    # Only Qt's libraries and the build settings; our own code comes from the program.
    target_link_libraries(velmora-${name} PRIVATE velmora_settings ${qt_libraries})
    set_property(GLOBAL APPEND PROPERTY VELMORA_MODULE_LIBRARIES ${our_libraries})
endfunction()

# The static libraries of ours that `library` links, itself included, into the variable `out`.
function(velmora_static_closure library out)
    set(pending ${library})
    set(seen)
    while(pending)
        list(POP_FRONT pending current)
        string(REGEX REPLACE "^\\$<LINK_ONLY:(.*)>$" "\\1" current "${current}")
        if(NOT TARGET ${current} OR current IN_LIST seen)
            continue()
        endif()
        list(APPEND seen ${current})
        get_target_property(links ${current} INTERFACE_LINK_LIBRARIES)
        if(links)
            list(APPEND pending ${links})
        endif()
    endwhile()
    set(result)
    foreach(target ${seen})
        get_target_property(type ${target} TYPE)
        if(type STREQUAL "STATIC_LIBRARY" AND target MATCHES "^velmora_")
            list(APPEND result ${target})
        endif()
    endforeach()
    set(${out} ${result} PARENT_SCOPE)
endfunction()

# Links the program's shell into `target` (the program, or a test of the shell) together with
# what the modules need: with loading, the target exports its symbols and holds every library
# the modules build on whole; without, the modules' code is linked in.
function(velmora_link_app target)
    target_link_libraries(${target} PRIVATE velmora_app)
    get_property(modules GLOBAL PROPERTY VELMORA_MODULES)
    if(NOT VELMORA_LOADABLE_MODULES)
        foreach(name ${modules})
            target_link_libraries(${target} PRIVATE velmora_${name})
        endforeach()
        return()
    endif()
    get_property(needed GLOBAL PROPERTY VELMORA_MODULE_LIBRARIES)
    set(whole)
    foreach(library ${needed})
        velmora_static_closure(${library} closure)
        list(APPEND whole ${closure})
    endforeach()
    list(REMOVE_DUPLICATES whole)
    set(files)
    foreach(library ${whole})
        list(APPEND files "$<TARGET_FILE:${library}>")
    endforeach()
    string(JOIN " " files ${files})
    target_link_libraries(${target} PRIVATE ${whole})
    target_link_options(${target} PRIVATE "SHELL:-Wl,--whole-archive ${files} -Wl,--no-whole-archive")
    set_target_properties(${target} PROPERTIES ENABLE_EXPORTS ON)
    foreach(name ${modules})
        add_dependencies(${target} velmora-${name})
    endforeach()
endfunction()
