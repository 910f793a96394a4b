# Completion of quorvictl's command line for bash.

_quorvictl() {
    local word=${COMP_WORDS[COMP_CWORD]} verb=${COMP_WORDS[1]-}
    local verbs='encode decode check match profiles macros import export backup restore history commands key-name usb-to-adb adb-to-usb
        devices attach detach mice use forget press release watch --help --version'
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "$verbs" -- "$word")
        return
    fi
    case $verb:$COMP_CWORD in
    match:*)
        if [[ $word == -* ]]; then
            mapfile -t COMPREPLY < <(compgen -W '--auto --application --identifier --signature --executable' -- "$word")
            return
        fi
        [ "$COMP_CWORD" -eq 2 ] || return
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
        if [ "${COMP_WORDS[2]}" = show ] && [ "$COMP_CWORD" -eq 3 ] || [ "${COMP_WORDS[2]}" = restore ] && [ "$COMP_CWORD" -eq 4 ]; then
            mapfile -t COMPREPLY < <(compgen -W "$(quorvictl history 2>/dev/null | cut -f1)" -- "$word")
            return
        fi
        [ "${COMP_WORDS[2]}" = restore ] || return
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
