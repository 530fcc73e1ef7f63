# fish completion for zanthe-vell

function __zanthe_vell_titles
    set -l given
    for word in (commandline -opc)[3..-1]
        test "$word" = --command; or set -a given $word
    end
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

function __zanthe_vell_words
    test (count (commandline -opc)) = $argv[1]
end

# A title may be called like a command.
function __zanthe_vell_is
    contains -- (commandline -opc)[2] $argv
end

complete -c zanthe-vell -f
complete -c zanthe-vell -n '__zanthe_vell_words 1' -a menu -d 'the menu as it would open now'
complete -c zanthe-vell -n '__zanthe_vell_words 1' -a perform -d 'choose an entry by its titles'
complete -c zanthe-vell -n '__zanthe_vell_words 1' -a show -d 'open the menu of the running program'
complete -c zanthe-vell -n '__zanthe_vell_words 1' -a settings -d 'open the settings'
complete -c zanthe-vell -n '__zanthe_vell_words 1' -a quit -d 'end the running program'
complete -c zanthe-vell -n '__zanthe_vell_words 1' -a hotkeys -d 'the shortcuts that are held'
complete -c zanthe-vell -n '__zanthe_vell_words 1' -a add -d 'add files to the Items folder'
complete -c zanthe-vell -n '__zanthe_vell_words 1' -a check-name -d 'what a file name says'
complete -c zanthe-vell -n '__zanthe_vell_words 1' -a prefs -d 'the settings'
complete -c zanthe-vell -n '__zanthe_vell_words 1' -a export -d 'write the menu to a file'
complete -c zanthe-vell -n '__zanthe_vell_words 1' -a import -d 'put the menu of a file in place'
complete -c zanthe-vell -n '__zanthe_vell_words 1' -a doctor -d 'what works on this desktop'
complete -c zanthe-vell -n '__zanthe_vell_is menu hotkeys doctor check-name' -l json
complete -c zanthe-vell -n '__zanthe_vell_is menu' -l option
complete -c zanthe-vell -n '__zanthe_vell_is menu' -l expand -x
complete -c zanthe-vell -n '__zanthe_vell_is show' -l at -x
complete -c zanthe-vell -n '__zanthe_vell_is add' -l alert
complete -c zanthe-vell -n '__zanthe_vell_is import' -l check
complete -c zanthe-vell -n '__zanthe_vell_is add export import' -F
complete -c zanthe-vell -n '__zanthe_vell_words 2; and __zanthe_vell_is prefs' -a 'read write reset'
complete -c zanthe-vell -n '__zanthe_vell_words 3; and __zanthe_vell_is prefs' -a '(__zanthe_vell_keys)'
complete -c zanthe-vell -n '__zanthe_vell_words 4; and __fish_seen_subcommand_from write' -a 'true false'
complete -c zanthe-vell -n '__zanthe_vell_is perform' -a '(__zanthe_vell_titles)'
complete -c zanthe-vell -n '__zanthe_vell_is perform' -l command
