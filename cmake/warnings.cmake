# lmq_warnings(TARGET...): the warnings that our own code must be free of. The presets make errors of them.
function(lmq_warnings)
    foreach(target IN LISTS ARGN)
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Wshadow -Wpointer-arith)
        # GCC 12 sees overlaps in std::string that are not there.
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
    endforeach()
endfunction()
