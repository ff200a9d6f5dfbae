#!/bin/sh
# The clean-up script. It removes nothing; it records how it was called: args, cwd, the session
# (sid beside the pid of this shell), nice value and scheduling policy (5 is the idle one), and
# where the three standard streams lead. The program runs a copy of this file from the temp
# directory.
status=$(cat "/proc/$$/stat")
status=${status##*) }
policy=$(echo "$status" | cut -d ' ' -f 39)
exec @NOTE@ clearKTR.bat start "script=$0" "script_pid=$$" \
    "sid=$(echo "$status" | cut -d ' ' -f 4)" "nice=$(echo "$status" | cut -d ' ' -f 17)" \
    "policy=$policy" "stdin=$(readlink "/proc/$$/fd/0")" "stdout=$(readlink "/proc/$$/fd/1")" \
    "stderr=$(readlink "/proc/$$/fd/2")" -- "$@"
