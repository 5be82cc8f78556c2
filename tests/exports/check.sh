#!/usr/bin/env bash
# What the built library offers and what it asks for, read from its file: the five classes, the two
# functions, and nothing but SDL, Qt Core and the system.
#   check.sh LIBRARY OBJDUMP NM
set -euo pipefail
library=$1 objdump=$2 nm=$3
failures=0

complain() {
    echo "$*"
    failures=$((failures + 1))
}

case $library in
*.dll)
    exported() { "$objdump" -p "$library" | sed -nE 's/^\t\[ *[0-9]+\] (\+base\[ *[0-9]+\] +[0-9a-f]+ )?(_[A-Za-z0-9_]+)$/\2/p'; }
    needed() { "$objdump" -p "$library" | sed -nE 's/^\tDLL Name: (.*)$/\1/p'; }
    own='SDL3|Qt6Core'
    # The system's, and what every program of this compiler needs.
    system='KERNEL32|USER32|msvcrt|api-ms-win-crt-.*|libstdc\+\+-6|libgcc_s_seh-1|libwinpthread-1'
    name="(${own}|${system})\\.dll"
    ;;
*)
    exported() { "$nm" -D --defined-only "$library" | awk '{ print $NF }'; }
    needed() { "$objdump" -p "$library" | awk '$1 == "NEEDED" { print $2 }'; }
    own='SDL3|Qt6Core'
    name="(lib(${own}|stdc\\+\\+|gcc_s|m|c|asan|ubsan|tsan)|ld-linux-x86-64)\\.so\\.[0-9]+"
    ;;
esac

classes='LibretroHost SdlVideo SdlAudio SdlInput InputBindings'
functions='velmora::settingskeys::org() velmora::settingskeys::app()'
# Members, but nothing of what is nested in a class.
member="velmora::(${classes// /|})::~?[A-Za-z0-9_]+(\(.*)?"
allowed="$member|(vtable|typeinfo|typeinfo name) for velmora::InputBindings"

symbols=$(exported | c++filt)
libraries=$(needed)
for class in $classes; do
    grep -q "^velmora::$class::" <<<"$symbols" || complain "not exported: class $class"
done
for function in $functions; do
    grep -qxF "$function" <<<"$symbols" || complain "not exported: $function"
done
while read -r symbol; do
    complain "exported: $symbol"
done < <(grep -vxE "$allowed" <<<"$symbols" | grep -vxF "${functions// /$'\n'}" || true)
for library_name in ${own//|/ }; do
    grep -q "$library_name" <<<"$libraries" || complain "not linked: $library_name"
done
while read -r other; do
    complain "linked: $other"
done < <(grep -vxE "$name" <<<"$libraries" || true)

echo "$(wc -l <<<"$symbols") symbols, linked: ${libraries//$'\n'/, }"
[ "$failures" = 0 ]
