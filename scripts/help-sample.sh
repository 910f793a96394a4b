# Settings worth a picture: three profiles and three macros. Sourced by scripts/help-pictures. All names are texts of the
# language's string table, so that no text is translated twice.

text() { # LANGUAGE KEY
    xmllint --nonet --xpath "string(//key[.='$2']/following-sibling::string[1])" \
        "src/resources/$1.lproj/Localizable.strings"
}

# A step in the settings: 1 presses and 0 releases the key with that USB usage, then the delay in ms.
step() {
    printf '<dict><key>command</key><integer>%d</integer><key>argument</key><integer>%d</integer>' "$1" "$2"
    printf '<key>delay</key><integer>%d</integer></dict>' "$3"
}

add_macro() { # SETTINGS NAME STEPS
    local item
    item=$(mktemp --suffix=.plist)
    printf '<plist version="1.0"><dict><key>name</key><string>%s</string><key>delay</key><integer>0</integer>%s' "$2" \
        "<key>steps</key><array>$3</array></dict></plist>" >"$item"
    build/bin/quorvictl import "$1" "$item" >/dev/null
    rm "$item"
}

# A copy of the first profile, with another name, bound to an application.
add_profile() { # SETTINGS NAME APPLICATION SWITCHES
    local item
    item=$(mktemp --suffix=.plist)
    build/bin/quorvictl export "$1" profile 1 "$item" >/dev/null
    sed -i -z "s|\(<key>name</key>\s*<string>\)[^<]*|\1$2|; s|\(<key>application</key>\s*\)<string[^>]*>\(</string>\)\?|\1<string>$3</string>|
        s|\(<key>autoswitch</key>\s*\)<false/>|\1<$4/>|" "$item"
    build/bin/quorvictl import "$1" "$item" >/dev/null
    rm "$item"
}

sample_settings() { # LANGUAGE FILE
    local language=$1 file=$2 control=224 a=4 c=6
    mkdir -p "${file%/*}"
    sed "s|<string>Default Profile</string>|<string>$(text "$language" "Default Profile")</string>|" \
        src/resources/Defaults.plist >"$file"
    add_profile "$file" "$(text "$language" Media)" Player true
    add_profile "$file" "$(text "$language" Editing)" "" false
    add_macro "$file" "$(text "$language" Copy)" \
        "$(step 1 $control 20)$(step 1 $a 40)$(step 0 $a 100)$(step 1 $c 40)$(step 0 $c 20)$(step 0 $control 0)"
    add_macro "$file" "$(text "$language" Undo)" "$(step 1 $a 0)"
    add_macro "$file" "$(text "$language" "Double Click")" "$(step 1 $a 0)"
}
