# bash completion of ventlock-cli -*- shell-script -*-
# The program itself says how a call may go on: a candidate a line, a tab and what it is behind it.

_ventlock_cli() {
    local cur words cword
    _get_comp_words_by_ref -n =: cur words cword || return
    # What has been typed, without the marks that kept it together.
    local typed=() word
    for word in "${words[@]:1:cword}"; do
        word=${word#[\"\']}
        typed+=("${word//\\/}")
    done
    local last=${typed[cword - 1]} line
    COMPREPLY=()
    while IFS= read -r line; do
        case $line in
            $'\tini-files' | $'\tfiles')
                [[ $last == -*=* ]] && cur=${cur#*=}
                if [ "$line" = $'\tfiles' ]; then _filedir; else _filedir ini; fi
                return
                ;;
        esac
        word=${line%%$'\t'*}
        # The shell takes what follows a "=" for a word of its own.
        [[ $last == -*=* ]] && word=${word#*=}
        case $cur in
            [\"\']* | -*=[\"\']*) ;; # the shell adds what ends the quotation
            *) printf -v word %q "$word" ;;
        esac
        COMPREPLY+=("$word")
    done < <(ventlock-cli complete "${typed[@]}" 2>/dev/null)
    __ltrim_colon_completions "$cur"
} &&
    complete -F _ventlock_cli ventlock-cli
