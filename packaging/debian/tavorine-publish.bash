# Completion for tavorine-publish in bash.

_tavorine_publish_options() {
    case $1 in
    new) echo "--from --name --email --help" ;;
    build) echo "--zip --with --pictures --strict --format --help" ;;
    check) echo "--strict --format --help" ;;
    preview) echo "--output --open --help" ;;
    diff) echo "--format --help" ;;
    *) echo "--help" ;;
    esac
}

_tavorine_publish() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
    compopt -o filenames
    if [ "$COMP_CWORD" -eq 1 ] && [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--help --version" -- "$word")
    elif [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "new build check preview export diff" -- "$word")
    elif [ "$before" = --format ]; then
        mapfile -t COMPREPLY < <(compgen -W "text json" -- "$word")
    elif [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_tavorine_publish_options "$command")" -- "$word")
    elif [ "$before" = --with ] || { [ "$command" = build ] && [ "$COMP_CWORD" -eq 2 ]; }; then
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
    elif [ "$command" = preview ] && [ "$COMP_CWORD" -eq 3 ]; then
        mapfile -t COMPREPLY < <(compgen -W "welcome banner order mail" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}

complete -F _tavorine_publish tavorine-publish
