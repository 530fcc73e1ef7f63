# bash completion for zanthe-vell, which itself says what may follow

_zanthe_vell() {
    local current words cword word
    if declare -F _get_comp_words_by_ref > /dev/null; then
        _get_comp_words_by_ref -n ':=@' -c current -w words -i cword # titles may have these signs
    else
        words=("${COMP_WORDS[@]}") cword=$COMP_CWORD current=${COMP_WORDS[COMP_CWORD]}
    fi
    COMPREPLY=()
    case $cword:${words[1]} in
    1:*) ;;
    *:add | *:export | *:import) compopt -o filenames -o default 2> /dev/null ;;
    esac
    while IFS=$'\t' read -r word _; do
        # After an opening quote the shell wants the text as it is.
        [[ $current == [\"\']* ]] || printf -v word '%q' "$word"
        COMPREPLY+=("$word")
    done < <(zanthe-vell complete --typed "${words[@]:1:cword-1}" "$current" 2> /dev/null)
    ! declare -F __ltrim_colon_completions > /dev/null || __ltrim_colon_completions "$current"
}

complete -F _zanthe_vell zanthe-vell
