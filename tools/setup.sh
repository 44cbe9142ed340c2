# Sourced by ./run and ./test: brings a bare Debian 12 to a configured build folder. Not a command of its own.

say() { printf '== %s\n' "$*"; }

missing_packages() { # missing_packages SECTION...
    awk -v sections=" $* " '/^\[/ { wanted = index(sections, " " substr($1, 2, length($1) - 2) " "); next }
                            wanted && /^[^#]/' packages.txt | while read -r package; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || echo "$package"
    done
}

install_packages() { # install_packages SECTION...: of packages.txt
    local missing as_root=
    missing=$(missing_packages "$@")
    [ -z "$missing" ] && return
    say "Installing packages:" $missing
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || {
            echo "These packages are missing, and there is no sudo to install them:" $missing >&2
            return 1
        }
        as_root=sudo
    fi
    $as_root apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null
}

# build TARGET...: configures where needed and builds, quietly unless something is wrong. Tests need packages that only
# ./test installs, so a folder has them from the first ./test on.
build() {
    say "Building (the first time takes a few minutes)"
    if [ "${tests:-}" ]; then
        grep -qs QUORRIN_TESTS:BOOL=ON build/CMakeCache.txt || cmake --preset release -DQUORRIN_TESTS=ON >/dev/null
    else
        [ -f build/build.ninja ] || cmake --preset release -DQUORRIN_TESTS=OFF >/dev/null
    fi
    cmake --build build --target "$@" -- --quiet
}
