# list_enumerators(HEADER PREFIX OUTPUT): writes xx(NAME) for each enumerator of include/lmq/HEADER whose name begins with
# PREFIX to the file OUTPUT in the build folder of the caller. The enums in the headers are the only list of them, so what
# has to know statuses or events by name takes them from there. It is written anew when the header changes.
function(list_enumerators header prefix output)
    set(path ${LMQ_INTERFACE}/lmq/${header})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${path})
    file(STRINGS ${path} lines REGEX "^[ \t]*${prefix}[A-Z0-9_]+( = [A-Za-z0-9_]+)?,")
    if(NOT lines)
        message(FATAL_ERROR "${path}: no enumerator begins with ${prefix}")
    endif()
    list(TRANSFORM lines REPLACE "^[ \t]*(${prefix}[A-Z0-9_]+).*" "xx(\\1)\n")
    string(JOIN "" text ${lines})
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${output} CONTENT "${text}")
endfunction()
