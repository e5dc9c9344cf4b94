# SPDX-License-Identifier: MIT
# Sourced by the checks: which files they look at.

# list_sources ARRAY PATTERN...: the files of the tree that match, also those that are not added yet, into the array of
# this name. Fails, and says so, when git does or when there is none: a check of nothing is no check.
list_sources() {
    local -n _list=$1
    shift
    local _names
    _names=$(mktemp)
    if ! git ls-files -z --cached --others --exclude-standard -- "$@" >"$_names"; then
        rm -f "$_names"
        echo "git does not say which files there are; nothing was checked." >&2
        return 1
    fi
    local _file
    _list=()
    while IFS= read -r -d '' _file; do
        if [ -e "$_file" ]; then
            _list+=("$_file")
        fi
    done <"$_names"
    rm -f "$_names"
    if [ ${#_list[@]} -eq 0 ]; then
        echo "No file matches $*; nothing was checked." >&2
        return 1
    fi
}
