# Completes lmqctl in bash: commands, options, the names that the host knows, keys and enumerators.
_lmqctl() {
    # Bash breaks words at = and : too. Those that have no blank between them are put together again.
    local rest=${COMP_LINE:0:COMP_POINT} words=() word blanks i
    for ((i = 0; i <= COMP_CWORD; i++)); do
        blanks=${rest%%[![:blank:]]*}
        rest=${rest#"$blanks"}
        word=$rest
        ((i == COMP_CWORD)) || word=${COMP_WORDS[i]}
        rest=${rest#"$word"}
        if [[ $i -eq 0 || -n $blanks ]]; then words+=("$word"); else words[-1]+=$word; fi
    done

    # Bash replaces what is behind the last break, inside quotes what is behind the quote.
    local last=${words[-1]} kept
    if [[ $last == *[\'\"]* ]]; then kept=${last%"${last##*[\'\"]}"}; else kept=${last%"${last##*[=:]}"}; fi
    kept=${kept//[\'\"]/}
    words=("${words[@]//[\'\"\\]/}")

    local program=${words[0]/#\~/$HOME} line open REPLY
    COMPREPLY=()
    while IFS= read -r line; do
        line=${line%%$'\t'*}
        [[ $line == *' ' ]] && open='' || open=yes
        REPLY=${line#"$kept"}
        _lmqctl_quote "$last"
        COMPREPLY+=("$REPLY")
    done < <("$program" complete -- "${words[@]:1}" 2>/dev/null)
    # Bash closes the quote behind a single word, but this one goes on.
    if [[ ${#COMPREPLY[@]} -eq 1 && $last == *[\'\"]* && -n $open ]]; then COMPREPLY+=("${COMPREPLY[0]} "); fi
}
# Makes of REPLY what the shell reads as that text, behind a word as far as it has been typed. Names are the host's: what
# the shell would carry out is quoted.
_lmqctl_quote() {
    local text=${REPLY% } blank=${REPLY##*[! ]} quote=${1//[!\'\"]/} single="'" each
    case ${quote:0:1} in
    # Inside quotes a blank behind it would be part of the word.
    \') REPLY=${text//$single/$single\\$single$single} ;;
    \")
        for each in \\ \" \$ \`; do text=${text//"$each"/\\"$each"}; done
        REPLY=$text
        ;;
    *)
        if [[ $text == *[!][:alnum:]_.,:=@%+/[-]* ]]; then printf -v text %q "$text"; fi
        REPLY=$text$blank
        ;;
    esac
}
# Files where there is nothing else to offer. A word that is whole brings its blank along.
complete -o default -o nospace -F _lmqctl lmqctl
