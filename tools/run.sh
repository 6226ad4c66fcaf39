# SPDX-License-Identifier: MIT
# Runs the sample: its script in the console host, then the form program, worked and photographed on
# a display of its own, and last on the user's display for the user.

SAMPLE=samples/RoomHeating
FORM_PICTURES=out/build/mingw64/tests/form/form_pictures.exe

run_sample() {
    local user_display=${DISPLAY:-} user_authority=${XAUTHORITY:-$HOME/.Xauthority}
    start_run
    run_script
    take_pictures out/run/pictures
    list_results
    if display_is_usable "$user_display" "$user_authority"; then
        show_form "$user_display" "$user_authority"
    else
        say "No display: the form was worked and photographed on a virtual one; see the pictures"
    fi
}

# Builds, starts Wine on the virtual display, and registers the control.
start_run() {
    need build windows64 wine
    build_quietly mingw64 products form_pictures || die "the build failed"
    wine_start x64 || die "Wine did not start"
    say "Registering the control"
    in_wine x64 120 wine regsvr32 /s out/x64/QuorvaneAxEditor.ocx || die "regsvr32 failed"
}

run_script() {
    say "Running $SAMPLE.form with its script in the console host"
    in_wine x64 600 wine out/x64/QuorvaneHost.exe --output out/run "$SAMPLE.form"
}

# take_pictures FOLDER: FOLDER/en and FOLDER/zh-CN. The language is the user's, and so the locale's.
take_pictures() {
    local language locale
    for language in en zh-CN; do
        locale=en_US.UTF-8
        [ "$language" = en ] || locale=zh_CN.UTF-8
        say "Working the form program by mouse and keyboard, pictures in $1/$language"
        rm -rf "${1:?}/$language"
        WINE_LOCALE=$locale in_wine x64 600 wine "$FORM_PICTURES" "$1/$language" out/run 2>out/log/pictures.log ||
            { cat out/log/pictures.log >&2; die "the form program did not do what it should"; }
    done
}

list_results() {
    say "Control:       out/x64/QuorvaneAxEditor.ocx, registered in the Wine prefix out/wine/x64"
    say "Host programs: out/x64/QuorvaneForm.exe (the form), out/x64/QuorvaneHost.exe (the console)"
    say "Form, script:  $SAMPLE.form, $SAMPLE.vbs"
    say "Batch files:   out/run/InData.txt, out/run/OutData.txt"
    say "Pictures:      out/run/pictures/en, out/run/pictures/zh-CN"
    say "Designed anew: out/run/Tank.form, as the pictures tank-*.png show"
}

# display_is_usable DISPLAY XAUTHORITY: whether an X server answers there.
display_is_usable() {
    [ -n "$1" ] && DISPLAY=$1 XAUTHORITY=$2 timeout 5 setxkbmap -query >/dev/null 2>&1
}

# show_form DISPLAY XAUTHORITY: the sample in Run mode on the user's display, in the user's language,
# until the user closes it.
show_form() {
    # A Wine session has one display from its start to its end.
    wine_stop
    say "The form is on your display $1; close it to end this command"
    DISPLAY=$1 XAUTHORITY=$2 WINE_LOCALE=${LC_ALL:-${LANG:-}} in_wine x64 86400 \
        wine out/x64/QuorvaneForm.exe --output out/run "$SAMPLE.form"
    in_wine x64 60 wineserver -k >/dev/null 2>&1 || true
}
