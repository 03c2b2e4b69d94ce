# SPDX-License-Identifier: MIT
# Completion of hearthmarkctl for fish.

# Whether the command is one of these and so many arguments follow it.
function __hearthmarkctl_at
    set -l words
    set -l skip 0
    for word in (commandline -opc)[2..-1]
        if test $skip = 1
            set skip 0
        else if test "$word" = --format
            set skip 1
        else if not string match -q -- '-*' $word
            set -a words $word
        end
    end
    test (count $words) = $argv[1]; and begin
        test $argv[1] = 0; or contains -- $words[1] $argv[2..-1]
    end
end

function __hearthmarkctl_of
    set -l words (commandline -opc)
    set -q words[2]; and contains -- $words[2] $argv
end

complete -c hearthmarkctl -f
complete -c hearthmarkctl -n '__hearthmarkctl_at 0' -s h -l help -d 'Print what may be given'
complete -c hearthmarkctl -n '__hearthmarkctl_at 0' -l version -d 'Print the version'
complete -c hearthmarkctl -n '__hearthmarkctl_at 0' -a status -d 'Show the focus that runs'
complete -c hearthmarkctl -n '__hearthmarkctl_at 0' -a tasks -d 'List the tasks'
complete -c hearthmarkctl -n '__hearthmarkctl_at 0' -a add -d 'Add a task'
complete -c hearthmarkctl -n '__hearthmarkctl_at 0' -a start -d 'Start a focus'
complete -c hearthmarkctl -n '__hearthmarkctl_at 0' -a finish -d 'Finish the focus that runs'
complete -c hearthmarkctl -n '__hearthmarkctl_at 0' -a extend -d 'Give the focus that runs more time'
complete -c hearthmarkctl -n '__hearthmarkctl_at 0' -a note -d 'Add a note to a task'
complete -c hearthmarkctl -n '__hearthmarkctl_at 0' -a history -d 'Show the time spent in a range of days'
complete -c hearthmarkctl -n '__hearthmarkctl_at 0' -a export -d 'Write what the window exports'
complete -c hearthmarkctl -n 'not __hearthmarkctl_at 0' -l json -d 'Print JSON'
complete -c hearthmarkctl -n '__hearthmarkctl_of status' -l waybar -d 'Print what Waybar shows'
complete -c hearthmarkctl -n '__hearthmarkctl_of status' -l follow -d 'Go on'
complete -c hearthmarkctl -n '__hearthmarkctl_of tasks' -l done -d 'Those that are done'
complete -c hearthmarkctl -n '__hearthmarkctl_of tasks' -l all -d 'All of them'
complete -c hearthmarkctl -n '__hearthmarkctl_of export' -l format -x -a 'csv ics json' -d 'The form'
complete -c hearthmarkctl -n '__hearthmarkctl_of export' -F
complete -c hearthmarkctl -n '__hearthmarkctl_at 1 start note' -a '(hearthmarkctl tasks --offered 2>/dev/null)'
complete -c hearthmarkctl -n '__hearthmarkctl_at 2 start' -a '15m 25m 30m 1h'
complete -c hearthmarkctl -n '__hearthmarkctl_at 1 extend' -a '5m 10m 30m'
complete -c hearthmarkctl -n '__hearthmarkctl_at 1 history export' \
    -a 'day week month year all last-day last-week last-month last-year'
