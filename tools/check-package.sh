#!/usr/bin/env bash
# Builds the Debian package, checks it, installs it, runs experiments with the program from where it
# was installed, one of them with a scheme compiled from what was installed, and removes it again.
# Needs root or sudo; refuses where a ternlow is installed already.
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

remove_package() { as_root apt-get purge -y ternlow >"$logs/removing.log" 2>&1; }
step "installing the package" "$advice" as_root apt-get install -y "$package"
trap remove_package EXIT

# play LIBRARIES SCHEME...: works the installed program in a virtual display.
doc=/usr/share/doc/ternlow
play() {
    xvfb-run -a -s "-screen 0 1920x1200x24" \
        tools/play-installed.sh /usr/bin/ternlow "$1" $doc/setups/blast-waves.txt "${@:2}"
}
libraries=$(dirname "$(dpkg -L ternlow | grep '/ternlow/libKestrel64.so$')")
step "running experiments" "$advice" play "$libraries" Kestrel Kestrel32 Heron32 Plover
cat "$logs/running-experiments.log"

# As docs/writing-a-scheme.md tells a teacher to.
own=$root/build/own-scheme
play_own_scheme() {
    mkdir -p "$own"
    g++ -O3 -ffp-contract=off -shared -fPIC -I /usr/include/ternlow \
        -o "$own/libKestrel64.so" $doc/examples/first_order_upwind.cpp
    LD_LIBRARY_PATH=$own play "$own" Kestrel
}
step "running a scheme of ones own" "$advice" play_own_scheme
cat "$logs/running-a-scheme-of-ones-own.log"

# Without a display, and with the schemes beside the installed program.
study() {
    (cd / && ternlow-run test1 $doc/setups/*.txt --scheme all --cells 100 --out "$root/build/study")
}
rm -rf build/study
step "running a study without a window" "$advice" study

trap - EXIT
step "removing the package" "$advice" as_root apt-get purge -y ternlow
if [ -e /usr/bin/ternlow ] || [ -e /usr/share/doc/ternlow ]; then
    say "something of the package was left behind" >&2
    exit 1
fi
say "the package is good"
