# Sourced by run.sh and test.sh: Debian packages that the project needs, and their installation.

build_packages=(g++ cmake ninja-build unixodbc-dev libsqliteodbc libcli11-dev nlohmann-json3-dev libdtl-dev
    libpugixml-dev libwxgtk3.2-dev libgtk-3-dev pkgconf wx3.2-i18n)
test_packages=(libgtest-dev libgmock-dev clang-format clang-tidy git unixodbc odbcinst odbc-postgresql odbc-mariadb
    postgresql mariadb-server util-linux pkgconf libatspi2.0-dev libxtst-dev strace)

# What shows a window without a screen, drives it and takes pictures of it.
display_packages=(xvfb openbox x11-utils x11-xkb-utils x11-xserver-utils xdotool dbus-daemon dbus-bin at-spi2-core
    imagemagick)

# What makes the Debian package: packaging/linux/package.sh takes these.
linux_packages=(dpkg-dev binutils git gzip zip unzip xz-utils)

# What the tests of this package look into it with, and the shells that complete its command line.
linux_test_packages=(lintian mandoc appstream desktop-file-utils bash-completion zsh fish)

# What makes the Windows programs and their packages on Linux: packaging/windows/package.sh takes these.
windows_packages=(g++ cmake ninja-build make dpkg-dev git libwxgtk3.2-dev libcli11-dev nlohmann-json3-dev libdtl-dev
    libpugixml-dev googletest g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix libz-mingw-w64-dev nsis zip unzip
    wx3.2-i18n)

# What the tests of these packages look into them and run them with.
windows_test_packages=(wine wine64 libsqliteodbc icoutils p7zip-full)

# What bench.sh measures with, and the programs that it measures beside the project's own.
bench_packages=(libbenchmark-dev valgrind python3 gnuplot-nox libsimpleini-dev crudini git libgtest-dev libgmock-dev
    libsoci-dev libboost-dev python3-pyodbc odbc-postgresql postgresql util-linux
    libgtk-3-dev libxcb1-dev pkgconf sqlitebrowser poedit filezilla)

# need_packages <package>...: installs those that are missing and says which; quick when all are there.
need_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "These packages are missing and only root may install them: ${missing[*]}" >&2
            return 1
        }
        as_root=(sudo)
    fi
    # Servers that come with the test packages are for the tests alone: none is to start by itself.
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive RUNLEVEL=1 \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
