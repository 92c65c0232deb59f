# Completion of tintwell-cli for bash: commands, options, their words, and the ids of saved palettes.

_tintwell_cli()
{
    local commands="palette export name contrast save list delete use install lists autostart help"
    local current=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} command= words= at
    local library=()
    if [[ $current == "=" ]]; then
        current=
    elif [[ $option == "=" ]]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    for ((at = 1; at < COMP_CWORD; at++)); do
        case ${COMP_WORDS[at]} in
            -l | --library)
                [[ ${COMP_WORDS[at + 1]} == "=" ]] && ((at++))
                library=(--library "${COMP_WORDS[at + 1]}") ;;
        esac
        if [[ -z $command && " $commands " == *" ${COMP_WORDS[at]} "* ]]; then
            command=${COMP_WORDS[at]}
        fi
    done

    case $option in
        -f | --format)
            case $command in
                palette | use) words="text json json-lines" ;;
                export) words="json gpl css tailwind scss tokens ase svg png" ;;
                save | list) words="text json" ;;
            esac ;;
        -c | --color) words="auto always never" ;;
        --colors) words="hex oklch" ;;
        -l | --library | -o | --out)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return ;;
        -i | --id) words=ids ;;
        -j | --jobs) return ;;
        *)
            case $command/$current in
                /-*) words="--help --version --library --color" ;;
                palette/-*) words="--help --version --format --color --jobs" ;;
                export/-*) words="--help --version --format --colors --out --list" ;;
                contrast/-*) words="--help --version --color" ;;
                save/-*) words="--help --version --format --library" ;;
                list/-* | use/-*) words="--help --version --format --color --library" ;;
                delete/-*) words="--help --version --library" ;;
                install/-*) words="--help --version --id --library" ;;
                */-*) words="--help --version" ;;
                /* | help/*) words=$commands ;;
                delete/* | use/*) words=ids ;;
                autostart/*) words="on off status" ;;
            esac ;;
    esac
    if [[ $words == ids ]]; then
        words=$("$1" "${library[@]}" list --color never 2>/dev/null | cut -d ' ' -f 1)
        current=${current^^}
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

complete -F _tintwell_cli tintwell-cli
