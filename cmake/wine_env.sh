# Sourced: the environment in which the project's Windows programs run under Wine. A WINEPREFIX of the caller is kept.
# UTF-8 lets file names and arguments through unharmed; the Windows locale is en-US all the same. Without the override
# of winedbg each crash hangs until its time-out; that of winemenubuilder keeps Wine out of the desktop's menus.
export WINEPREFIX="${WINEPREFIX:-$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")/build/wineprefix}"
export LC_ALL=C.UTF-8 WINEDEBUG="${WINEDEBUG:--all}" WINEDLLOVERRIDES="mscoree,mshtml=;winedbg.exe,winemenubuilder.exe=d"
TV_WINE=/usr/lib/wine/wine64
TV_WINESERVER=/usr/lib/wine/wineserver
