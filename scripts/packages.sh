# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

# shellcheck shell=bash disable=SC2034
# The Debian packages (Debian 12) that the other scripts need, and how to get them. To be sourced.

# To build the program.
packages_build=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev libgif-dev libjpeg-dev libpng-dev)
# To start it: the platform plugins, the renderer of the icons, a font for the windows, and Liberation for Courier New.
packages_run=(libqt6svg6 qt6-qpa-plugins fonts-dejavu-core fonts-liberation)
# To build and run the tests.
packages_test=(libgtest-dev)
# To build and run the benchmarks, with the language that they measure against.
packages_bench=(libbenchmark-dev liblua5.4-dev pkg-config xvfb xauth)
# To see which lines the tests reach.
packages_coverage=(gcovr)
# What .ci/run adds to that: the formatter, clang-tidy, the fuzzers, the validators, the package builder.
# CUPS and its PDF printer are there so that the print queue is tested for real.
packages_ci=(git cups-daemon cups-client printer-driver-cups-pdf clang-format clang clang-tidy libclang-rt-14-dev
    desktop-file-utils appstream dpkg-dev file lintian reuse man-db groff-base cmark-gfm)
# The core for the web: its compiler, and what runs it.
packages_web=(clang-22 lld-22 libc++-22-dev-wasm32 libc++abi-22-dev-wasm32 libclang-rt-22-dev-wasm32 wasi-libc nodejs)

have_package()
{
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# need_packages NAME...: installs those that are missing, as root or through sudo.
need_packages()
{
    local missing=() package as_root=()
    command -v dpkg-query >/dev/null || {
        echo "This is no Debian system; I go on and hope that these are here in some form: $*" >&2
        return 0
    }
    for package; do
        have_package "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "These packages are missing: ${missing[*]}. Please install them as root, or install sudo." >&2
            return 1
        }
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    local quiet=(-qq -o Dpkg::Use-Pty=0)
    "${as_root[@]}" apt-get "${quiet[@]}" update &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get "${quiet[@]}" install -y --no-install-recommends "${missing[@]}" >/dev/null || {
        echo "The packages could not be installed: ${missing[*]}" >&2
        return 1
    }
}
