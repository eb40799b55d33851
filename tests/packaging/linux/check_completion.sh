#!/usr/bin/env bash
# check_completion.sh <package>
# Fails, telling every breach, when one of the shells does not complete calls of the command line by the package's files.
# Words are typed into a shell on a terminal as a user types them; the shell then prints what it has made of them.
set -euo pipefail
package=$(realpath "$1")
cd "$(dirname "$0")"
. ../expect.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/tree" "$work/home" "$work/here" "$work/here/devices"
dpkg-deb --extract "$package" "$work/tree"
share=$work/tree/usr/share
touch "$work/here/my flow.ini" "$work/here/notes.txt"
printf '[My source]\nDriver=Some driver\n[Plain]\nDriver=Another\n' >"$work/home/odbc.ini"

cat >"$work/home/bashrc" <<END
PS1=
bind 'set enable-bracketed-paste off'
. /usr/share/bash-completion/bash_completion
. $share/bash-completion/completions/ventlock-cli
END
cat >"$work/home/.zshrc" <<END
PS1= PROMPT_EOL_MARK=
fpath=($share/zsh/vendor-completions \$fpath)
autoload -U compinit
compinit -u
unsetopt auto_remove_slash beep
END
declare -A shells=([bash]="bash --noprofile --rcfile $work/home/bashrc -i" [zsh]="zsh -i")

# completed <shell> <typed>: the words that the shell has after a tab at the end of what was typed.
completed() {
    # Ctrl+A: the beginning of the line, where the command is put that prints its words.
    printf '%s\t\001printf "<%%s>" \nexit\n' "$2" |
        (cd "$work/here" && env -i HOME="$work/home" PATH="$work/tree/usr/bin:$PATH" TERM=dumb LC_ALL=C.UTF-8 \
            ODBCINI="$work/home/odbc.ini" ODBCSYSINI="$work/home" HISTFILE= \
            timeout 60 script --quiet --return --echo never --command "${shells[$1]}" /dev/null) |
        tr -d '\r' | grep -oE '^(<[^<>]*>)+' || echo "nothing was printed"
}

# fish has a command that completes as the tab does.
completed_by_fish() {
    (cd "$work/here" && env -i HOME="$work/home" PATH="$work/tree/usr/bin:$PATH" TERM=dumb LC_ALL=C.UTF-8 \
        ODBCINI="$work/home/odbc.ini" ODBCSYSINI="$work/home" timeout 60 fish --no-config --command \
        "source $share/fish/vendor_completions.d/ventlock-cli.fish; complete --do-complete '$1'")
}

for shell in bash zsh; do
    expect "$shell: a command" "<ventlock-cli><register>" "$(completed $shell "ventlock-cli reg")"
    expect "$shell: a command of a command" "<ventlock-cli><database><sources>" \
        "$(completed $shell "ventlock-cli database so")"
    expect "$shell: an option" "<ventlock-cli><register><--one-transaction>" \
        "$(completed $shell "ventlock-cli register --o")"
    expect "$shell: a value" "<ventlock-cli><check><--schema><current>" \
        "$(completed $shell "ventlock-cli check --schema c")"
    expect "$shell: a data source" "<ventlock-cli><database><info><--dsn><Plain>" \
        "$(completed $shell "ventlock-cli database info --dsn P")"
    expect "$shell: a data source behind its option's sign" "<ventlock-cli><register><--dsn=Plain>" \
        "$(completed $shell "ventlock-cli register --dsn=P")"
    expect "$shell: a data source with a blank" "<ventlock-cli><register><--dsn><My source>" \
        "$(completed $shell "ventlock-cli register --dsn My")"
    expect "$shell: more of a data source with a blank" "<ventlock-cli><register><--dsn><My source>" \
        "$(completed $shell "ventlock-cli register --dsn My\\ so")"
    expect "$shell: an entry file" "<ventlock-cli><register><my flow.ini>" "$(completed $shell "ventlock-cli register m")"
    expect "$shell: a folder" "<ventlock-cli><check><devices/>" "$(completed $shell "ventlock-cli check dev")"
    expect "$shell: a path behind its option's sign" "<ventlock-cli><check><--ini-path=my flow.ini>" \
        "$(completed $shell "ventlock-cli check --ini-path=m")"
    expect "$shell: any file" "<ventlock-cli><database><create><--file><notes.txt>" \
        "$(completed $shell "ventlock-cli database create --file n")"
done

# zsh leaves the quotation open when more is typed at once, and offers other files when no entry file is there.
expect "bash: a data source in quotation marks" "<ventlock-cli><register><--dsn><My source>" \
    "$(completed bash "ventlock-cli register --dsn 'My s")"
expect "bash: no other file" "<ventlock-cli><register><no>" "$(completed bash "ventlock-cli register no")"

expect "fish: commands" "check	Check entry files by every rule
database	Make and look into device databases
export	Write an entry file from what the database or Ddinstal.ini holds of a device
register	Write entries to the database and the files
settings	Show and change the stored settings
verify	Compare entries with what the database and the files hold; nothing is written" "$(completed_by_fish "ventlock-cli ")"
expect "fish: data sources" "My source	Some driver
Plain	Another" "$(completed_by_fish "ventlock-cli register --dsn ")"
expect "fish: more of a data source with a blank" "My source	Some driver" \
    "$(completed_by_fish 'ventlock-cli register --dsn My\\ so')"
expect "fish: a data source in quotation marks" "My source	Some driver" \
    "$(completed_by_fish 'ventlock-cli register --dsn "My s')"
expect "fish: a data source behind its option's sign" "--dsn=Plain	Another" \
    "$(completed_by_fish "ventlock-cli register --dsn=P")"
expect "fish: entry files" "devices/
my flow.ini" "$(completed_by_fish "ventlock-cli register " | cut -f 1)"
expect "fish: nothing where nothing may stand" "" "$(completed_by_fish "ventlock-cli register no" | cut -f 1)"
expect "fish: any file" "notes.txt" "$(completed_by_fish "ventlock-cli database create --file n" | cut -f 1)"
expect "fish: a path behind its option's sign" "--ini-path=my flow.ini" \
    "$(completed_by_fish "ventlock-cli check --ini-path=m" | cut -f 1)"
finish
