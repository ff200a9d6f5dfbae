# shellcheck shell=bash
# For sourcing: runs the steps of a script quietly, prints how long each took, and shows a step's
# output only if it failed.

steps_dir=build/logs
mkdir -p "$steps_dir"

# step TITLE COMMAND...: `step_tail` lines of its output are shown when it fails.
step() {
    local title=$1 log began=$SECONDS seconds took
    shift
    log="$steps_dir/$(tr -c 'a-z0-9\n' '-' <<<"${title,,}").log"
    local status=0
    "$@" >"$log" 2>&1 || status=$?
    seconds=$((SECONDS - began))
    took=$(printf '%-52s %5ds%s' "$title" "$seconds" "$(of_budget "$title")")
    [[ $seconds -le ${budgets[$title]:-$seconds} ]] || overran+=("$took")
    if [[ $status -eq 0 ]]; then
        printf '%s\n' "$took"
        return 0
    fi
    printf '%s  FAILED\n' "$took"
    {
        tail -n "${step_tail:-60}" "$log"
        printf '\n%s: this command failed with status %d:\n  %s\nAll of its output: %s\n' \
            "$title" "$status" "$*" "$log"
    } >&2
    return "$status"
}

# What a step may take on two idle cores, in seconds, by its title; the caller fills it in. A step
# that takes longer is listed in `overran` and does not fail, since other load delays it too.
declare -gA budgets=()
overran=()
of_budget() { [[ -z ${budgets[$1]:-} ]] || printf ' of %5ds' "${budgets[$1]}"; }

# build PRESET TARGET...: configures once, then builds.
build() {
    local preset=$1
    shift
    if [[ ! -f build/$preset/build.ninja ]]; then
        cmake --preset "$preset" || return
    fi
    cmake --build "build/$preset" --target "$@"
}
