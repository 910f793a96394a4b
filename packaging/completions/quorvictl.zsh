#compdef quorvictl
# Completion of quorvictl's command line for zsh.

_quorvictl() {
    local -a verbs=(
        'encode:write the record of the settings'
        'decode:put the settings of a record into the file'
        'check:say whether the panel and the mouse take the settings'
        'apply:make the settings those of a file, and say whether they were'
        'match:print the profile that is bound to an application'
        'profiles:list the profiles'
        'macros:list the macros'
        'import:add a profile or macro from a file'
        'export:write a profile or macro into a file'
        'backup:write all settings into one file'
        'restore:make the settings what a backup holds'
        'history:list, show or restore earlier settings'
        'commands:list the functions of buttons'
        'key-name:print the name of a key'
        'usb-to-adb:print the key code of a USB usage'
        'adb-to-usb:print the USB usage of a key code'
        'devices:list the connected mice'
        'attach:plug the simulated mouse in'
        'detach:unplug the simulated mouse'
        'mice:list the mice of this computer'
        'use:have a mouse do what the settings say'
        'forget:make a mouse a plain one again'
        'press:press an input of the simulated mouse'
        'release:release an input of the simulated mouse'
        'watch:print what the simulated mouse sends'
        '--json:print JSON'
        '--help:say how it is called'
        '--version:print the version'
    )
    local -a options=(
        '--auto:only profiles that switch automatically'
        '--application:its name' '--identifier:its identifier' '--signature:its signature' '--executable:its program'
    )
    if (( CURRENT > 2 )) && [[ $words[2] == --json ]]; then
        # What stands behind it is completed as without it.
        words=($words[1] "${(@)words[3,-1]}")
        (( CURRENT-- ))
        if (( CURRENT == 2 )); then
            compadd check apply profiles macros history commands devices mice
            return
        fi
    fi
    if (( CURRENT == 2 )); then
        _describe -t verbs verb verbs
        return
    fi
    case $words[2]:$CURRENT in
    match:*)
        if [[ $PREFIX == -* ]]; then
            _describe -t options option options
        elif (( CURRENT == 3 )); then
            _files
        fi
        ;;
    apply:*)
        if [[ $PREFIX == -* ]]; then
            compadd -- --check
        elif (( CURRENT <= 5 )); then
            _files
        fi
        ;;
    export:4) compadd profile macro ;;
    export:7) compadd -- --with-macros ;;
    history:3) compadd show restore ;;
    history:4 | history:5)
        if [[ $words[3]:$CURRENT == (show:4|restore:5) ]]; then
            compadd -- ${(f)"$(quorvictl history 2>/dev/null | cut -f1)"}
        elif [[ $words[3]:$CURRENT == restore:4 ]]; then
            _files
        fi
        ;;
    use:3 | forget:3) compadd -- ${(f)"$(quorvictl mice 2>/dev/null | cut -f1)"} ;;
    press:3 | release:3) compadd {1..9} ;;
    encode:[34] | decode:[34] | check:3 | profiles:3 | macros:3 | import:[34] | export:[36] | backup:[34] | restore:[34]) _files ;;
    esac
}

_quorvictl "$@"
