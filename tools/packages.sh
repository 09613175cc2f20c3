# Sourced by ./run and ./test: the Debian packages that they need, and how to get them.

BUILD_PACKAGES="g++ cmake ninja-build mold qt6-base-dev qt6-svg-dev libsqlite3-dev unixodbc-dev"
RUN_PACKAGES="libqt6svg6 qt6-qpa-plugins fonts-liberation"
TEST_PACKAGES="clang-format git libgtest-dev libbenchmark-dev poppler-utils odbc-postgresql postgresql"
FULL_TEST_PACKAGES="clang-tidy-22"

say() { printf '== %s\n' "$*"; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

install_missing() {
    missing=
    for package in "$@"; do
        is_installed "$package" || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    say "Installing:$missing"
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing
}

# configure PRESET
configure() {
    [ -e "build/$1/build.ninja" ] || cmake --preset "$1"
}

# build PRESET TARGET...
build() {
    preset=$1
    shift
    configure "$preset"
    cmake --build --preset "$preset" --target "$@"
}
