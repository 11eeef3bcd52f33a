#!/usr/bin/env bash
# wine.sh start FOLDER: makes a Wine prefix and a display in FOLDER, for
# wine.sh run FOLDER PROGRAM [ARGUMENT…]: runs a Windows program there and answers as it does;
# wine.sh stop FOLDER: ends what is still running there.
set -euo pipefail
action=$1
session=$2
shift 2

find_wine() {
  local candidate
  for candidate in "$(command -v wine64 || true)" /usr/lib/wine/wine64 /usr/lib/wine/wine \
    "$(command -v wine || true)"; do
    [[ -z $candidate || ! -x $candidate ]] || { echo "$candidate"; return; }
  done
  echo "There is no wine64 here: scripts/install-packages installs it." >&2
  return 1
}

wine=$(find_wine)
server=$(command -v wineserver || echo /usr/lib/wine/wineserver64)
export WINEPREFIX="$session/prefix"
export WINEDEBUG=${WINEDEBUG--all}
# Nothing here needs the two big packages that Wine offers to fetch, nor menus on this desktop.
export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'

# One that ends late would take the place of its successor with it: it is waited for.
end() {
  if [[ -d $WINEPREFIX ]]; then
    "$server" -k || true
    timeout 20 "$server" -w || true
  fi
  [[ ! -s $session/display.pid ]] || kill "$(<"$session/display.pid")" 2>/dev/null || true
  rm -f "$session/display.pid"
}

case $action in
  start)
    end
    rm -rf "$session"
    mkdir -p "$session"
    Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp 3>"$session/display" >"$session/display.log" 2>&1 &
    echo $! >"$session/display.pid"
    for ((i = 0; i < 100; ++i)); do
      [[ ! -s $session/display ]] || break
      sleep 0.1
    done
    export DISPLAY=":$(<"$session/display")"
    # Starting the first program takes seconds, every other one a twentieth: this one waits for a
    # line that nobody writes. It makes the prefix; were that done before, Wine would end its
    # services in between, and one that ends late is in the way of its successor.
    mkfifo "$session/nothing"
    "$wine" cmd <>"$session/nothing" >"$session/waiting.log" 2>&1 &
    # It has what it needs when it prompts. Two that make the prefix at once are in each other's way.
    for ((i = 0; i < 1200; ++i)); do
      ! grep -q '>' "$session/waiting.log" || break
      sleep 0.1
    done
    # Without a window manager there is nobody to answer, and each new window would wait for one.
    "$wine" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N >"$session/boot.log" 2>&1
    ;;
  run)
    DISPLAY=":$(<"$session/display")" exec "$wine" "$@"
    ;;
  stop) end ;;
  *) echo "start, run or stop" >&2; exit 2 ;;
esac
