# Completion of quorvictl's command line for bash.

_quorvictl() {
    local words=("${COMP_WORDS[@]}") place=$COMP_CWORD
    local verbs='encode decode check apply match profiles macros import export backup restore history commands key-name
        usb-to-adb adb-to-usb devices attach detach mice use forget press release watch --json --help --version'
    if [ "$place" -gt 1 ] && [ "${words[1]}" = --json ]; then
        # What stands behind it is completed as without it.
        words=("${words[0]}" "${words[@]:2}")
        place=$((place - 1))
        verbs='check apply profiles macros history commands devices mice'
    fi
    local word=${words[place]} verb=${words[1]-}
    if [ "$place" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "$verbs" -- "$word")
        return
    fi
    case $verb:$place in
    match:*)
        if [[ $word == -* ]]; then
            mapfile -t COMPREPLY < <(compgen -W '--auto --application --identifier --signature --executable' -- "$word")
            return
        fi
        [ "$place" -eq 2 ] || return
        ;;
    apply:*)
        if [[ $word == -* ]]; then
            mapfile -t COMPREPLY < <(compgen -W '--check' -- "$word")
            return
        fi
        [ "$place" -le 4 ] || return
        ;;
    press:2 | release:2)
        mapfile -t COMPREPLY < <(compgen -W '1 2 3 4 5 6 7 8 9' -- "$word")
        return
        ;;
    use:2 | forget:2)
        mapfile -t COMPREPLY < <(compgen -W "$(quorvictl mice 2>/dev/null | cut -f1)" -- "$word")
        return
        ;;
    history:2)
        mapfile -t COMPREPLY < <(compgen -W 'show restore' -- "$word")
        return
        ;;
    history:[34])
        if [ "${words[2]}" = show ] && [ "$place" -eq 3 ] || [ "${words[2]}" = restore ] && [ "$place" -eq 4 ]; then
            mapfile -t COMPREPLY < <(compgen -W "$(quorvictl history 2>/dev/null | cut -f1)" -- "$word")
            return
        fi
        [ "${words[2]}" = restore ] || return
        ;;
    export:6)
        mapfile -t COMPREPLY < <(compgen -W '--with-macros' -- "$word")
        return
        ;;
    export:3)
        mapfile -t COMPREPLY < <(compgen -W 'profile macro' -- "$word")
        return
        ;;
    encode:[23] | decode:[23] | check:2 | profiles:2 | macros:2 | import:[23] | export:[25] | backup:[23] | restore:[23]) ;;
    *) return ;;
    esac
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
}
complete -F _quorvictl quorvictl
