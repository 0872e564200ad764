#!/usr/bin/env bash
# Builds the Debian package, checks it, installs it, starts the program from where it was installed,
# and removes it again. Needs root or sudo; refuses where a ternlow is installed already.
set -euo pipefail
. "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/set-up.sh"

advice="Mend what the output says."
packages+=("${package_check_packages[@]}")
install_packages
build default build
if is_installed ternlow; then
    say "a ternlow is installed already: remove it first (apt-get remove ternlow)" >&2
    exit 1
fi
rm -f build/ternlow_*.deb
step "making the package" "$advice" cmake --build build --target package
package=$(echo "$root"/build/ternlow_*.deb)
say "made $package"

step "checking the desktop entry" "$advice" desktop-file-validate packaging/ternlow.desktop
step "checking the metainfo" "$advice" \
    appstreamcli validate --no-net packaging/org.ternlow.Ternlow.metainfo.xml
step "checking the package" "$advice" lintian --fail-on error "$package"
cat "$logs/checking-the-package.log"

remove_package() { as_root apt-get remove -y ternlow >"$logs/removing.log" 2>&1; }
step "installing the package" "$advice" as_root apt-get install -y "$package"
trap remove_package EXIT

# The window appears once the name prompt has been answered; before that the prompt does.
starts() {
    local display=:97 seen=1 server program
    Xvfb "$display" -screen 0 1366x768x24 2>/dev/null &
    server=$!
    (cd / && DISPLAY=$display exec /usr/bin/ternlow) &
    program=$!
    for _ in $(seq 100); do
        if DISPLAY=$display xwininfo -root -tree 2>/dev/null | grep -q "Get Student Name"; then
            seen=0
            break
        fi
        sleep 0.1
    done
    kill "$program" "$server"
    wait "$program" "$server" 2>/dev/null || true
    return "$seen"
}
step "starting the installed program" "It did not show its first window." starts

# Each scheme, through the search path that is written into the installed program.
finds_schemes() {
    local path folder scheme
    path=$(readelf -d /usr/bin/ternlow | sed -n 's/.*R\(UN\)\?PATH.*\[\(.*\)\]/\2/p')
    folder=${path/\$ORIGIN//usr/bin}
    for scheme in Kestrel64 Kestrel32 Heron32 Plover; do
        nm -D --defined-only "$folder/lib$scheme.so" | grep -qi " T ${scheme}$" || return 1
    done
}
step "looking for its schemes" "They are not where the program looks." finds_schemes

trap - EXIT
step "removing the package" "$advice" as_root apt-get remove -y ternlow
if [ -e /usr/bin/ternlow ] || [ -e /usr/share/doc/ternlow ]; then
    say "something of the package was left behind" >&2
    exit 1
fi
say "the package is good"
