# fish completion for zanthe-vell

function __zanthe_vell_titles
    set -l given (commandline -opc)[3..-1]
    set given (string match -v -- --command $given)
    zanthe-vell menu --json --expand (count $given) 2>/dev/null | python3 -c '
import json, sys
items = json.load(sys.stdin)["items"]
for title in sys.argv[1:]:
    items = next((i.get("items", []) for i in items if i.get("title") == title), [])
for item in items:
    if item.get("enabled") and "\n" not in item["title"]:
        print(item["title"])
' $given 2>/dev/null
end

function __zanthe_vell_keys
    zanthe-vell prefs 2>/dev/null | string replace -r ' .*' ''
end

complete -c zanthe-vell -f
complete -c zanthe-vell -n __fish_use_subcommand -a menu -d 'the menu as it would open now'
complete -c zanthe-vell -n __fish_use_subcommand -a perform -d 'choose an entry by its titles'
complete -c zanthe-vell -n __fish_use_subcommand -a show -d 'open the menu of the running program'
complete -c zanthe-vell -n __fish_use_subcommand -a settings -d 'open the settings'
complete -c zanthe-vell -n __fish_use_subcommand -a quit -d 'end the running program'
complete -c zanthe-vell -n __fish_use_subcommand -a hotkeys -d 'the shortcuts that are held'
complete -c zanthe-vell -n __fish_use_subcommand -a add -d 'add files to the Items folder'
complete -c zanthe-vell -n __fish_use_subcommand -a check-name -d 'what a file name says'
complete -c zanthe-vell -n __fish_use_subcommand -a prefs -d 'the settings'
complete -c zanthe-vell -n __fish_use_subcommand -a export -d 'write the menu to a file'
complete -c zanthe-vell -n __fish_use_subcommand -a import -d 'put the menu of a file in place'
complete -c zanthe-vell -n __fish_use_subcommand -a doctor -d 'what works on this desktop'
complete -c zanthe-vell -n '__fish_seen_subcommand_from menu hotkeys doctor' -l json
complete -c zanthe-vell -n '__fish_seen_subcommand_from menu' -l option
complete -c zanthe-vell -n '__fish_seen_subcommand_from menu' -l expand -x
complete -c zanthe-vell -n '__fish_seen_subcommand_from show' -l at -x
complete -c zanthe-vell -n '__fish_seen_subcommand_from add' -l alert
complete -c zanthe-vell -n '__fish_seen_subcommand_from import' -l check
complete -c zanthe-vell -n '__fish_seen_subcommand_from add export import' -F
complete -c zanthe-vell -n '__fish_seen_subcommand_from prefs' -a 'read write reset'
complete -c zanthe-vell -n '__fish_seen_subcommand_from prefs' -a '(__zanthe_vell_keys)'
complete -c zanthe-vell -n '__fish_seen_subcommand_from perform' -a '(__zanthe_vell_titles)'
