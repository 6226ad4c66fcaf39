# SPDX-License-Identifier: MIT
# Runs Windows programs in Wine prefixes of the project's own, x64 and x86, on a display of its own.
# wine_start ARCH comes first; all that it started is stopped when the script exits.

# A prefix that was made differently is made anew.
PREFIX_VERSION=3
WINE_FONTS=/usr/share/wine/fonts

WINE_STARTED=()
HELPER_PIDS=()

# in_wine ARCH SECONDS COMMAND...: run a Wine command, at most so long. WINE_LOCALE, a locale that need
# not be installed, is the language of the Windows user.
in_wine() {
    local arch=$1 seconds=$2 enter=()
    shift 2
    [ "$arch" = x64 ] || enter=(in_i386_root)
    "${enter[@]}" env HOME="$PWD/out/wine" WINEPREFIX="$PWD/out/wine/$arch" \
        WINEARCH="$([ "$arch" = x64 ] && echo win64 || echo win32)" WINEDEBUG=-all \
        WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d' \
        DISPLAY="$DISPLAY" XAUTHORITY="${XAUTHORITY:-}" LC_ALL="${WINE_LOCALE:-${LC_ALL:-C.UTF-8}}" \
        timeout -k 10 "$seconds" "$@" </dev/null 9>&-
}

# wine_start ARCH: display, prefix, and a resident process. Fails where there is no Wine for ARCH.
wine_start() {
    local arch=$1
    case " ${WINE_STARTED[*]} " in *" $arch "*) return ;; esac
    [ "$arch" = x64 ] || make_i386_root || return 1
    [ -n "${QUORVANE_DISPLAY:-}" ] || start_display || return 1
    trap wine_stop EXIT
    mkdir -p out/wine
    # What an interrupted run may have left in our own prefix.
    in_wine "$arch" 60 wineserver -k >/dev/null 2>&1 || true
    [ "$(cat "out/wine/$arch/ready" 2>/dev/null)" = "$PREFIX_VERSION" ] || make_prefix "$arch" || return 1
    # With a resident process, no test waits for Wine's services to start, or holds their pipes.
    in_wine "$arch" 86400 wine explorer /desktop=resident,1280x1024 >/dev/null 2>&1 &
    HELPER_PIDS+=($!)
    WINE_STARTED+=("$arch")
    in_wine "$arch" 120 wine cmd /c exit >/dev/null 2>&1
}

wine_stop() {
    local arch
    for arch in "${WINE_STARTED[@]}"; do
        in_wine "$arch" 60 wineserver -k >/dev/null 2>&1 || true
    done
    [ ${#HELPER_PIDS[@]} -eq 0 ] || kill "${HELPER_PIDS[@]}" 2>/dev/null || true
    WINE_STARTED=() HELPER_PIDS=()
}

make_prefix() {
    local arch=$1 font=/usr/share/fonts/truetype/wqy/wqy-microhei.ttc name
    say "Making the Wine prefix out/wine/$arch"
    rm -rf "out/wine/$arch"
    logged "wineboot-$arch" in_wine "$arch" 300 wine wineboot -i || return 1
    # Chinese: a font that has it, and links to it from the fonts that dialogs ask for.
    # Tahoma is the font of dialogs; Debian's Wine does not look where Debian keeps Wine's own.
    cp "$font" $WINE_FONTS/tahoma.ttf $WINE_FONTS/tahomabd.ttf "out/wine/$arch/drive_c/windows/Fonts/"
    for name in Tahoma 'MS Shell Dlg' 'MS Shell Dlg 2' 'Microsoft Sans Serif'; do
        add_key "$arch" 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink' \
            "$name" REG_MULTI_SZ 'wqy-microhei.ttc,WenQuanYi Micro Hei' || return 1
    done
    add_key "$arch" 'HKCU\Software\Wine\Fonts\Replacements' SimSun REG_SZ 'WenQuanYi Micro Hei' || return 1
    in_wine "$arch" 120 wineserver -w
    echo "$PREFIX_VERSION" >"out/wine/$arch/ready"
}

add_key() {
    logged "registry-$1" in_wine "$1" 60 wine reg add "$2" /v "$3" /t "$4" /d "$5" /f
}

# A display nobody else uses, with a window manager: without one every closed dialog costs 2 s.
# Both end with this script, even a killed one; Wine's programs end with the display.
start_display() {
    setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>out/log/display 2>out/log/xvfb.log 9>&- &
    HELPER_PIDS+=($!)
    trap wine_stop EXIT
    for _ in $(seq 100); do
        [ ! -s out/log/display ] || break
        sleep 0.1
    done
    [ -s out/log/display ] || die "Xvfb did not start; see out/log/xvfb.log"
    export DISPLAY=:$(cat out/log/display) QUORVANE_DISPLAY=1
    unset XAUTHORITY
    HOME=$PWD/out/wine setpriv --pdeathsig TERM openbox --sm-disable >out/log/openbox.log 2>&1 9>&- &
    HELPER_PIDS+=($!)
}
