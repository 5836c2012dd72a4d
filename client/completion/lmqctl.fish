# Completes lmqctl in fish: commands, options, the names that the host knows, keys and enumerators.
function __lmqctl_complete
    set -l words (commandline -opc)
    set -l current (commandline -ct | string replace -ra '[\'"]' '')
    set -l answer ($words[1] complete -- $words[2..-1] "$current" 2>/dev/null | string replace -r ' (?=\t)' '')
    if set -q answer[1]
        printf '%s\n' $answer
    else
        __fish_complete_path "$current"
    end
end
# A key ends in = or . and so gets no blank behind it.
complete -c lmqctl -f -a '(__lmqctl_complete)'
