# Run while the panel is installed: writes the files that the bus and systemd start the helper by. They lie in folders of
# the same parent, so that systemd finds the one wherever the bus finds the other. Each is written at its place, since two
# installations at once may share the build folder.

set(helper "${CMAKE_INSTALL_PREFIX}/${QUORVI_INSTALL_HELPER}/KyvarQuorviHelper")

# The bus reads a command line of the shell's kind. There is no backslash in it: CMake installs to no such place.
string(REPLACE "'" "'\"'\"'" quoted "${helper}")
set(QUORVI_HELPER_FOR_THE_BUS "'${quoted}'")

# systemd puts something in place of what follows a percent sign, and starts no program with a quote in its path.
string(REPLACE "%" "%%" quoted "${helper}")
set(QUORVI_HELPER_FOR_SYSTEMD "\"${quoted}\"")

foreach(file dbus-1/services/com.kyvar.KyvarQuorviHelper.service systemd/user/kyvar-quorvi-helper.service)
    cmake_path(GET file FILENAME name)
    set(installed "${CMAKE_INSTALL_PREFIX}/${QUORVI_INSTALL_DATA}/${file}")
    configure_file("${QUORVI_SOURCE}/${name}.in" "$ENV{DESTDIR}${installed}" @ONLY)
    list(APPEND CMAKE_INSTALL_MANIFEST_FILES "${installed}")
endforeach()
