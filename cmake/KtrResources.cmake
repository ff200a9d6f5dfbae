# Compiles resources into a target itself: ktr_add_resources(TARGET QRC-FILE NAME).
# Like AUTORCC, but with a fixed timestamp, for reproducible builds.
function(ktr_add_resources target file name)
    cmake_path(GET file PARENT_PATH folder)
    set(compiled "${CMAKE_CURRENT_BINARY_DIR}/${target}_${name}_qrc.cpp")
    file(STRINGS "${file}" files REGEX "<file.*</file>")
    list(TRANSFORM files REPLACE ".*<file[^>]*>(.*)</file>.*" "${folder}/\\1")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    add_custom_command(
        OUTPUT "${compiled}"
        # 1 January 1980, as Unix time.
        COMMAND "${CMAKE_COMMAND}" -E env --unset=SOURCE_DATE_EPOCH
            QT_RCC_SOURCE_DATE_OVERRIDE=315532800
            "$<TARGET_FILE:Qt5::rcc>" --format-version 3 --name "${name}" --output "${compiled}"
            "${file}"
        DEPENDS "${file}" ${files}
        COMMENT "Compiling ${file}"
        VERBATIM)
    set_source_files_properties("${compiled}" PROPERTIES SKIP_AUTOGEN ON)
    target_sources(${target} PRIVATE "${compiled}")
endfunction()

# The same for QML resources, which are also compiled ahead of time, for a quicker start:
# ktr_add_interface(TARGET QRC-FILE). The sources stay among the resources: a Qt version that
# rejects QML compiled by another version falls back to them.
find_program(KTR_QMLCACHEGEN NAMES qmlcachegen
    PATHS "${Qt5_DIR}/../../../bin" /usr/lib/qt5/bin NO_DEFAULT_PATH REQUIRED)

function(ktr_add_interface target file)
    ktr_add_resources(${target} "${file}" interface_sources)
    cmake_path(GET file PARENT_PATH folder)
    file(STRINGS "${file}" sources REGEX "<file>.*\\.(qml|js)</file>")
    list(TRANSFORM sources REPLACE ".*<file>(.*)</file>.*" "\\1")
    # Otherwise the tool lists files in random order.
    set(compiler "${CMAKE_COMMAND}" -E env QT_HASH_SEED=0 "${KTR_QMLCACHEGEN}")
    set(compiled)
    foreach(source IN LISTS sources)
        string(MAKE_C_IDENTIFIER "${target}_${source}" name)
        set(output "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
        add_custom_command(
            OUTPUT "${output}"
            COMMAND ${compiler} "--resource=${file}" -o "${output}" "${folder}/${source}"
            DEPENDS "${folder}/${source}" "${file}"
            COMMENT "Compiling ${folder}/${source}"
            VERBATIM)
        list(APPEND compiled "${output}")
    endforeach()
    # The loader, which finds each compiled file by its resource path. qmlcachegen knows by this
    # file name what to generate.
    set(index "${CMAKE_CURRENT_BINARY_DIR}/${target}_qmlcache_loader.cpp")
    add_custom_command(
        OUTPUT "${index}"
        COMMAND ${compiler} "--resource-file-mapping=${file}=interface_sources.qrc"
            -o "${index}" "${file}"
        DEPENDS "${file}"
        COMMENT "Indexing ${file}"
        VERBATIM)
    set_source_files_properties(${compiled} "${index}" PROPERTIES SKIP_AUTOGEN ON)
    target_sources(${target} PRIVATE ${compiled} "${index}")
endfunction()
