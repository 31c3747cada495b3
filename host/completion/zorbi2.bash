# Completion of zorbi2 in bash. The program itself knows what can stand next.

_zorbi2() {
    local word=${COMP_WORDS[COMP_CWORD]} line
    local words=("${COMP_WORDS[@]:1:COMP_CWORD}") files=()
    COMPREPLY=()
    while IFS= read -r line; do
        case $line in
            :recipes)
                mapfile -t files < <(compgen -f -X '!*.toml' -- "$word"; compgen -d -- "$word")
                ;;
            :folders) mapfile -t files < <(compgen -d -- "$word") ;;
            :files) mapfile -t files < <(compgen -f -- "$word") ;;
            *=) compopt -o nospace; COMPREPLY+=("$line") ;;
            *) COMPREPLY+=("$line") ;;
        esac
    done < <("${COMP_WORDS[0]}" complete "${words[@]}" 2>/dev/null)
    if [[ ${#files[@]} -gt 0 ]]; then
        compopt -o filenames
        COMPREPLY+=("${files[@]}")
    fi
}
complete -F _zorbi2 zorbi2
