# bash completion for zanthe-vell

# Titles of the level below the titles given so far, one a line.
_zanthe_vell_titles() {
    zanthe-vell menu --json --expand "$#" 2> /dev/null | python3 -c '
import json, sys
items = json.load(sys.stdin)["items"]
for title in sys.argv[1:]:
    items = next((i.get("items", []) for i in items if i.get("title") == title), [])
for item in items:
    if item.get("enabled") and "\n" not in item["title"]:
        print(item["title"])
' "$@" 2> /dev/null
}

_zanthe_vell() {
    local current=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]} title
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        mapfile -t COMPREPLY < <(compgen -W "menu perform show settings quit hotkeys add check-name prefs export import doctor --help --version" -- "$current")
        return
    fi
    case $command in
    menu) mapfile -t COMPREPLY < <(compgen -W "--json --option --expand" -- "$current") ;;
    hotkeys | doctor) mapfile -t COMPREPLY < <(compgen -W "--json" -- "$current") ;;
    show) mapfile -t COMPREPLY < <(compgen -W "--at" -- "$current") ;;
    add) mapfile -t COMPREPLY < <(compgen -f -W "--alert" -- "$current") ;;
    export) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
    import) mapfile -t COMPREPLY < <(compgen -f -W "--check" -- "$current") ;;
    prefs)
        if ((COMP_CWORD == 2)); then
            mapfile -t COMPREPLY < <(compgen -W "read write reset" -- "$current")
        elif ((COMP_CWORD == 3)); then
            mapfile -t COMPREPLY < <(compgen -W "$(zanthe-vell prefs 2> /dev/null | cut -d' ' -f1)" -- "$current")
        fi
        ;;
    perform)
        local given=() word
        for word in "${COMP_WORDS[@]:2:COMP_CWORD-2}"; do
            [[ $word == --command ]] && continue
            printf -v word '%b' "${word//\\/}"
            given+=("$word")
        done
        while read -r title; do
            [[ $title == "${current//\\/}"* ]] && COMPREPLY+=("$(printf '%q' "$title")")
        done < <(_zanthe_vell_titles "${given[@]}")
        ;;
    esac
}

complete -F _zanthe_vell zanthe-vell
