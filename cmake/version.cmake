# What --version says: the version, the commit that the programs were built from, and the fingerprint of the interface. The
# target lmq_version writes it to lmq_version.h in LMQ_VERSION_DIR with each build, as the commit changes without a file of
# ours changing; the header keeps its time while it says the same.
set(LMQ_COMMIT "" CACHE STRING "The commit that --version names; empty: what git says of the source folder")

if(NOT CMAKE_SCRIPT_MODE_FILE)
    set(LMQ_VERSION_DIR ${CMAKE_BINARY_DIR}/version)
    add_custom_target(lmq_version
        COMMAND ${CMAKE_COMMAND} -D VERSION=${PROJECT_VERSION} -D LMQ_COMMIT=${LMQ_COMMIT} -D SOURCE=${PROJECT_SOURCE_DIR}
                -D FINGERPRINT=${LMQ_CONTRACT_DIR}/fingerprint -D HEADER=${LMQ_VERSION_DIR}/lmq_version.h
                -P ${CMAKE_CURRENT_LIST_FILE}
        BYPRODUCTS ${LMQ_VERSION_DIR}/lmq_version.h
        DEPENDS ${LMQ_CONTRACT_DIR}/fingerprint
        COMMENT "" VERBATIM)
    add_dependencies(lmq_version lmq_contract)
    return()
endif()

# As a script, in the build.
set(commit ${LMQ_COMMIT})
# A repository around an unpacked archive is not the one that this is from.
if(NOT commit AND EXISTS ${SOURCE}/.git)
    execute_process(COMMAND git -C ${SOURCE} rev-parse --short=12 HEAD
        OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
    if(failed)
        set(commit "")
    else()
        execute_process(COMMAND git -C ${SOURCE} diff --quiet HEAD RESULT_VARIABLE changed OUTPUT_QUIET ERROR_QUIET)
        if(changed)
            string(APPEND commit "+")
        endif()
    endif()
endif()
if(commit)
    string(PREPEND commit "commit ")
    string(APPEND commit ", ")
endif()
file(STRINGS ${FINGERPRINT} fingerprint)
file(CONFIGURE OUTPUT ${HEADER} CONTENT
    "// Made by cmake/version.cmake.\n#define LMQ_VERSION \"${VERSION} (${commit}interface ${fingerprint})\"\n")
