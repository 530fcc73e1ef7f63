# bash completion for zanthe-vell

# The titles, one a line, of the level below those given, that begin like the last word. The
# words come as they were typed, with their quotes.
_zanthe_vell_titles() {
    zanthe-vell menu --json --expand "$(($# - 1))" 2> /dev/null | python3 -c '
import json, shlex, sys
def plain(word):
    for end in ("", "\"", "\x27"):
        try:
            return "".join(shlex.split(word + end))
        except ValueError:
            pass
    return word.rstrip("\\")
items = json.load(sys.stdin)["items"]
*given, begin = map(plain, sys.argv[1:])
for title in given:
    items = next((i.get("items", []) for i in items if i.get("title") == title), [])
for item in items:
    if item.get("enabled") and "\n" not in item["title"] and item["title"].startswith(begin):
        print(item["title"])
' "$@" 2> /dev/null
}

_zanthe_vell() {
    local current words cword title given=() word
    if declare -F _get_comp_words_by_ref > /dev/null; then
        _get_comp_words_by_ref -n ':=@' -c current -w words -i cword # titles may have these signs
    else
        words=("${COMP_WORDS[@]}") cword=$COMP_CWORD current=${COMP_WORDS[COMP_CWORD]}
    fi
    COMPREPLY=()
    if ((cword == 1)); then
        mapfile -t COMPREPLY < <(compgen -W "menu perform show settings quit hotkeys add check-name prefs export import doctor --help --version" -- "$current")
        return
    fi
    case ${words[1]} in
    menu) mapfile -t COMPREPLY < <(compgen -W "--json --option --expand" -- "$current") ;;
    hotkeys | doctor | check-name) mapfile -t COMPREPLY < <(compgen -W "--json" -- "$current") ;;
    show) mapfile -t COMPREPLY < <(compgen -W "--at" -- "$current") ;;
    add | export | import)
        compopt -o filenames -o default 2> /dev/null
        case ${words[1]}$current in
        add-*) COMPREPLY=(--alert) ;;
        import-*) COMPREPLY=(--check) ;;
        esac
        ;;
    prefs)
        if ((cword == 2)); then
            mapfile -t COMPREPLY < <(compgen -W "read write reset" -- "$current")
        elif ((cword == 3)); then
            mapfile -t COMPREPLY < <(compgen -W "$(zanthe-vell prefs 2> /dev/null | cut -d' ' -f1)" -- "$current")
        elif ((cword == 4)) && [[ ${words[2]} == write && $(zanthe-vell prefs read "${words[3]}" 2> /dev/null) == @(true|false) ]]; then
            mapfile -t COMPREPLY < <(compgen -W "true false" -- "$current")
        fi
        ;;
    perform)
        for word in "${words[@]:2:cword-2}"; do
            [[ $word == --command ]] || given+=("$word")
        done
        while IFS= read -r title; do
            # After an opening quote the shell wants the text as it is.
            [[ $current == [\"\']* ]] || printf -v title '%q' "$title"
            COMPREPLY+=("$title")
        done < <(_zanthe_vell_titles "${given[@]}" "$current")
        ! declare -F __ltrim_colon_completions > /dev/null || __ltrim_colon_completions "$current"
        ;;
    esac
}

complete -F _zanthe_vell zanthe-vell
