# Installs the Debian packages that building and testing need, skipping those already there.
# Sourced by the other scripts.

Need_Packages() {
  local missing=()
  local package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  local sudo=()
  if [ "$(id -u)" -ne 0 ]; then
    if command -v sudo >/dev/null 2>&1; then sudo=(sudo); else
      echo "These packages are missing and this is not root: ${missing[*]}" >&2
      return 1
    fi
  fi
  "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
  "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# What the editor needs to build and run.
BUILD_PACKAGES=(g++ cmake ninja-build pkg-config qt6-base-dev qt6-qpa-plugins libgl-dev fonts-liberation2)
# What the tests need besides.
TEST_PACKAGES=(libgtest-dev libgmock-dev libbenchmark-dev desktop-file-utils shared-mime-info appstream groff-base clang libclang-rt-14-dev xvfb openbox)
# What the Windows programs need to be cross-built and packed (scripts/windows).
WINDOWS_BUILD_PACKAGES=(cmake ninja-build g++-mingw-w64-x86-64-posix zip)
# What their tests need besides: GoogleTest's sources, built with the cross compiler; wine, which
# runs them, with its own fonts and the X libraries its display driver loads (recommended only,
# so named here); an X server with a window manager for the windows, and xauth for xvfb-run.
WINDOWS_TEST_PACKAGES=(googletest wine64 wine fonts-wine libxrender1 libxrandr2 libxi6 libxcursor1 libxfixes3
  libxinerama1 libxcomposite1 libxxf86vm1 xvfb xauth openbox)
# What scripts/package needs besides those of the builds: dpkg-dev for the Debian package (build
# flags, dependencies, control file, strip), nsis for the Windows installer.
PACKAGE_PACKAGES=(dpkg-dev nsis)
# What the checks of the packages need (tests/package): lintian; the packages whose triggers
# refresh the desktop's caches when ours is installed and removed; an X server for the editor.
PACKAGE_TEST_PACKAGES=(lintian shared-mime-info desktop-file-utils hicolor-icon-theme gtk-update-icon-cache xvfb xauth)
