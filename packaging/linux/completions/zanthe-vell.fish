# fish completion for zanthe-vell, which itself says what may follow

function __zanthe_vell_files
    set -l given (commandline -opc)
    test (count $given) -gt 1; and contains -- $given[2] add export import
end

complete -c zanthe-vell -f -a '(zanthe-vell complete (commandline -opc)[2..-1] "" 2>/dev/null)'
complete -c zanthe-vell -n __zanthe_vell_files -F
