# Completion of ovrin-cli for bash.
_ovrin_cli() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} verb='' i
    local library='list show add import remove check groceries'
    case $before in
        --store) COMPREPLY=($(compgen -d -- "$word")); return ;;
        --filter) COMPREPLY=($(compgen -W 'all saved cooked recent' -- "$word")); return ;;
        --scale) COMPREPLY=($(compgen -W '0.5 1 1.5 2 3 4' -- "$word")); return ;;
    esac
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
            --store) ((++i)) ;;
            -*) ;;
            *) verb+="${verb:+ }${COMP_WORDS[i]}" ;;
        esac
    done
    case $verb in
        '') COMPREPLY=($(compgen -W 'draft lines scale value segments parse clean minutes library --store --help --version' -- "$word")) ;;
        draft) COMPREPLY=($(compgen -W '--batch --static --no-photo --page-url --help' -- "$word") $(compgen -f -- "$word")) ;;
        lines | segments | 'library add' | 'library import'*) COMPREPLY=($(compgen -f -- "$word")) ;;
        library) COMPREPLY=($(compgen -W "$library" -- "$word")) ;;
        'library list') COMPREPLY=($(compgen -W '--filter --search --json --help' -- "$word")) ;;
        'library show') COMPREPLY=($(compgen -W "--scale --json --help $(ovrin-cli library list 2>/dev/null | cut -d' ' -f1)" -- "$word")) ;;
        'library remove' | 'library groceries') COMPREPLY=($(compgen -W "--help $(ovrin-cli library list 2>/dev/null | cut -d' ' -f1)" -- "$word")) ;;
    esac
}
complete -o filenames -F _ovrin_cli ovrin-cli
