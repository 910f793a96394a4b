#compdef quorvictl
# Completion of quorvictl's command line for zsh.

_quorvictl() {
    local -a verbs=(
        'encode:write the record of the settings'
        'decode:put the settings of a record into the file'
        'check:check that the panel and the mouse accept the settings'
        'apply:use the settings of a file, and say whether they differed'
        'match:print the profile that is bound to an application'
        'profiles:list the profiles'
        'macros:list the macros'
        'import:add a profile or macro from a file'
        'export:write a profile or macro into a file'
        'backup:write all settings into one file'
        'restore:restore the settings from a backup'
        'history:list, show or restore earlier settings'
        'commands:list the functions of buttons'
        'key-name:print the name of a key'
        'usb-to-adb:print the key code of a USB usage'
        'adb-to-usb:print the USB usage of a key code'
        'devices:list the connected mice'
        'attach:plug in the simulated mouse'
        'detach:unplug the simulated mouse'
        'mice:list the mice on this computer'
        'use:make a mouse follow the settings'
        'forget:make a mouse a plain one again'
        'press:press an input of the simulated mouse'
        'release:release an input of the simulated mouse'
        'watch:print what the simulated mouse sends'
        '--json:print JSON'
        '--help:show usage'
        '--version:print the version'
    )
    local -a options=(
        '--auto:only profiles that switch automatically'
        '--application:application name' '--identifier:application identifier' '--signature:application signature' '--executable:application program'
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
