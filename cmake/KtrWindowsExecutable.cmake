# What only the shipped Windows executable has: manifest, icon, version, and exploit mitigations.
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
        -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat $<$<CONFIG:Release>:-s>)
    # Windows 7, as in the manifest: an older system refuses the program, and newer ones
    # enable no compatibility mode.
    target_link_options(${target} PRIVATE
        -Wl,--major-os-version,6 -Wl,--minor-os-version,1
        -Wl,--major-subsystem-version,6 -Wl,--minor-subsystem-version,1)
    # Reproducible: no link time in the file.
    target_link_options(${target} PRIVATE -Wl,--no-insert-timestamp)
endfunction()
