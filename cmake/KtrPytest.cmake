# Registers files of pytest as tests, one test per file, against the build that registers them:
#
#     ktr_add_pytests(LABEL FILE... [WORKERS N] [PROCESSORS N] [COST N] [OPTIONS ARG...])
#
# The test of test_x.py is LABEL.x. WORKERS runs the cases of a file in parallel. COST moves a long
# file to the front. PROCESSORS is in quarters: `./test` runs four jobs for each processor, since a
# scenario mostly waits.
function(ktr_add_pytests label)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "WORKERS;PROCESSORS;COST" "OPTIONS")
    if(arg_WORKERS)
        list(APPEND arg_OPTIONS -n ${arg_WORKERS})
    endif()
    foreach(file IN LISTS arg_UNPARSED_ARGUMENTS)
        if(NOT EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${file}")
            message(FATAL_ERROR "${CMAKE_CURRENT_SOURCE_DIR} has no ${file}")
        endif()
        cmake_path(GET file STEM name)
        string(REGEX REPLACE "^test_" "${label}." test "${name}")
        add_test(NAME ${test} WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
            COMMAND /usr/bin/python3 -m pytest -q -rs ${arg_OPTIONS} ${name}.py)
        set_tests_properties(${test} PROPERTIES LABELS ${label} TIMEOUT 1800
            PROCESSORS $<IF:$<BOOL:${arg_PROCESSORS}>,${arg_PROCESSORS},1>
            COST $<IF:$<BOOL:${arg_COST}>,${arg_COST},1>
            ENVIRONMENT "KTR_BUILD=${PROJECT_BINARY_DIR};KTR_QT_KIT=$ENV{KTR_QT_KIT}")
    endforeach()
endfunction()
