# Completion of quorvictl's command line for fish.

# What stands before the word that is being typed; behind --json all is as without it.
function __quorvictl_words
    set -l words (commandline -opc)
    if test "$words[2]" = --json
        set -e words[2]
    end
    printf '%s\n' $words
end

# The verb and the number of the word that is being typed, "encode:2".
function __quorvictl_place
    set -l words (__quorvictl_words)
    set -l place $words[2]:(count $words)
    # What is to be done with the history says what comes behind.
    if test "$words[2]" = history; and set -q words[3]
        set place $place:$words[3]
    end
    echo $place
end

function __quorvictl_takes_file
    string match -qr '^(encode:[23]|decode:[23]|check:2|apply:[234]|match:2|profiles:2|macros:2|import:[23]|export:[25]|backup:[23]|restore:[23]|history:3:restore)$' -- (__quorvictl_place)
end

function __quorvictl_takes_option
    string match -q 'match:*' -- (__quorvictl_place)
end

complete -c quorvictl -f
complete -c quorvictl -n __quorvictl_takes_file -F

set -l json 'test (count (__quorvictl_words)) -eq 1; and test (count (commandline -opc)) -eq 2'
complete -c quorvictl -n $json -a 'check apply profiles macros history commands devices mice'

set -l first 'test (count (commandline -opc)) -eq 1'
complete -c quorvictl -n $first -a --json -d 'Print JSON'
complete -c quorvictl -n $first -a encode -d 'Write the record of the settings'
complete -c quorvictl -n $first -a decode -d 'Put the settings of a record into the file'
complete -c quorvictl -n $first -a check -d 'Check that the panel and the mouse accept the settings'
complete -c quorvictl -n $first -a apply -d 'Use the settings of a file, and say whether they differed'
complete -c quorvictl -n $first -a match -d 'Print the profile that is bound to an application'
complete -c quorvictl -n $first -a profiles -d 'List the profiles'
complete -c quorvictl -n $first -a macros -d 'List the macros'
complete -c quorvictl -n $first -a import -d 'Add a profile or macro from a file'
complete -c quorvictl -n $first -a export -d 'Write a profile or macro into a file'
complete -c quorvictl -n $first -a backup -d 'Write all settings into one file'
complete -c quorvictl -n $first -a restore -d 'Restore the settings from a backup'
complete -c quorvictl -n $first -a history -d 'List, show or restore earlier settings'
complete -c quorvictl -n $first -a commands -d 'List the functions of buttons'
complete -c quorvictl -n $first -a key-name -d 'Print the name of a key'
complete -c quorvictl -n $first -a usb-to-adb -d 'Print the key code of a USB usage'
complete -c quorvictl -n $first -a adb-to-usb -d 'Print the USB usage of a key code'
complete -c quorvictl -n $first -a devices -d 'List the connected mice'
complete -c quorvictl -n $first -a attach -d 'Plug in the simulated mouse'
complete -c quorvictl -n $first -a detach -d 'Unplug the simulated mouse'
complete -c quorvictl -n $first -a mice -d 'List the mice on this computer'
complete -c quorvictl -n $first -a use -d 'Make a mouse follow the settings'
complete -c quorvictl -n $first -a forget -d 'Make a mouse a plain one again'
complete -c quorvictl -n $first -a press -d 'Press an input of the simulated mouse'
complete -c quorvictl -n $first -a release -d 'Release an input of the simulated mouse'
complete -c quorvictl -n $first -a watch -d 'Print what the simulated mouse sends'
complete -c quorvictl -n $first -a --help -d 'Show usage'
complete -c quorvictl -n $first -a --version -d 'Print the version'

complete -c quorvictl -n 'test (__quorvictl_place) = export:3' -a 'profile macro'
complete -c quorvictl -n 'test (__quorvictl_place) = export:6' -l with-macros -d 'The macros that the profile runs as well'
complete -c quorvictl -n 'test (__quorvictl_place) = history:2' -a 'show restore'
complete -c quorvictl -n 'contains (__quorvictl_place) history:3:show history:4:restore' -a '(quorvictl history 2>/dev/null | cut -f1)'
complete -c quorvictl -n 'contains (__quorvictl_place) use:2 forget:2' -a '(quorvictl mice 2>/dev/null | cut -f1)'
complete -c quorvictl -n 'contains (__quorvictl_place) press:2 release:2' -a '(seq 9)'
complete -c quorvictl -n 'string match -q "apply:*" -- (__quorvictl_place)' -l check -d 'Only say what would change'
complete -c quorvictl -n __quorvictl_takes_option -l auto -d 'Only profiles that switch automatically'
complete -c quorvictl -n __quorvictl_takes_option -l application -x -d 'Application name'
complete -c quorvictl -n __quorvictl_takes_option -l identifier -x -d 'Application identifier'
complete -c quorvictl -n __quorvictl_takes_option -l signature -x -d 'Application signature'
complete -c quorvictl -n __quorvictl_takes_option -l executable -x -d 'Application program'
