# SPDX-License-Identifier: MIT
# Sourced by scripts/test: one command at a time that only computes, in the background, in moments that nothing else wants.

# begin_meanwhile COMMAND...: what it prints is kept for finish_meanwhile. It ends, and leaves nothing behind, when this shell
# does.
begin_meanwhile() {
    meanwhile=$(mktemp -d)
    set -m # a group of its own, so that what it has begun ends with it
    (
        chrt --idle --pid 0 "$BASHPID" >/dev/null 2>&1 || renice -n 19 -p "$BASHPID" >/dev/null
        "$@"
    ) >"$meanwhile/output" 2>&1 </dev/null &
    background=$!
    set +m
    trap end_meanwhile EXIT
}

# finish_meanwhile: waits for the command, prints what it printed, and returns its status.
finish_meanwhile() {
    local status=0
    wait "$background" || status=$?
    background=
    cat "$meanwhile/output"
    rm -rf "$meanwhile"
    return "$status"
}

# Under `set -e` a command that fails in a trap would become the status of the whole script.
end_meanwhile() {
    [ -z "$background" ] || kill -- "-$background" 2>/dev/null || true
    rm -rf "$meanwhile"
}
