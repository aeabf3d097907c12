#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the reference host need, when missing.
# Costs one dpkg query when everything is there already.
set -euo pipefail

packages=(
    build-essential cmake
    qtbase5-dev qttools5-dev qttools5-dev-tools libqcustomplot-dev libqt5serialport5-dev
    libbenchmark-dev
    libtirpc-dev pkg-config
    fonts-dejavu-core fonts-wqy-microhei
    xvfb xauth
    clang libclang-rt-14-dev
    python3-pyvisa-py socat
    libqt5sql5-sqlite libqt5sql5-psql postgresql
)

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$package")
    fi
done

if [ "${#missing[@]}" -gt 0 ]; then
    echo "setup: installing ${missing[*]}"
    sudo_cmd=()
    [ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
    export DEBIAN_FRONTEND=noninteractive
    "${sudo_cmd[@]}" apt-get update -qq
    "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
