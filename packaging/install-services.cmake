# Installs the systemd unit and the init script. They name the program and its configuration by their full paths, which
# only the installation knows: `cmake --install --prefix` has the last word. Of its caller it wants the folders `services`
# (templates) and `scratch`, and as they are configured `bindir`, `sysconfdir` and `datadir`.
get_filename_component(prefix "${CMAKE_INSTALL_PREFIX}" ABSOLUTE)
if(prefix STREQUAL "/usr" AND sysconfdir STREQUAL "etc")
    set(sysconfdir /etc)
endif()
foreach(folder bindir sysconfdir datadir)
    cmake_path(ABSOLUTE_PATH ${folder} BASE_DIRECTORY "${prefix}" NORMALIZE)
endforeach()
foreach(file lmq-host.service lmq-host.init)
    configure_file(${services}/${file}.in ${scratch}/${file} @ONLY)
endforeach()
file(INSTALL ${scratch}/lmq-host.service DESTINATION "${prefix}/lib/systemd/system" TYPE FILE)
file(INSTALL ${scratch}/lmq-host.init DESTINATION "${datadir}/lmq-host" TYPE PROGRAM)
