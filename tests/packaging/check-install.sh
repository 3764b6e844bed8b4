#!/usr/bin/env bash
# Checks the manual page against the console tool's own help, then installs the build into a
# temporary prefix and checks the installed tree: programs, modules, data, menu entry, icons,
# metainfo.
set -euo pipefail
build="$1" cli="$2" man="$3"
status=0
complain() { echo "FAIL: $*" >&2; status=1; }

# Every command that --help lists has its own entry in the manual page.
commands=$("$cli" --help | sed -n '/^Commands:/,/^$/p' | awk '/^  [a-z]/ {print $1}')
[ -n "$commands" ] || complain "velmora-cli --help lists no commands"
page="$(sed 's/\\-/-/g' "$man")"
for c in $commands; do
    grep -Eq "^\.B[IR]? \"?$c[ \"]" <<<"$page" || complain "the manual page has no entry for the command '$c'"
done
groff -t -man -ww -z "$man" 2>"$build/manpage-warnings.txt" || complain "groff cannot read the manual page"
[ -s "$build/manpage-warnings.txt" ] && complain "man reports: $(cat "$build/manpage-warnings.txt")"

prefix="$(mktemp -d)"
trap 'rm -rf "$prefix"' EXIT
cmake --install "$build" --prefix "$prefix" >/dev/null
for f in bin/velmora bin/velmora-cli share/velmora/tips.txt \
         share/applications/org.orvane.Velmora.desktop share/metainfo/org.orvane.Velmora.metainfo.xml \
         share/icons/hicolor/scalable/apps/org.orvane.Velmora.svg \
         share/icons/hicolor/256x256/apps/org.orvane.Velmora.png \
         share/man/man1/velmora-cli.1.gz share/doc/velmora/copyright; do
    [ -e "$prefix/$f" ] || complain "not installed: $f"
done
if [ -e "$build/bin/foods.db" ]; then
    cmp -s "$build/bin/foods.db" "$prefix/share/velmora/foods.db" || complain "foods.db not installed"
fi
# The modules the program loads on first use lie in lib/velmora, and the program exports every
# symbol of ours that they call: a missing one would only show when the user opens the page.
for module in "$build"/bin/velmora-*.so; do
    [ -e "$module" ] || continue
    name="$(basename "$module")"
    [ -e "$prefix/lib/velmora/$name" ] || complain "not installed: lib/velmora/$name"
    missing=$(comm -23 <(nm -D --undefined-only "$module" | awk '$2 ~ /7velmora/ {print $2}' | sort -u) \
                       <(nm -D --defined-only "$prefix/bin/velmora" | awk '{print $3}' | sort -u))
    [ -z "$missing" ] || complain "$name calls what the program does not export: $missing"
done
"$prefix/bin/velmora-cli" --help >/dev/null || complain "the installed velmora-cli does not start"
exit $status
