# What only the shipped Windows executable has: manifest, icon, version, and what the system can do
# against attacks on it.
function(ktr_windows_executable target)
    if(NOT WIN32)
        return()
    endif()
    enable_language(RC)
    set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
    configure_file("${PROJECT_SOURCE_DIR}/resources/windows/UninstallUI.rc.in" "${resource}" @ONLY)
    set_source_files_properties("${resource}" PROPERTIES OBJECT_DEPENDS
        "${PROJECT_SOURCE_DIR}/resources/windows/UninstallUI.manifest;${PROJECT_SOURCE_DIR}/resources/icon/uninstall.ico")
    target_sources(${target} PRIVATE "${resource}")
    target_link_options(${target} PRIVATE
        -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat $<$<CONFIG:Release>:-s>)
endfunction()
