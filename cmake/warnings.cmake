# lmq_warnings(TARGET...): the warnings that our own code must be free of, as errors.
function(lmq_warnings)
    foreach(target IN LISTS ARGN)
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Wshadow -Wpointer-arith -Werror)
    endforeach()
endfunction()
