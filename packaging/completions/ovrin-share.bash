# Completion of ovrin-share for bash.
_ovrin_share() {
    local word=${COMP_WORDS[COMP_CWORD]}
    case ${COMP_WORDS[COMP_CWORD-1]} in
        --page-url) COMPREPLY=(); return ;;
    esac
    case $word in
        -*) COMPREPLY=($(compgen -W '--page-url --static --no-photo --help --version' -- "$word")) ;;
        *) COMPREPLY=($(compgen -f -- "$word")) ;;
    esac
}
complete -o filenames -F _ovrin_share ovrin-share
