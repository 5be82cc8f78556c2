# shellcheck shell=bash
# Tells the `windows` preset and Wine where scripts/setup-windows put what it built. The scripts source
# it; before a build by hand, do so too:
#   . scripts/env-windows.sh && cmake --preset windows

export VELMORA_WINDOWS="${VELMORA_WINDOWS:-${XDG_CACHE_HOME:-${HOME:?}/.cache}/velmora/windows}"

# A Windows of the tests' own, that shows no dialog and offers no download.
export WINEPREFIX="${VELMORA_WINE_PREFIX:-$VELMORA_WINDOWS/wine}" WINEARCH=win64 WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
