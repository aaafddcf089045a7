#!/usr/bin/env bash
# A person's session with the window program under a virtual display: every list and entry form
# of the ledger and the general menu opened and closed, a time sheet whose customer is found by a
# key typed in its box and whose timer runs, the new company wizard run and cancelled with lists
# open, a change of company and the end of the program. It passes when the
# program ends by itself with exit 0 and says nothing of memory errors (an AddressSanitizer build
# reports there). Exit 77, which CTest counts as skipped, when the display tools are missing.
#
#   window_session.sh CORVANE CORVANE_CLI [SCREENSHOT_DIR]
set -uo pipefail
corvane=$1
cli=$2
shots=${3:-}
for tool in Xvfb openbox xdotool; do
    if ! command -v "$tool" >/dev/null; then
        echo "skipped: $tool is not installed (scripts/setup installs it)"
        exit 77
    fi
done

work=$(mktemp -d)
display=":$((100 + RANDOM % 800))"
cleanup() {
    [ -n "${app:-}" ] && kill "$app" 2>/dev/null
    [ -n "${wm:-}" ] && kill "$wm" 2>/dev/null
    [ -n "${xvfb:-}" ] && kill "$xvfb" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT

Xvfb "$display" -screen 0 1400x1000x24 -nolisten tcp >"$work/xvfb.log" 2>&1 &
xvfb=$!
# The real window system, even where the caller drew its tests offscreen.
export QT_QPA_PLATFORM=xcb
export DISPLAY=$display HOME=$work/home XDG_DATA_HOME=$work/home/data XDG_CONFIG_HOME=$work/home/config
export XDG_RUNTIME_DIR=$work/runtime
mkdir -p "$HOME" "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
for _ in $(seq 50); do xdotool getmouselocation >/dev/null 2>&1 && break; sleep 0.1; done
openbox >"$work/openbox.log" 2>&1 &
wm=$!
# Slow builds (a sanitizer's) take longer for every step.
pause=${CORVANE_SESSION_PAUSE:-1}

data="$XDG_DATA_HOME/Halvern Works/Corvane Professional Time Billing/2017.8"
"$cli" new-company "$data/Data" --sample >/dev/null || { echo "no sample company"; exit 1; }
other="$work/other"
"$cli" new-company "$other" --name "Other Co" --bank "Other Bank" --currency "US Dollars" --year 2017 >/dev/null || { echo "no second company"; exit 1; }
mkdir -p "$data"
printf '[General]\nDatabase=%s\nHideDesktopIconsWhenActive=0\n[Companies]\nSample Data=%s\nOther Co=%s\n' \
    "$data/Data" "$data/Data" "$other" >"$data/Corvane.ini"

"$corvane" >"$work/out.log" 2>&1 &
app=$!

wait_for() { # a window whose title matches appears
    for _ in $(seq $((40 * pause))); do
        xdotool search --name "$1" >/dev/null 2>&1 && return 0
        sleep 0.25
    done
    echo "no window '$1'"
    return 1
}
alive() {
    kill -0 "$app" 2>/dev/null || { echo "the program ended early"; cat "$work/out.log"; exit 1; }
}
press() { # keys typed to the active window, one at a time
    for k in "$@"; do
        xdotool key "$k"
        sleep "0.$((3 * pause))"
    done
    sleep "$pause"
}
keys() {
    press "$@"
    alive
}
activate_bar() {
    local bar
    bar=$(xdotool search --name "^Corvane Professional Time Billing$" | head -1)
    xdotool windowactivate --sync "$bar" >/dev/null 2>&1
    sleep "0.$((3 * pause))"
}
main_keys() { # keys typed on the main bar
    activate_bar
    keys "$@"
}
shot() {
    [ -n "$shots" ] && import -window root "$shots/$1.png" 2>/dev/null
}

wait_for "^Corvane Professional Time Billing$" || exit 1
sleep "$pause"
# The lists of the ledger, each with its entry form opened and cancelled.
main_keys alt+f g a
wait_for "^GL Accounts$" && keys Insert && keys Escape
main_keys alt+f g j
wait_for "^Journal Vouchers$" && shot jv-list && keys Insert && sleep "$pause" && shot jv-new && keys Escape
keys Return
wait_for "^JV [0-9]" && shot jv-voucher
keys Escape
main_keys alt+f g t
wait_for "^GL Totals$" && shot gl-totals
main_keys alt+f g h
sleep "$pause"
keys Return
wait_for "^GL History" && shot gl-history
main_keys alt+f g r
sleep "$pause"
keys Escape
# The general menu's forms.
main_keys alt+f n y
sleep "$pause"
keys Escape
main_keys alt+f n c
wait_for "^Currencies$" && shot currencies
keys Down Return
sleep "$pause"
shot currency
keys Escape
main_keys alt+f n s
sleep "$pause"
keys Escape
# A new time sheet: two keys typed in the customer box find the customer in the search, the
# timer runs and stops, and Escape drops the row.
main_keys alt+f t t
wait_for "^Time Sheets" && keys Insert
wait_for "^New Time Sheet" || exit 1
keys Tab Tab Tab Tab Tab b
wait_for "^Find Customer" || exit 1
keys i
shot customer-search
keys Return
keys shift+Tab shift+Tab space
sleep $((2 * pause))
shot timer-running
keys space Escape
# The wizard of a new company, cancelled with the lists open.
main_keys alt+f c n
wait_for "Add New Company" || exit 1
shot add-company
xdotool type --delay 50 "Wizard Co"
keys Return
wait_for "New Company Wizard" || exit 1
keys Escape Return
sleep "$pause"
keys Escape
# Another company from the Companies menu: every form closes, the bar stays.
main_keys alt+f c Down Down Down Down Return
sleep $((2 * pause))
keys Escape
alive
shot after-change
# The end of the program, with whatever it asks on the way answered.
activate_bar
press alt+f x
for _ in $(seq 10); do
    kill -0 "$app" 2>/dev/null || break
    press Escape
done
for _ in $(seq $((40 * pause))); do kill -0 "$app" 2>/dev/null || break; sleep 0.25; done
if kill -0 "$app" 2>/dev/null; then
    echo "the program did not end"
    shot not-ended
    exit 1
fi
wait "$app"
status=$?
app=
if [ "$status" -ne 0 ] || grep -q "ERROR: AddressSanitizer\|runtime error:\|malloc\|double free" "$work/out.log"; then
    echo "the program ended with $status"
    cat "$work/out.log"
    exit 1
fi
echo "the session ended cleanly"
