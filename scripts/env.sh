# shellcheck shell=bash
# Lets CMake, pkg-config and the loader find the SDL3 that scripts/setup built where the distribution
# has none; elsewhere it changes nothing. The scripts source it; before a build by hand, do so too:
#   . scripts/env.sh && cmake --preset release

velmora_sdl_prefix="${XDG_CACHE_HOME:-${HOME:?}/.cache}/velmora/sdl3"

velmora_prepend() { # NAME DIRECTORY: puts DIRECTORY at the front of the list of paths NAME, once
    local value
    eval "value=\${$1:-}"
    # shellcheck disable=SC2154 # set by eval
    case ":$value:" in
    *":$2:"*) ;;
    *) export "$1=$2${value:+:$value}" ;;
    esac
}

if [ -e "$velmora_sdl_prefix/lib/cmake/SDL3/SDL3Config.cmake" ]; then
    velmora_prepend CMAKE_PREFIX_PATH "$velmora_sdl_prefix"
    velmora_prepend PKG_CONFIG_PATH "$velmora_sdl_prefix/lib/pkgconfig"
    velmora_prepend LD_LIBRARY_PATH "$velmora_sdl_prefix/lib"
fi
unset -f velmora_prepend
