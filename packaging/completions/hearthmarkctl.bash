# SPDX-License-Identifier: MIT
# Completion of hearthmarkctl for bash.

# The words that begin with what is typed, as they are typed.
_hearthmarkctl_offer() {
    local word quoted typed=$current quote=
    case $typed in
        \"* | \'*) quote=${typed:0:1} typed=${typed:1} ;;
    esac
    [ "$quote" = "'" ] || typed=${typed//\\/}
    while IFS= read -r word; do
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
    local current=${COMP_WORDS[COMP_CWORD]} command= place=0 each
    COMPREPLY=()
    for ((each = 1; each < COMP_CWORD; ++each)); do
        case ${COMP_WORDS[each]} in
            --format) ((++each)) ;;
            -*) ;;
            *) [ -z "$command" ] && command=${COMP_WORDS[each]} || ((++place)) ;;
        esac
    done
    if [ "${COMP_WORDS[COMP_CWORD - 1]}" = --format ]; then
        _hearthmarkctl_offer < <(printf '%s\n' csv ics json)
        return
    fi
    case $command:$place:$current in
        status:*:-*) each="--follow --json --waybar --help" ;;
        tasks:*:-*) each="--done --all --json --help" ;;
        export:*:-*) each="--format --json --help" ;;
        :*:-*) each="--help --version" ;;
        *:-*) each="--json --help" ;;
        :*) each="status tasks add start finish extend note history export" ;;
        start:0:* | note:0:*)
            _hearthmarkctl_offer < <(hearthmarkctl tasks --offered 2>/dev/null)
            return
            ;;
        start:1:*) each="15m 25m 30m 1h" ;;
        extend:0:*) each="5m 10m 30m" ;;
        history:0:* | export:0:*) each="day week month year last-day last-week last-month last-year" ;;
        *) each= ;;
    esac
    _hearthmarkctl_offer < <(printf '%s\n' $each)
    if [ "$command" = export ] && [[ $current != -* ]]; then
        compopt -o default
    fi
}

complete -F _hearthmarkctl hearthmarkctl
