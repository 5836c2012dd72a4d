# Builds for the target: 32-bit little-endian ARM Linux, with the distribution's cross compiler and the sysroot that
# arm-sysroot.sh prepares in the build folder. Programs of the build run under user-mode emulation.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)

# The environment may name a folder that outlives the build folder.
if(DEFINED ENV{LMQ_SYSROOT})
    set(sysroot $ENV{LMQ_SYSROOT})
else()
    set(sysroot ${CMAKE_CURRENT_LIST_DIR}/../build/arm-sysroot)
endif()
set(LMQ_SYSROOT ${sysroot} CACHE PATH "Where arm-sysroot.sh puts the ARM packages")
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES LMQ_SYSROOT)
get_filename_component(LMQ_SYSROOT ${LMQ_SYSROOT} ABSOLUTE)
execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/arm-sysroot.sh ${LMQ_SYSROOT} RESULT_VARIABLE failed)
if(failed)
    message(FATAL_ERROR "There is no sysroot to build with: see the messages of cmake/arm-sysroot.sh above")
endif()

set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_C_FLAGS_INIT "-mcpu=cortex-a9")
set(CMAKE_CXX_FLAGS_INIT "-mcpu=cortex-a9 -Wno-psabi") # the note on GCC 7's change of the ABI concerns nobody here

set(CMAKE_FIND_ROOT_PATH ${LMQ_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${LMQ_SYSROOT}/usr/lib/arm-linux-gnueabihf/pkgconfig:${LMQ_SYSROOT}/usr/share/pkgconfig)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${LMQ_SYSROOT})

# The libraries that our libraries need.
foreach(kind EXE SHARED MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT
        "-Wl,-rpath-link,${LMQ_SYSROOT}/lib/arm-linux-gnueabihf -Wl,-rpath-link,${LMQ_SYSROOT}/usr/lib/arm-linux-gnueabihf")
endforeach()

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm;-L;${LMQ_SYSROOT})
