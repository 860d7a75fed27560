# Shared by the unit's FTP scripts (POSIX sh). Talks to the cloud site with lftp.
# The password travels in lftp's environment, never on its command line, and is
# never printed or logged.

# A path as one lftp word: double-quoted, with \ and " escaped.
ftp_quote() {
    printf '"%s"' "$(printf '%s' "$1" | sed -e 's/\\/\\\\/g' -e 's/"/\\"/g')"
}

# ftp_run HOST USER PASSWORD COMMANDS: runs lftp COMMANDS on ftp://HOST (HOST may
# carry ":port"). One try and a short timeout: the console's queue gives each
# script a time limit, and a dead site must fail within it.
ftp_run() {
    LFTP_PASSWORD="$3" lftp --env-password -u "$2" \
        -e "set net:max-retries 1; set net:timeout 8; set net:reconnect-interval-base 1; $4; bye" \
        "ftp://$1"
}

# ftp_listing HOST USER PASSWORD PATH [MAXDEPTH]: prints "DIR: <path>" for each
# folder and "FILE: <path>" for each file at and below PATH. Fails, printing
# nothing, when the site refuses or cannot be reached; lftp's complaint goes to
# the unit log (it names no password).
ftp_listing() {
    depth=""
    [ -n "${5:-}" ] && depth="--maxdepth=$5"
    listing=$(mktemp)
    if ! ftp_run "$1" "$2" "$3" "find $depth $(ftp_quote "$4")" > "$listing" 2>> "$UNITKIT_LOG"; then
        rm -f -- "$listing"
        return 1
    fi
    while IFS= read -r entry; do
        case "$entry" in
            */) printf 'DIR: %s\n' "${entry%/}" ;;
            ?*) printf 'FILE: %s\n' "$entry" ;;
        esac
    done < "$listing"
    rm -f -- "$listing"
}
