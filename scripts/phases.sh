# shellcheck shell=bash
# Builds and test runs that are counted together; sourced after common.sh by the test scripts.

# Tests meet the same locale everywhere; Qt complains about one that is not UTF-8.
export LC_ALL=C.UTF-8

passed=0
failed=0
skipped=0

summary() { echo "$passed passed, $failed failed, $skipped skipped"; }

phase() { # NAME COMMAND...: nothing follows a phase that could not be carried out
    local name=$1 start=$SECONDS
    shift
    say "$name"
    if ! "$@"; then
        say "$name failed"
        failed=$((failed + 1))
        summary
        exit 1
    fi
    say "$name: $((SECONDS - start)) s"
}

build() { # PRESET [TARGET...]: everything where no target is named
    local werror=OFF
    [ "${CI:-}" != true ] || werror=ON
    local targets=("${@:2}")
    [ ${#targets[@]} -gt 0 ] || targets=(all)
    quietly cmake --preset "$1" -DVELMORA_BUILD_TESTS=ON -DVELMORA_WARNINGS_AS_ERRORS=$werror &&
        quietly cmake --build --preset "$1" --target "${targets[@]}"
}

count() { # LOG: adds the outcome of one ctest run to the totals
    local total bad left_out
    read -r bad total < <(sed -nE 's/.* ([0-9]+) tests? failed out of ([0-9]+)$/\1 \2/p' "$1")
    left_out=$(grep -c '\*\*\*Skipped' "$1") || true
    failed=$((failed + bad))
    skipped=$((skipped + left_out))
    passed=$((passed + total - bad - left_out))
}

tell_skips() { # PRESET: the reasons that the skipped tests gave
    awk '/^[0-9]+\/[0-9]+ Test: / { name = $3 }
         /^skipped: / { print "skipped " name ": " substr($0, 10) }
         skipping { print "skipped " name ": " $0 }
         { skipping = / Skipped\r?$/ }' "build/$1/Testing/Temporary/LastTest.log"
}

run_tests() { # PRESET [CTEST ARGUMENT...]: a failing test is counted and does not stop the rest
    local log status=0
    log=$(mktemp)
    ctest --preset "$1" -j "$(nproc)" "${@:2}" </dev/null 2>&1 | tee "$log" || status=$?
    grep -qE 'tests? failed out of' "$log" || return 1
    count "$log"
    tell_skips "$1"
    rm -f "$log"
    # A run that failed for another reason than a test is not to look like a success.
    [ "$status" = 0 ] || [ "$failed" -gt 0 ]
}
