# Compiles translation sources: ktr_compile_translation(TS-FILE QM-FILE).
# Searches for the tool in the Qt kit, then in Debian's folder.
find_program(KTR_LRELEASE NAMES lrelease
    PATHS "${Qt5_DIR}/../../../bin" /usr/lib/qt5/bin NO_DEFAULT_PATH REQUIRED)

function(ktr_compile_translation source target)
    add_custom_command(
        OUTPUT "${target}"
        COMMAND "${KTR_LRELEASE}" -silent "${source}" -qm "${target}"
        DEPENDS "${source}"
        COMMENT "Compiling ${target}"
        VERBATIM)
endfunction()
