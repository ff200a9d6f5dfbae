# Compiles resources into a target itself: ktr_add_resources(TARGET QRC-FILE).
# As AUTORCC does, but for the dates of the files, which the resource compiler writes down, too: all
# get the same, or each copy of the sources would give another program.
function(ktr_add_resources target file)
    cmake_path(GET file PARENT_PATH folder)
    cmake_path(GET file STEM name)
    set(compiled "${CMAKE_CURRENT_BINARY_DIR}/${target}_${name}_qrc.cpp")
    file(STRINGS "${file}" files REGEX "<file.*</file>")
    list(TRANSFORM files REPLACE ".*<file[^>]*>(.*)</file>.*" "${folder}/\\1")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    add_custom_command(
        OUTPUT "${compiled}"
        # The beginning of 1980, in seconds of Unix.
        COMMAND "${CMAKE_COMMAND}" -E env QT_RCC_SOURCE_DATE_OVERRIDE=315532800
            "$<TARGET_FILE:Qt5::rcc>" --name "${name}" --output "${compiled}" "${file}"
        DEPENDS "${file}" ${files}
        COMMENT "Compiling ${file}"
        VERBATIM)
    set_source_files_properties("${compiled}" PROPERTIES SKIP_AUTOGEN ON)
    target_sources(${target} PRIVATE "${compiled}")
endfunction()
