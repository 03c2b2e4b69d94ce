# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Completion of hearthmarkctl for bash.

# The words that begin with what is typed, as they are typed.
_hearthmarkctl_offer() {
    local word quoted typed=$current quote=
    case $typed in
        \"* | \'*) quote=${typed:0:1} typed=${typed:1} ;;
    esac
    [ "$quote" = "'" ] || typed=${typed//\\/}
    for word; do
        [[ $word == "$typed"* ]] || continue
        # The shell puts an opened quote before it, and closes it.
        case $quote in
            \") quoted=${word//\\/\\\\} quoted=${quoted//\"/\\\"} quoted=${quoted//\$/\\\$} quoted=${quoted//\`/\\\`} ;;
            \') quoted=${word//\'/\'\\\'\'} ;;
            *)
                printf -v quoted %q "$word"
                # The shell would take what is before them for a word of its own.
                quoted=${quoted//:/\\:} quoted=${quoted//=/\\=} quoted=${quoted//@/\\@}
                ;;
        esac
        # It takes a quote at the end for one that closes.
        [ -n "$quote" ] && [[ $quoted == *"$quote" ]] && quoted+=$quote
        COMPREPLY+=("$quoted")
    done
}

_hearthmarkctl() {
    local current=${COMP_WORDS[COMP_CWORD]} command='' place=0 at
    local -a words=()
    COMPREPLY=()
    for ((at = 1; at < COMP_CWORD; ++at)); do
        case ${COMP_WORDS[at]} in
            --format) ((++at)) ;;
            -*) ;;
            *) if [ -z "$command" ]; then command=${COMP_WORDS[at]}; else ((++place)); fi ;;
        esac
    done
    case ${COMP_WORDS[COMP_CWORD - 1]}:$command:$place:$current in
        --format:*) words=(csv ics json) ;;
        *:status:*:-*) words=(--follow --json --waybar --help) ;;
        *:tasks:*:-*) words=(--done --all --json --help) ;;
        *:export:*:-*) words=(--format --json --help) ;;
        *::*:-*) words=(--help --version) ;;
        *:*:*:-*) words=(--json --help) ;;
        *::*) words=(status tasks add start finish extend note history export) ;;
        *:start:0:* | *:note:0:*) mapfile -t words < <(hearthmarkctl tasks --offered 2>/dev/null) ;;
        *:start:1:*) words=(15m 25m 30m 1h) ;;
        *:extend:0:*) words=(5m 10m 30m) ;;
        *:history:0:* | *:export:0:*) words=(day week month year all last-day last-week last-month last-year) ;;
    esac
    _hearthmarkctl_offer "${words[@]}"
    if [ "$command" = export ] && [[ $current != -* ]]; then
        compopt -o default
    fi
}

complete -F _hearthmarkctl hearthmarkctl
