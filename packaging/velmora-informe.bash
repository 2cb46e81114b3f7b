# Completion of velmora-informe for bash.
_velmora_informe() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=
    ((COMP_CWORD > 0)) && prev=${COMP_WORDS[COMP_CWORD - 1]}
    # "=" parts words here: --salida=name comes as three of them.
    [ "$prev" = "=" ] && ((COMP_CWORD > 1)) && prev=${COMP_WORDS[COMP_CWORD - 2]}
    [ "$cur" = "=" ] && cur=
    case $prev in
        --salida | --csv)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$cur")
            return
            ;;
    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W \
            "--salida= --reemplazar --csv= --punto --resumen --ayuda --version" -- "$cur")
        [[ ${COMPREPLY[0]-} == *= ]] && compopt -o nospace 2>/dev/null
        return
    fi
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
}
complete -F _velmora_informe velmora-informe
