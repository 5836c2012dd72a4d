# Installs what names programs and files by their full paths, which only the installation knows: `cmake --install --prefix`
# has the last word. These are the systemd unit, the init script and the man pages. Of its caller it wants the folders
# `services` (templates) and `scratch`; as they are configured `bindir`, `libdir`, `sysconfdir`, `datadir` and `mandir`; and
# `pages`.
get_filename_component(prefix "${CMAKE_INSTALL_PREFIX}" ABSOLUTE)
if(prefix STREQUAL "/usr" AND sysconfdir STREQUAL "etc")
    set(sysconfdir /etc)
endif()
foreach(folder bindir libdir sysconfdir datadir mandir)
    cmake_path(ABSOLUTE_PATH ${folder} BASE_DIRECTORY "${prefix}" NORMALIZE)
endforeach()
foreach(file lmq-host.service lmq-host.init)
    configure_file(${services}/${file}.in ${scratch}/${file} @ONLY)
endforeach()
file(INSTALL ${scratch}/lmq-host.service DESTINATION "${prefix}/lib/systemd/system" TYPE FILE)
file(INSTALL ${scratch}/lmq-host.init DESTINATION "${datadir}/lmq-host" TYPE PROGRAM)
foreach(page IN LISTS pages)
    configure_file(${services}/${page} ${scratch}/${page} @ONLY)
    string(REGEX MATCH "[0-9]$" section ${page})
    file(INSTALL ${scratch}/${page} DESTINATION "${mandir}/man${section}" TYPE FILE)
endforeach()
