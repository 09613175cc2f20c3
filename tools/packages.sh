# Sourced by ./run, ./test, ./package and tools/package: the Debian packages that they need, and how to get them.

BUILD_PACKAGES="g++ cmake ninja-build mold qt6-base-dev qt6-svg-dev libsqlite3-dev unixodbc-dev"
RUN_PACKAGES="libqt6svg6 qt6-qpa-plugins fonts-dejavu-core fonts-liberation"
TEST_PACKAGES="clang-format git libgtest-dev libbenchmark-dev poppler-utils odbc-postgresql postgresql tdsodbc \
    appstream desktop-file-utils file xvfb dbus at-spi2-core python3-pyatspi"
FULL_TEST_PACKAGES="clang-tidy-22"
PACKAGE_PACKAGES="dpkg-dev file"
PACKAGE_CHECK_PACKAGES="debootstrap lintian openbox xdotool xvfb"

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
    is_installed postgresql-common || keep_servers_off
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing
    is_installed postgresql-common && let_servers_come
    return 0
}

# The tests start a PostgreSQL of their own and stop it. Its package would make another one, and start it for good.
no_server=/etc/postgresql-common/createcluster.d/no-main-cluster.conf
keep_servers_off() {
    as_root mkdir -p "${no_server%/*}"
    echo 'create_main_cluster = false' | as_root tee "$no_server" >/dev/null
}
let_servers_come() {
    [ ! -e "$no_server" ] || as_root rm "$no_server"
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

# newest_package FOLDER
newest_package() {
    ls -t "$1"/tarnwell_*.deb | head -n 1
}
