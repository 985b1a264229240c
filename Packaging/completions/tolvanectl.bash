# Completion of tolvanectl for bash.

_tolvanectl() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command='' each
    local commands='scan size access duplicates apps leftovers check trash restore ports kill performance maintenance log' options='--help --json --version'

    for each in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case $each in
        scan | size | access | duplicates | apps | leftovers | check | trash | restore | ports | kill | \
            performance | maintenance | log)
            command=$each
            break
            ;;
        esac
    done
    case $command in
    scan) options+=' --detailed --set --depth --top --svg --size' ;;
    duplicates) options+=' --minimum-size --include-hidden --exclude --print0' ;;
    apps) options+=' --system --sizes' ;;
    leftovers) options+=' --system-level' ;;
    check) options+=' --duplicates-root --no-duplicates --system-apps' ;;
    trash) options+=' --within --dry-run' ;;
    ports) options+=' --watch' ;;
    kill) options+=' --pid --force --tree --yes' ;;
    performance) options+=' --limit' ;;
    log) options+=' --bytes' ;;
    esac

    COMPREPLY=()
    case $previous in
    --set | --depth | --top | --size | --minimum-size | --pid | --limit | --bytes) return ;;
    --within | --exclude | --duplicates-root)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
        return
        ;;
    --svg)
        compopt -o default 2>/dev/null
        return
        ;;
    esac
    case $command,$word in
    *,-*) mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word") ;;
    ,*) mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$word") ;;
    scan,* | duplicates,*)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
        ;;
    maintenance,*) mapfile -t COMPREPLY < <(compgen -W 'dns ls spotlight snapshots purge' -- "$word") ;;
    size,* | trash,* | restore,*) compopt -o default 2>/dev/null ;;
    esac
}
complete -F _tolvanectl tolvanectl
