# A camera for scripts/film: source it after picture-tools.sh. It takes picture after picture of the panel's window, of what
# pops up over it and of the pointer, each for a time given in hundredths of a second, as an animated picture counts. So the
# film runs evenly on a busy machine too.

# Puts the window at the display's lower edge, where menus end within it too, and begins a film of it:
# load_camera FOLDER. The folder keeps the pictures until the film is cut.
load_camera() {
    local display_height
    reel=$1 taken=0 caption='' at_x=400 at_y=300
    xdotool windowmove --sync "$window" 0 0
    measure_window
    read -r _ display_height < <(xdotool getdisplaygeometry)
    xdotool windowmove --sync "$window" 0 $((display_height - height - top))
    measure_window
    move_pointer
}

# Sets $left, $top, $width and $height of the window without its frame.
measure_window() {
    { read -r left; read -r top; read -r width; read -r height; } < <(xwininfo -id "$window" |
        sed -n 's/.*\(Absolute upper-left [XY]\|Width\|Height\): *//p')
}

move_pointer() { xdotool mousemove $((left + at_x)) $((top + at_y)); }

take_picture() {
    import -silent -window root -crop "${width}x$height+$left+$top" +repage -compress RLE "$reel/$taken.miff"
}

# Notes the picture, with the pointer and the caption of now: keep HUNDREDTHS [POINTER].
keep() {
    echo "$taken $1 $at_x $at_y ${2:-pointer} $caption" >>"$reel/list"
    taken=$((taken + 1))
}

# Takes a picture as soon as the window has come to rest: hold HUNDREDTHS [POINTER].
hold() {
    local before='' now equal=0
    for _ in $(seq 50); do
        take_picture
        now=$(md5sum <"$reel/$taken.miff")
        if [ "$now" = "$before" ]; then equal=$((equal + 1)); else equal=0; fi
        [ "$equal" -lt 3 ] || break
        before=$now
        sleep 0.05
    done
    keep "$@"
}

# Films what moves by itself, as fast as it does: watch HUNDREDTHS.
watch() {
    local start=$((${EPOCHREALTIME/./} / 10000)) kept=0 now=0
    while [ "$now" -lt "$1" ]; do
        take_picture
        sleep 0.02
        now=$((${EPOCHREALTIME/./} / 10000 - start))
        keep $((now - kept))
        kept=$now
    done
}

# Moves the pointer to a place in the window, gently at both ends: glide X Y.
glide() {
    local -a path
    local place
    mapfile -t path < <(awk -v x="$at_x" -v y="$at_y" -v to_x="$1" -v to_y="$2" 'BEGIN {
        steps = int(6 + sqrt((to_x - x) ^ 2 + (to_y - y) ^ 2) / 40)
        for (step = 1; step <= steps; ++step) {
            part = (step / steps) ^ 2 * (3 - 2 * step / steps)
            printf "%.0f %.0f\n", x + (to_x - x) * part, y + (to_y - y) * part
        }
    }')
    for place in "${path[@]}"; do
        read -r at_x at_y <<<"$place"
        move_pointer
        take_picture
        keep 5
    done
}

# Clicks where the pointer is. A ring around it shows that.
click() {
    press
    hold 12 pressing
}

# The same without waiting until the window is at rest again.
press() {
    hold 25
    hold 12 pressing
    xdotool click 1
}

# The pointer, and the same with the ring, each in the middle of a picture.
draw_pointers() {
    local arrow='path "M 20,20 L 20,36.5 23.8,33 26.3,38.8 28.9,37.7 26.4,32 31.4,32 Z"'
    local ring=(-fill '#2980b950' -stroke '#2980b9' -strokewidth 2 -draw 'circle 20,20 20,6')
    convert -size 41x41 xc:none -fill black -stroke white -strokewidth 1.2 -draw "$arrow" "$reel/pointer.png"
    convert -size 41x41 xc:none "${ring[@]}" "$reel/pointer.png" -composite "$reel/pressing.png"
}

# The pictures as they are shown, below their captions. Equal ones in a row become one. Sets $shown to their number, and
# $delays.
develop() {
    local number delay x y pointer text now before='' bar=44 ground='#31363b'
    shown=0 delays=()
    draw_pointers
    while read -r number delay x y pointer text; do
        now="$(md5sum <"$reel/$number.miff") $x $y $pointer $text"
        if [ "$now" = "$before" ]; then
            delays[shown - 1]=$((delays[shown - 1] + delay))
            continue
        fi
        before=$now delays[shown]=$delay
        convert -size "${width}x$bar" "xc:$ground" -font DejaVu-Sans-Bold -pointsize 18 -fill white -gravity west \
            -annotate +20+0 "$text" +gravity "$reel/$number.miff" -append +repage \
            "$reel/$pointer.png" -geometry "+$((x - 20))+$((y - 20 + bar))" -composite \
            -bordercolor "$ground" -border 1 -depth 8 "$reel/shown-$shown.miff"
        shown=$((shown + 1))
    done <"$reel/list"
}

# Makes the film an animated picture: cut_film FILE.
cut_film() {
    local longest picture frames=()
    develop
    # One palette, of what is seen longest, so that no colour changes from picture to picture.
    mapfile -t longest < <(for picture in "${!delays[@]}"; do echo "${delays[picture]} $reel/shown-$picture.miff"; done |
        sort -rn | head -n 16 | cut -d' ' -f2)
    convert "${longest[@]}" -append +dither -colors 255 -unique-colors "$reel/palette.miff"
    for picture in "${!delays[@]}"; do
        mogrify +dither -remap "$reel/palette.miff" "$reel/shown-$picture.miff"
        frames+=(-delay "${delays[picture]}" "$reel/shown-$picture.miff")
    done
    # Of each picture only the part that differs from the one before.
    convert -dispose none "${frames[@]}" -loop 0 -layers remove-dups -layers optimize-frame \
        -layers optimize-transparency "$1"
}
