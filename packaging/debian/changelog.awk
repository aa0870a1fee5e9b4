# Makes Debian's changelog of CHANGELOG.md, whose entries begin with "## VERSION, DAY" or "## VERSION, not released yet".
# Variables: maintainer, and date in Debian's form for the entry that is not released yet.

function command_output(command, line) {
    command | getline line
    close(command)
    return line
}

# A text in lines of at most 76 characters, the first after "  * "
function item(text, words, count, line, i) {
    count = split(text, words, " ")
    line = "  *"
    for (i = 1; i <= count; ++i) {
        if (length(line " " words[i]) > 76) {
            print line
            line = "   "
        }
        line = line " " words[i]
    }
    print line
}

function end_item() {
    if (pending != "") item(pending)
    pending = ""
}

function end_entry() {
    end_item()
    if (version != "") printf "\n -- %s  %s\n\n", maintainer, day
}

{ gsub(/`/, "") }

/^## / {
    end_entry()
    version = substr($2, 1, length($2) - 1)
    released = $3 ~ /^[0-9-]+$/
    day = released ? command_output("LC_ALL=C date -u -d " $3 " '+%a, %d %b %Y %H:%M:%S +0000'") : date
    printf "tabrix (%s) %s; urgency=medium\n\n", version, released ? "stable" : "UNRELEASED"
    next
}
/^### / { end_item(); print "  [ " substr($0, 5) " ]"; next }
version == "" { next }
/^- / { end_item(); pending = substr($0, 3); next }
/^ +[^ ]/ { pending = pending " " $0; next }
/^$/ { end_item() }

END { end_entry() }
