# Debian packages: `cpack --config build/CPackConfig.cmake -B FOLDER`.
#   kyvar-quorvi        the panel and what the desktop knows of it
#   kyvar-quorvi-inputd the system service that drives mice
#   kyvar-quorvi-dev    the model for programs at the device's end
# A build with the other version of Qt makes the one package that differs:
#   kyvar-quorvi-kde    the module for System Settings

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kyvar-quorvi)
set(CPACK_PACKAGE_VENDOR "The Kyvar Quorvi developers")
set(CPACK_PACKAGE_CONTACT "The Kyvar Quorvi developers <developers@kyvar.com>")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://www.kyvar.com/quorvi/support")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL panel desktop development service)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENT_PANEL_GROUP panel)
set(CPACK_COMPONENT_DESKTOP_GROUP panel)
set(CPACK_COMPONENT_DEVELOPMENT_GROUP development)
set(CPACK_COMPONENT_SERVICE_GROUP service)
set(CPACK_COMPONENT_KDE_GROUP kde)
if(TARGET kcm_kyvar_quorvi)
    list(APPEND CPACK_COMPONENTS_ALL kde)
    if(QUORVI_QT EQUAL 5)
        set(CPACK_COMPONENTS_ALL kde)
    endif()
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PANEL_PACKAGE_NAME kyvar-quorvi)
set(CPACK_DEBIAN_PANEL_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PANEL_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PANEL_PACKAGE_DEPENDS "default-dbus-session-bus | dbus-session-bus, shared-mime-info")
set(CPACK_DEBIAN_PANEL_DESCRIPTION "\
Configures a nine-button mouse: button functions, macros, sensitivity stages,
acceleration, polling rate, lights, and up to five profiles, which can follow
the application in front.

Also included: the helper that drives the mouse, a small settings application
that shows the panel, and the command-line tool quorvictl.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME kyvar-quorvi-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS libplist-dev)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "\
Library to read and write Kyvar Quorvi settings files and convert them to and
from the mouse's record, for writing helpers and drivers.

This package holds static libraries, headers, a CMake package and a
pkg-config file.")
set(CPACK_DEBIAN_PANEL_PACKAGE_SUGGESTS kyvar-quorvi-inputd)
set(CPACK_DEBIAN_SERVICE_PACKAGE_NAME kyvar-quorvi-inputd)
set(CPACK_DEBIAN_SERVICE_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_SERVICE_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_SERVICE_PACKAGE_DEPENDS
    "default-dbus-system-bus | dbus-system-bus, kmod, polkitd, systemd, udev")
set(CPACK_DEBIAN_SERVICE_PACKAGE_CONTROL_EXTRA
    "${PROJECT_SOURCE_DIR}/packaging/inputd/postinst;${PROJECT_SOURCE_DIR}/packaging/inputd/prerm;${PROJECT_SOURCE_DIR}/packaging/inputd/postrm")
set(CPACK_DEBIAN_SERVICE_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_SERVICE_DESCRIPTION "\
Makes any mouse with buttons follow the settings of the Kyvar Quorvi panel.

This package contains a small system service, which takes control of the mice
that the user at the machine chooses, and types and moves in their place.")
set(CPACK_DEBIAN_KDE_PACKAGE_NAME kyvar-quorvi-kde)
set(CPACK_DEBIAN_KDE_PACKAGE_SECTION kde)
set(CPACK_DEBIAN_KDE_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_KDE_PACKAGE_DEPENDS "kyvar-quorvi (= ${PROJECT_VERSION}-1), systemsettings")
set(CPACK_DEBIAN_KDE_DESCRIPTION "\
Adds the Kyvar Quorvi panel to System Settings, under Input Devices.

It uses the same settings as the package kyvar-quorvi.")

# What a Debian package says of itself beside its control file.
function(quorvi_package_documents package component)
    set(folder "${PROJECT_BINARY_DIR}/packaging/${package}")
    file(MAKE_DIRECTORY "${folder}")
    configure_file("${PROJECT_SOURCE_DIR}/packaging/copyright.in" "${folder}/copyright" @ONLY)
    configure_file("${PROJECT_SOURCE_DIR}/packaging/changelog.in" "${folder}/changelog" @ONLY)
    add_custom_command(OUTPUT "${folder}/changelog.Debian.gz"
        COMMAND gzip -9nc "${folder}/changelog" > "${folder}/changelog.Debian.gz"
        DEPENDS "${folder}/changelog")
    add_custom_target(${package}-documents ALL DEPENDS "${folder}/changelog.Debian.gz")
    install(FILES "${folder}/copyright" "${folder}/changelog.Debian.gz"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component})
endfunction()
quorvi_package_documents(kyvar-quorvi panel)
quorvi_package_documents(kyvar-quorvi-dev development)
quorvi_package_documents(kyvar-quorvi-inputd service)
if(TARGET kcm_kyvar_quorvi)
    quorvi_package_documents(kyvar-quorvi-kde kde)
endif()

include(CPack)
cpack_add_component_group(panel)
cpack_add_component_group(development)
cpack_add_component_group(service)
cpack_add_component_group(kde)
