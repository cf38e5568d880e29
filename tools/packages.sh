# SPDX-License-Identifier: GPL-3.0-or-later
# Debian packages that the project needs, and how to install those that are missing. Sourced by
# ./run, ./test and the other tools.

build_packages=(
    g++ cmake ninja-build libboost-dev qt6-base-dev qt6-translations-l10n fonts-dejavu-core
)

# A virtual display with a window manager and a stranger's hands: what drives the real program.
driver_packages=(
    xvfb openbox xdotool xclip x11-utils imagemagick dbus at-spi2-core python3 python3-pyatspi
    python3-xlib
)

test_packages=(
    clang clang-tidy clang-format lld libclang-rt-14-dev libgtest-dev libbenchmark-dev libgsl-dev
    libboost-math-dev locales strace uidmap
)

# What `./test --largo` needs besides.
reliability_packages=(llvm valgrind)

# What tools/validation needs besides.
validation_packages=(r-base-core)

# What tools/manual and tools/package need besides.
manual_packages=(python3 python3-markdown weasyprint fonts-dejavu-core)
package_packages=("${manual_packages[@]}" debhelper dpkg-dev)

# What tests/packaging/fresh_root needs besides.
fresh_root_packages=(debootstrap lintian desktop-file-utils appstream)

missing_packages() {
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            echo "$package"
    done
}

# install_missing PACKAGE... : installs what is not there yet, without a question.
install_missing() {
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -eq 0 ] && return
    echo "== Instalando: ${missing[*]}"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# configure_and_build PRESET [TARGET...] : configures, then builds what changed.
configure_and_build() {
    local preset=$1
    shift
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" ${1:+--target "$@"}
}
