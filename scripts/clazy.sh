#!/usr/bin/env bash
# Runs clazy, up to its level 2, over the sources that BUILD_DIR compiles. Left out are generated files, and tests: what it
# finds there costs time that nobody waits for.
#
#   scripts/clazy.sh BUILD_DIR
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?usage: scripts/clazy.sh BUILD_DIR}

# What is left out, each for its reason:
without=(
    container-anti-pattern     # keys() says what is meant, and the maps are small
    ctor-missing-parent-argument # workers, singletons and top-level windows have no parent
    empty-qstringliteral       # an empty text that is not null: the difference is meant
    function-args-by-value     # Qt's own signatures, and those that follow them
    missing-qobject-macro      # classes without signals, properties and texts of their own
    old-style-connect          # the editors find the signals of their input widgets by name
    qproperty-without-notify   # the button's user data changes nothing that is shown
    qstring-allocations        # QLatin1String + QString is one allocation
    qstring-ref                # Qt 6 has no QStringRef
    range-loop-detach          # lists that a function returned are nobody else's, so there is nothing to detach from
    returning-void-expression  # "return refuse(reason)" is one thought
    writing-to-temporary       # takes a new item, which the list owns, for a temporary
)
checks=level2
for check in "${without[@]}"; do
    checks+=",no-$check"
done

mapfile -t sources < <(git ls-files --cached --others --exclude-standard 'src/*.cpp' 'platform/*.cpp' 'host/*.cpp' 'apps/*.cpp' 'designer/*.cpp' 'docs/*.cpp')
printf '%s\0' "${sources[@]}" |
    xargs -0 -n 4 -P "$(nproc)" clazy-standalone -p "$build" --checks="$checks" --header-filter='/(include|src|host|apps|platform|designer|docs/generator)/' \
        --extra-arg=-Wno-gnu-zero-variadic-macro-arguments --extra-arg=-Werror
echo "${#sources[@]} sources are clean"
