# What the shipped Windows executable has beyond other targets: manifest, icon, version, and exploit
# mitigations. The benchmark gives its window the same.
if(WIN32)
    enable_language(RC)
endif()

function(ktr_windows_executable target)
    if(NOT WIN32)
        return()
    endif()
    set(sources "${PROJECT_SOURCE_DIR}/src/resources")
    set(manifest "${CMAKE_CURRENT_BINARY_DIR}/${target}.manifest")
    set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
    configure_file("${sources}/windows/UninstallUI.manifest.in" "${manifest}" @ONLY)
    configure_file("${sources}/windows/UninstallUI.rc.in" "${resource}" @ONLY)
    set_source_files_properties("${resource}" PROPERTIES
        OBJECT_DEPENDS "${manifest};${sources}/icon/uninstall.ico")
    target_sources(${target} PRIVATE "${resource}")
    target_link_options(${target} PRIVATE
        -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat)
    # Windows 7, as in the manifest: an older system refuses the program, and newer ones
    # enable no compatibility mode.
    target_link_options(${target} PRIVATE
        -Wl,--major-os-version,6 -Wl,--minor-os-version,1
        -Wl,--major-subsystem-version,6 -Wl,--minor-subsystem-version,1)
    # Debuggers find the symbols by the build id. strip would insert the time of the build.
    set_target_properties(${target} PROPERTIES KTR_SYMBOLS ON)
    target_link_options(${target} PRIVATE -Wl,--build-id)
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND "${CMAKE_COMMAND}" -E env SOURCE_DATE_EPOCH=0
            "${CMAKE_OBJCOPY}" --only-keep-debug "$<TARGET_FILE:${target}>"
            "$<TARGET_FILE:${target}>.debug"
        COMMAND "${CMAKE_COMMAND}" -E env SOURCE_DATE_EPOCH=0
            "${CMAKE_STRIP}" "$<TARGET_FILE:${target}>"
        VERBATIM)
endfunction()
