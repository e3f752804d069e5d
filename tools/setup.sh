# shellcheck shell=bash disable=SC2034
# Shared by all scripts of the project, which source it from the project's folder: lists of packages, and functions that
# install them and build. Sourcing it sets a UTF-8 locale if there is none, and enters the checkout under a plain name if
# its path has marks that the build tools cannot take.

# The build and the program need these. "a|b" is one package under two names: the first that exists is taken.
required_packages=(
    g++ cmake ninja-build ccache
    qt6-base-dev "qt6-svg-dev|libqt6svg6-dev"
    libsqlitecpp-dev libsqlite3-dev sqlite3 libjpeg-dev libturbojpeg0-dev liblcms2-dev libexiv2-dev libssl-dev
    libheif-dev libtiff-dev libwebp-dev libpng-dev zlib1g-dev
    "mdbtools-dev|libmdb-dev" libglib2.0-dev "pkg-config|pkgconf"
    fonts-noto-cjk
    xvfb xauth
)
# These make the program nicer: Chinese texts in the toolkit's own dialogs, and windows on systems without an X server.
optional_packages=(qt6-translations-l10n qt6-wayland)
# The tests check the desktop's files with these.
test_packages=(desktop-file-utils appstream)
# The checks of .ci/run need these too. Layout, findings and warnings differ between versions, so the version is fixed.
check_packages=(clang-format-14 clang-tidy-14 clang-14 libclang-rt-14-dev llvm-14 shellcheck git)
# ./bench.sh measures the album beside these.
bench_packages=(libheif-examples libjpeg-turbo-progs)
# The fuzz targets are built with these: the fuzzer and its sanitizers come with this compiler.
fuzz_packages=(clang-14 libclang-rt-14-dev llvm-14)

say_step() {
    printf '==> %s\n' "$*"
}

stop_with() {
    printf '%s\n' "$*" >&2
    exit 1
}

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# Whether any of the names "a|b" is installed.
has_package() {
    local name
    for name in ${1//|/ }; do
        if is_installed "$name"; then return 0; fi
    done
    return 1
}

# The first of the names "a|b" that can be installed on this system.
available_name() {
    local name
    for name in ${1//|/ }; do
        case "$(LC_ALL=C apt-cache policy "$name" 2>/dev/null)" in
            *"Candidate: (none)"* | "") ;;
            *) printf '%s\n' "$name" && return 0 ;;
        esac
    done
    return 1
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        env DEBIAN_FRONTEND=noninteractive "$@"
    elif command -v sudo >/dev/null && { sudo -n true 2>/dev/null || [ -t 0 ]; }; then
        sudo env DEBIAN_FRONTEND=noninteractive "$@"
    else
        stop_with "Packages are missing and this user may not install them. Run once as root: $*"
    fi
}

# install_packages REQUIRED...: installs the missing ones, and then tries the optional packages too. Does nothing when all
# required packages are there.
install_packages() {
    local package name missing=() names=()
    for package in "$@"; do
        has_package "$package" || missing+=("$package")
    done
    if [ "${#missing[@]}" -eq 0 ]; then return 0; fi
    command -v apt-get >/dev/null || stop_with "This machine has no apt-get. Please install: ${missing[*]}"

    say_step "Installing: ${missing[*]}"
    as_root apt-get update -q || say_step "The package lists could not be refreshed; going on with those at hand."
    for package in "${missing[@]}"; do
        name=$(available_name "$package") || stop_with "No package $package is to be had from this machine's package sources."
        names+=("$name")
    done
    as_root apt-get install -q -y --no-install-recommends "${names[@]}" || stop_with "apt-get could not install: ${names[*]}"

    for package in "${optional_packages[@]}"; do
        if has_package "$package"; then continue; fi
        if name=$(available_name "$package"); then
            say_step "Installing, for comfort: $name"
            as_root apt-get install -q -y --no-install-recommends "$name" || say_step "Going on without $name."
        fi
    done
}

# build_preset PRESET TARGET...: configures once (and again when the project has moved), then builds what has changed.
build_preset() {
    local preset=$1
    shift
    if [ ! -f "build/$preset/build.ninja" ] ||
        ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "build/$preset/CMakeCache.txt"; then
        say_step "Configuring build/$preset"
        cmake --fresh --preset "$preset"
    fi
    say_step "Building build/$preset"
    cmake --build "build/$preset" --target "$@"
}

# The toolkit wants a UTF-8 locale for Chinese file names.
case "$(locale charmap 2>/dev/null)" in
    UTF-8) ;;
    *) export LC_ALL=C.UTF-8 ;;
esac

# The build tools cannot take quotes and the like in the path of a checkout. Then they get a link to the folder with a
# plain name. It is the same each time, because a build folder remembers its path.
case "$PWD" in
    *[\'\"\\\$\`\;\&\|\<\>\(\)\{\}\*\?\[\]\!\#\~%^]*)
        plain_name="/var/tmp/lunq-$(id -u)-$(printf '%s' "$PWD" | cksum | cut -d ' ' -f 1)"
        ln -sfn -- "$PWD" "$plain_name"
        [ "$(stat -c %u -- "$plain_name")" = "$(id -u)" ] || stop_with "$plain_name belongs to somebody else."
        cd -- "$plain_name" || stop_with "$plain_name cannot be entered."
        ;;
esac
