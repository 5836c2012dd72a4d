# The driver: its headers as the target lmq_interface, its library as lmq_driver, and its SONAME as LMQ_DRIVER_NAME. They
# are those of this repository, where driver/ makes lmq_driver, or those that LMQ_DRIVER_INCLUDE and LMQ_DRIVER_LIBRARY
# name. LMQ_INTERFACE is the folder of the headers either way.
set(LMQ_DRIVER_INCLUDE "" CACHE PATH "Folder of a real driver's headers, lmq/lmq.h and the others; empty: include/")
set(LMQ_DRIVER_LIBRARY "" CACHE FILEPATH "The real driver's shared library; empty: the simulated chip in driver/")

add_library(lmq_interface INTERFACE)

if(NOT LMQ_DRIVER_INCLUDE AND NOT LMQ_DRIVER_LIBRARY)
    set(LMQ_REAL_DRIVER OFF)
    set(LMQ_DRIVER_NAME liblmq.so)
    set(LMQ_INTERFACE ${PROJECT_SOURCE_DIR}/include)
    target_include_directories(lmq_interface INTERFACE ${LMQ_INTERFACE})
    install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
    return()
endif()

set(LMQ_REAL_DRIVER ON)
if(NOT LMQ_DRIVER_INCLUDE OR NOT LMQ_DRIVER_LIBRARY)
    message(FATAL_ERROR "LMQ_DRIVER_INCLUDE and LMQ_DRIVER_LIBRARY go together: one of them is missing")
endif()
get_filename_component(LMQ_INTERFACE ${LMQ_DRIVER_INCLUDE} ABSOLUTE BASE_DIR ${CMAKE_BINARY_DIR})
get_filename_component(library ${LMQ_DRIVER_LIBRARY} ABSOLUTE BASE_DIR ${CMAKE_BINARY_DIR})
# Each, since a header that is missing there must not be taken from here.
file(GLOB headers RELATIVE ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/include/lmq/*.h)
list(REMOVE_ITEM headers lmq/remote.h) # the remote driver's own, not a driver's
foreach(header IN LISTS headers)
    if(NOT EXISTS ${LMQ_INTERFACE}/${header})
        message(FATAL_ERROR "LMQ_DRIVER_INCLUDE: there is no ${LMQ_INTERFACE}/${header}")
    endif()
endforeach()
if(NOT EXISTS ${library})
    message(FATAL_ERROR "LMQ_DRIVER_LIBRARY: there is no ${library}")
endif()

# The plug-in asks the loader for the driver by this name.
execute_process(COMMAND ${CMAKE_READELF} -dW ${library} OUTPUT_VARIABLE dynamic ERROR_QUIET)
if(NOT dynamic MATCHES "\\(SONAME\\)[^[]*\\[([^]]+)\\]")
    message(FATAL_ERROR "LMQ_DRIVER_LIBRARY: ${library} is no shared library with a SONAME")
endif()
set(LMQ_DRIVER_NAME ${CMAKE_MATCH_1})

# Copies, since beside the originals stand headers of the same names.
foreach(header lmq_xmlrpc.h lmq/remote.h)
    configure_file(${PROJECT_SOURCE_DIR}/include/${header} ${CMAKE_BINARY_DIR}/exports/${header} COPYONLY)
endforeach()
target_include_directories(lmq_interface INTERFACE ${CMAKE_BINARY_DIR}/exports)
# Not our code: its warnings are nobody's here.
target_include_directories(lmq_interface SYSTEM INTERFACE ${LMQ_INTERFACE})
target_compile_definitions(lmq_interface INTERFACE LMQ_REAL_DRIVER)
# So are told the members that have no row.
target_compile_options(lmq_interface INTERFACE -Wno-error=deprecated-declarations)
install(FILES include/lmq_xmlrpc.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES include/lmq/remote.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/lmq)

add_library(lmq_driver SHARED IMPORTED)
set_target_properties(lmq_driver PROPERTIES IMPORTED_LOCATION ${library} IMPORTED_SONAME ${LMQ_DRIVER_NAME})
install(FILES ${library} DESTINATION ${CMAKE_INSTALL_LIBDIR}/lmq RENAME ${LMQ_DRIVER_NAME})
