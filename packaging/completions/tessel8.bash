# Completions of tessel8 for bash.

_tessel8() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=
    local common="--help --plugin"
    local choice="--bank --program --preset --set"
    COMPREPLY=()
    ((COMP_CWORD > 1)) && command=${COMP_WORDS[1]}

    case $previous in
        --set)
            # NAME=, by the names that the effect itself gives.
            compopt -o nospace 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -S = -W \
                "$(tessel8 list --params 2>/dev/null | awk 'NR > 1 { print $2 }')" -- "$word")
            return ;;
        --format) mapfile -t COMPREPLY < <(compgen -W "float input" -- "$word"); return ;;
        --tail) mapfile -t COMPREPLY < <(compgen -W "silent" -- "$word"); return ;;
        --program | --tempo | --block | --click | --seconds | --name) return ;;
    esac
    # What is completed without a dash: files, but neither the panel nor a list is of one.
    local on_files=true
    case $command in
        "" | panel | live | list) on_files= ;;
    esac
    case $previous in
        --bank | --preset | --plugin | --midi | --input | --screenshot) on_files=true ;;
    esac
    if [[ -z $on_files || $word == -* ]]; then
        local words="--help --version render panel live list info programs convert"
        case $command in
            render) words="$common $choice --tempo --midi --tail --block --format" ;;
            panel) words="$common $choice --input --click --screenshot --seconds" ;;
            live) words="$common $choice --name --connect --no-connect --tempo --no-panel --seconds" ;;
            list) words="$common --params --programs" ;;
            info | programs | convert) words="--help" ;;
        esac
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}
complete -F _tessel8 tessel8
