# What every target of ours shares: ccache, warnings as errors, the source root as include path,
# sanitizers, code coverage.

set(KTR_PRODUCT_DIR "${PROJECT_SOURCE_DIR}/src")
if(WIN32)
    set(KTR_PLATFORM windows)
else()
    set(KTR_PLATFORM posix)
endif()

# ccache, if it is installed. A second checkout in another folder profits, too: paths below the
# source folder reach the compiler as relative ones, and the build folder does not count (so the
# debug information may name the other checkout). Not for coverage: the compiler writes .gcno files
# beside the objects. CCACHE_DISABLE=1 in the environment of a build compiles everything.
if(NOT CMAKE_CXX_COMPILER_LAUNCHER AND NOT KTR_COVERAGE)
    find_program(ccache ccache NO_CACHE)
    if(ccache)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
            "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${ccache}")
    endif()
endif()

# Code coverage, for tools/coverage.
function(ktr_target_coverage target)
    # Threads update counters atomically; processes share one file in the build directory.
    target_compile_options(${target} PRIVATE --coverage -O0 -fprofile-update=atomic
        -fprofile-abs-path)
    target_link_options(${target} PRIVATE --coverage)
    # Our code neither throws nor catches: without the branches for exception clean-up, only the
    # branches of our sources count. GoogleTest needs exceptions.
    set(tests "${PROJECT_SOURCE_DIR}/tests")
    cmake_path(IS_PREFIX tests "${CMAKE_CURRENT_SOURCE_DIR}" in_tests)
    if(NOT in_tests)
        target_compile_options(${target} PRIVATE -fno-exceptions)
    endif()
    get_target_property(type ${target} TYPE)
    if(NOT type MATCHES "STATIC_LIBRARY|OBJECT_LIBRARY")
        target_sources(${target} PRIVATE "${PROJECT_SOURCE_DIR}/cmake/coverage_counters.cpp")
        target_link_options(${target} PRIVATE -Wl,--wrap=execve,--wrap=_exit)
    endif()
endfunction()

function(ktr_target_defaults target)
    target_include_directories(${target} PRIVATE
        "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}")
    # -Wshadow=local: a parameter may have the name of the member that it sets, as in setExitCode().
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Werror
        $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local> -Wconversion -Wnon-virtual-dtor
        -Woverloaded-virtual -Wold-style-cast -Wformat=2 -Wcast-align -Wundef)
    if(WIN32)
        # The program supports Windows 7 and later, as its manifest says.
        target_compile_definitions(${target} PRIVATE UNICODE _UNICODE WINVER=0x0601
            _WIN32_WINNT=0x0601 WIN32_LEAN_AND_MEAN NOMINMAX)
        # Stack protector; no paths of the build machine. The last map that fits counts;
        # the result is the same with ccache, which makes paths relative.
        set(maps "${PROJECT_SOURCE_DIR}/=" "../../=" "${PROJECT_BINARY_DIR}/=")
        if(DEFINED ENV{KTR_QT_KIT})
            list(APPEND maps "$ENV{KTR_QT_KIT}/=qt/")
        endif()
        list(TRANSFORM maps REPLACE "(.+)" "$<$<COMPILE_LANGUAGE:CXX>:-ffile-prefix-map=\\1>")
        target_compile_options(${target} PRIVATE
            $<$<COMPILE_LANGUAGE:CXX>:-fstack-protector-strong> "${maps}")
        target_link_options(${target} PRIVATE -fstack-protector-strong)
        # Only what ships has symbols; cmake/KtrWindowsExecutable.cmake moves them to a file of
        # their own.
        cmake_path(IS_PREFIX KTR_PRODUCT_DIR "${CMAKE_CURRENT_SOURCE_DIR}" in_product)
        if(in_product)
            target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-g>)
        endif()
        target_link_options(${target} PRIVATE
            $<$<AND:$<CONFIG:Release>,$<NOT:$<BOOL:$<TARGET_PROPERTY:KTR_SYMBOLS>>>>:-s>)
        # One file per program: no run-time DLL of the compiler beside it. The same sources give the
        # same file, whenever it is linked.
        target_link_options(${target} PRIVATE -static -Wl,--no-insert-timestamp)
    endif()
    if(KTR_SANITIZE)
        # Not Clang's check of function types: a library and its client may declare the same C
        # function with types of different names.
        target_compile_options(${target} PRIVATE -fsanitize=${KTR_SANITIZE}
            -fno-sanitize-recover=all -fno-omit-frame-pointer
            $<$<CXX_COMPILER_ID:Clang>:-fno-sanitize=function>)
        target_link_options(${target} PRIVATE -fsanitize=${KTR_SANITIZE})
    endif()
    if(KTR_COVERAGE)
        ktr_target_coverage(${target})
    endif()
endfunction()

# Code that uses Qt, with macros that forbid hidden string conversions.
function(ktr_qt_target_defaults target)
    ktr_target_defaults(${target})
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_KEYWORDS QT_DEPRECATED_WARNINGS)
endfunction()
