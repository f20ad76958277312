_calmora() {
    local word=${COMP_WORDS[COMP_CWORD]}
    COMPREPLY=()
    case ${COMP_WORDS[1]}:$COMP_CWORD in
    *:1)
        mapfile -t COMPREPLY < <(compgen -W "--toggle --settings --quit-all --force-quit-all --list \
            --diagnose --leave --version --help" -- "$word")
        ;;
    --list:2) mapfile -t COMPREPLY < <(compgen -W "--json" -- "$word") ;;
    --diagnose:*) mapfile -t COMPREPLY < <(compgen -W "$(ps -o pid= -u "$USER")" -- "$word") ;;
    esac
}
complete -F _calmora calmora
