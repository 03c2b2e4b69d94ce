# SPDX-License-Identifier: MIT
# Usage: awk -v version=VERSION -v date=DATE -f debian-changelog.awk CHANGELOG.md
# Prints the newest section that has items, whatever stands over it, as Debian's entry of this version.

/^## / && items { isOver = 1 }
!isOver && /^- / { ++items; sub(/^- /, "") }
!isOver && items && NF && !/^#/ { texts[items] = texts[items] " " $0 }

END {
    if (!items) {
        print "The changelog has no section with items." > "/dev/stderr"
        exit 1
    }
    printf "hearthmark (%s) stable; urgency=medium\n\n", version
    for (item = 1; item <= items; ++item) {
        print_wrapped(texts[item])
    }
    printf "\n -- The Hearthmark developers <developers@hearthmark.org>  %s\n", date
}

function print_wrapped(text,    words, count, line, i) {
    count = split(text, words)
    line = "  *"
    for (i = 1; i <= count; ++i) {
        if (length(line) + 1 + length(words[i]) > 78) {
            print line
            line = "   "
        }
        line = line " " words[i]
    }
    print line
}
