# The Debian packages that the project needs, by purpose. Sourced by scripts/setup.

packages_build=(
    cmake ninja-build g++ pkg-config
    qt6-base-dev qt6-base-private-dev
    libplist-dev libsystemd-dev libevdev-dev libxkbcommon-dev libxkbcommon-x11-dev libxcb1-dev libxcb-xkb-dev libwayland-dev libwayland-bin wayland-protocols
    libfontconfig-dev
    dbus dbus-daemon
)
packages_display=(xvfb openbox xdotool imagemagick x11-utils x11-xkb-utils fonts-dejavu-core)
# The fonts in which the window must fit its screen; tests use no others (tests/support/fonts.conf).
packages_fonts=(fonts-cantarell fonts-dejavu-core fonts-noto-cjk fonts-noto-core)
packages_test=(
    libgtest-dev libbenchmark-dev mold
    "${packages_display[@]}"
    "${packages_fonts[@]}"
    desktop-file-utils libglib2.0-bin libglib2.0-dev libxml2-utils locales procps python3-minimal
    shared-mime-info strace xkb-data
    fish zsh
    appstream at-spi2-core dpkg-dev lintian man-db systemd
    sway weston wtype qt6-wayland adwaita-qt6
)
packages_qt5=(qtbase5-dev qtbase5-private-dev qtwayland5 adwaita-qt)
# What a user of Plasma has around the module: its style and its colours.
packages_kde_pictures=(kde-style-breeze plasma-integration breeze-icon-theme)
# The module for System Settings: to build it, and to try it in its hosts. The preset is of their version of Qt, which
# was 5 up to Debian 12.
packages_kde_test=(kde-cli-tools systemsettings)
if [[ $(cat /etc/debian_version 2>/dev/null) == 12.* ]]; then
    kde_preset=qt5
    packages_kde=(libkf5coreaddons-dev libkf5configwidgets-dev)
    packages_qt5+=(kde-style-breeze) # for Qt 6 since Debian 13
else
    kde_preset=default
    packages_kde=(libkf6coreaddons-dev libkf6kcmutils-dev)
    packages_kde_test+=(kwin-wayland plasma-wayland-protocols)
    packages_kde_pictures+=(qml6-module-org-kde-desktop qt6-svg-plugins) # Plasma 5 comes with them
    packages_test+=(labwc) # not in Debian before 13
    packages_test+=(kde-style-breeze)
    packages_qt5+=(kde-style-breeze-qt5)
fi
# A machine of its own for the service that drives mice. What runs in it is fetched by tests/vm/image, and not installed.
packages_vm=(qemu-system-x86)
packages_check=(clang-format clang-tidy)
# To try the package on a system made for it, and what that system has beside what every Debian has.
packages_try_package=(mmdebstrap)
packages_clean_system=(dbus-daemon fonts-dejavu-core imagemagick openbox procps rofi x11-utils xdotool xvfb)
# To run commands on another release of Debian (scripts/on-debian), and a cache of the compiler's for it.
packages_on_debian=(debootstrap)
packages_ccache=(ccache)
packages_gallery=(adwaita-qt6 fonts-noto-cjk)
# What scripts/help-pictures needs beside a display: fonts for Japanese and Chinese, a reader of the string tables.
packages_help_pictures=(fonts-noto-cjk libxml2-utils)
# The fuzzer and the sanitizers come with the compiler; their runtime is a package of its own.
packages_fuzz=(clang libclang-rt-dev)
# Settings programs for mice, whose start bench/run --peers sets beside the panel's.
packages_bench_peers=(lxinput xfce4-settings piper)
# Programs that stand between a mouse and the desktop, which bench/vm/run --peers sets beside the service for real mice. They
# are unpacked for a virtual machine (bench/vm/with-packages), and never installed; keyd is in Debian 13 only.
packages_vm_peers=(interception-tools input-remapper-daemon)
packages_vm_newer_peers=(keyd)
# An X server that reads input devices, for bench/vm/xorg; unpacked like them.
packages_vm_xorg=(dash xserver-xorg-core xserver-xorg-video-dummy xserver-xorg-input-libinput x11-xkb-utils xkb-data)
