# Shared by run, test and .ci/run: installs missing packages and builds a preset. Sourced, not run.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root" || exit 1

say() { printf '· %s\n' "$*" >&2; }
fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# The packages of the named groups, as "package probe" lines.
packages_of() {
    local group
    for group in "$@"; do
        awk -v group="$group" '$1 == group { print $2, $3 }' tools/packages.txt
    done
}

# Whether a probe of tools/packages.txt finds what it looks for.
probe() {
    local what=${1#*:}
    case $1 in
    command:*) command -v "$what" ;;
    header:*) ls /usr/include/"$what" || ls /usr/local/include/"$what" ;;
    module:*) pkg-config --exists "$what" ;;
    file:*) test -e "$what" ;;
    esac >/dev/null 2>&1
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "Root rights are needed to run '$*', and sudo is not here. Run it as root, then call this again."
    fi
}

# Names of packages that dpkg does not have fully installed.
missing_debian_packages() {
    local wanted
    mapfile -t wanted < <(packages_of "$@" | cut -d' ' -f1)
    comm -23 <(printf '%s\n' "${wanted[@]}" | sort -u) \
        <(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null |
            sed -n 's/^installed //p' | sort -u)
}

# Installs what is missing of the named groups; elsewhere than on Debian's relatives it says what is missing and stops.
install_packages() {
    local missing=() package test
    if command -v dpkg-query >/dev/null && command -v apt-get >/dev/null; then
        mapfile -t missing < <(missing_debian_packages "$@")
        [ ${#missing[@]} -gt 0 ] || return 0
        say "Installing ${missing[*]}"
        as_root apt-get update -qq || fail "The package lists could not be updated."
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
            "${missing[@]}" >&2 || fail "Some packages could not be installed: ${missing[*]}"
        return 0
    fi
    while read -r package test; do
        probe "$test" || missing+=("$package")
    done < <(packages_of "$@")
    [ ${#missing[@]} -eq 0 ] ||
        fail "Please install these first (Debian's names; yours may differ): ${missing[*]}"
}

# Configures a preset when it is not, then builds it. One call at a time a preset; quiet when there is nothing to do.
build_preset() {
    local preset=$1 folder=build/$1
    mkdir -p "$folder"
    exec 9>"$folder/.lock"
    flock 9
    if [ ! -e "$folder/.configured" ] || [ ! -e "$folder/build.ninja" ]; then
        say "Configuring the $preset build"
        rm -f "$folder/.configured"
        cmake --preset "$preset" --fresh >"$folder/configure.log" 2>&1 9>&- ||
            { cat "$folder/configure.log" >&2; fail "The $preset build could not be configured."; }
        touch "$folder/.configured"
    fi
    if ! ninja -C "$folder" -n 2>/dev/null | grep -q 'no work to do'; then
        say "Building $preset"
        cmake --build --preset "$preset" >&2 9>&- || fail "The $preset build failed."
    fi
    exec 9>&-
}
