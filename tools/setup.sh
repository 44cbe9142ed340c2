# Sourced by ./run and ./test: brings a bare Debian 12 to a configured build folder. Not a command of its own.

say() { printf '== %s\n' "$*"; }

missing_packages() {
    sed 's/#.*//' packages.txt | tr -s ' \t' '\n' | sed '/^$/d' | while read -r package; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || echo "$package"
    done
}

install_packages() {
    local missing as_root=
    missing=$(missing_packages)
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

# build TARGET...: configures where needed and builds, quietly unless something is wrong.
build() {
    say "Building (the first time takes a few minutes)"
    [ -f build/build.ninja ] || cmake --preset release >/dev/null
    cmake --build build --target "$@" -- --quiet
}
