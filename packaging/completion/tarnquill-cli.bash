# Completion of tarnquill-cli for bash. The words come from the program's own help, so they are always those of its version.

_tarnquill_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} path=() word help
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        [[ ${#path[@]} -lt 2 && $word != -* ]] && path+=("$word")
    done
    help=$("${COMP_WORDS[0]}" "${path[@]}" --help 2>/dev/null) || return

    local words
    if [[ $previous == --* ]] && grep -q -e "^  $previous [A-Z]" <<<"$help"; then
        # The values of an option are those that its line lists: "NAME: a, b or c [a]".
        words=$(sed -nE "s/^  $previous .*: (.*) \[[a-z0-9]+\]$/\1/p" <<<"$help" | sed 's/,\| or / /g')
    elif [[ $current == -* ]]; then
        words=$(sed -nE 's/^  (-h,)?(--[a-z0-9-]+).*/\2/p' <<<"$help")
    else
        words=$(sed -nE '/^Subcommands:/,$s/^  ([a-z]+) .*/\1/p' <<<"$help")
    fi
    # What is left without words are files and free texts: bash offers files for both.
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

complete -o default -F _tarnquill_cli tarnquill-cli
