# Where everything goes when it is installed: `cmake --install`, in components, each of which is one package.
#   panel        the panel's bundle with the helper, the programs, what the desktop needs to know of them
#   kde          the module for System Settings, and the panel's plug-in for its version of Qt
#   service      the system service that drives mice, and what the system has to know of it
#   development  the model for programs at the device's end: libraries, headers, CMake package, pkg-config file

set(QUORVI_INSTALL_HELPER "${QUORVI_INSTALL_BUNDLE}/Contents/Resources/KyvarQuorviHelper.app/Contents/Linux")
set(QUORVI_INSTALL_INCLUDE "${CMAKE_INSTALL_INCLUDEDIR}/kyvar-quorvi")
set(QUORVI_INSTALL_CMAKE "${CMAKE_INSTALL_LIBDIR}/cmake/KyvarQuorvi")

install(TARGETS quorvi-settings quorvictl RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT panel)
install(TARGETS KyvarQuorvi
    LIBRARY DESTINATION "${QUORVI_INSTALL_BUNDLE}/Contents/Linux" COMPONENT panel)
install(TARGETS KyvarQuorviHelper RUNTIME DESTINATION "${QUORVI_INSTALL_HELPER}" COMPONENT panel)
# The rest of the bundle as it was put together in the build folder.
install(DIRECTORY "${QUORVI_BUNDLE_DIR}/" DESTINATION "${QUORVI_INSTALL_BUNDLE}" COMPONENT panel
    PATTERN Linux EXCLUDE)

# The bus starts the helper for whoever calls it by its name, and has systemd do it where that runs the session. Where
# that is, is not known before it is installed.
install(CODE "set(QUORVI_SOURCE \"${PROJECT_SOURCE_DIR}/src/resources/desktop\")
    set(QUORVI_INSTALL_HELPER \"${QUORVI_INSTALL_HELPER}\")
    set(QUORVI_INSTALL_DATA \"${CMAKE_INSTALL_DATADIR}\")" COMPONENT panel)
install(SCRIPT "${PROJECT_SOURCE_DIR}/cmake/InstallHelperServices.cmake" COMPONENT panel)

install(FILES "${PROJECT_SOURCE_DIR}/packaging/completions/quorvictl.bash" RENAME quorvictl
    DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT panel)
install(FILES "${PROJECT_SOURCE_DIR}/packaging/completions/quorvictl.fish"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d" COMPONENT panel)
# Debian's zsh looks for what packages bring in a folder of its own.
install(CODE "set(folder site-functions)
    if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\" AND EXISTS /etc/debian_version)
        set(folder vendor-completions)
    endif()
    file(INSTALL \"${PROJECT_SOURCE_DIR}/packaging/completions/quorvictl.zsh\" RENAME _quorvictl
        DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/zsh/\${folder}\")" COMPONENT panel)

# Manual pages are installed packed, as every system reads them.
foreach(page quorvictl.1 quorvi-settings.1 quorvi-inputd.8)
    set(packed "${PROJECT_BINARY_DIR}/man/${page}.gz")
    add_custom_command(OUTPUT "${packed}"
        COMMAND ${CMAKE_COMMAND} -E make_directory "${PROJECT_BINARY_DIR}/man"
        COMMAND gzip -9nc "${PROJECT_SOURCE_DIR}/docs/man/${page}" > "${packed}"
        DEPENDS "${PROJECT_SOURCE_DIR}/docs/man/${page}" VERBATIM)
    list(APPEND packed_pages "${packed}")
endforeach()
add_custom_target(manual-pages ALL DEPENDS ${packed_pages})
install(FILES "${PROJECT_BINARY_DIR}/man/quorvictl.1.gz" "${PROJECT_BINARY_DIR}/man/quorvi-settings.1.gz"
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT panel)
install(FILES "${PROJECT_BINARY_DIR}/man/quorvi-inputd.8.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man8" COMPONENT service)

# The system service. Where its program is, is not known before it is installed, as with the helper.
set(QUORVI_INPUTD_FILES "${PROJECT_SOURCE_DIR}/src/inputd/system")
install(TARGETS quorvi-inputd RUNTIME DESTINATION "${CMAKE_INSTALL_LIBEXECDIR}" COMPONENT service)
install(FILES "${QUORVI_INPUTD_FILES}/60-kyvar-quorvi-inputd.rules" DESTINATION lib/udev/rules.d COMPONENT service)
install(FILES "${QUORVI_INPUTD_FILES}/kyvar-quorvi-inputd.modules.conf" RENAME kyvar-quorvi-inputd.conf
    DESTINATION lib/modules-load.d COMPONENT service)
install(FILES "${QUORVI_INPUTD_FILES}/kyvar-quorvi-inputd.sysusers.conf" RENAME kyvar-quorvi-inputd.conf
    DESTINATION lib/sysusers.d COMPONENT service)
install(FILES "${QUORVI_INPUTD_FILES}/com.kyvar.Inputd1.conf"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/dbus-1/system.d" COMPONENT service)
install(FILES "${QUORVI_INPUTD_FILES}/com.kyvar.Inputd1.service"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/dbus-1/system-services" COMPONENT service)
install(FILES "${QUORVI_INPUTD_FILES}/com.kyvar.inputd.policy"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/polkit-1/actions" COMPONENT service)
install(FILES "${PROJECT_SOURCE_DIR}/src/inputd/bus/com.kyvar.Inputd1.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/dbus-1/interfaces" COMPONENT service)
install(CODE "set(QUORVI_INPUTD \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBEXECDIR}/quorvi-inputd\")
    set(unit \"\${CMAKE_INSTALL_PREFIX}/lib/systemd/system/quorvi-inputd.service\")
    configure_file(\"${QUORVI_INPUTD_FILES}/quorvi-inputd.service.in\" \"\$ENV{DESTDIR}\${unit}\" @ONLY)
    list(APPEND CMAKE_INSTALL_MANIFEST_FILES \"\${unit}\")" COMPONENT service)

# The libraries that know nothing of windows, for drivers and helpers of the device.
set(QUORVI_LIBRARIES base plist model keyboard)

# Their headers for other programs: docs/HEADERS.md lists them, a folder in each row of the section's table.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/docs/HEADERS.md")
file(READ "${PROJECT_SOURCE_DIR}/docs/HEADERS.md" listed)
string(REGEX REPLACE ".*\n## For other programs\n" "" listed "${listed}")
string(REGEX REPLACE "\n## .*" "" listed "${listed}")
function(quorvi_public_headers folder result)
    string(REGEX MATCH "\n\\| `src/${folder}` [^\n]*" row "${listed}")
    string(REGEX MATCHALL "`[A-Za-z]+`" names "${row}")
    list(TRANSFORM names REPLACE "`(.*)`" "${PROJECT_SOURCE_DIR}/src/${folder}/\\1.h")
    if(NOT names)
        message(FATAL_ERROR "docs/HEADERS.md lists no headers of src/${folder} for other programs")
    endif()
    set(${result} "${names}" PARENT_SCOPE)
endfunction()

foreach(library IN LISTS QUORVI_LIBRARIES)
    set_target_properties(quorvi-${library} PROPERTIES EXPORT_NAME ${library})
    target_include_directories(quorvi-${library} PUBLIC "$<INSTALL_INTERFACE:${QUORVI_INSTALL_INCLUDE}>")
    target_compile_features(quorvi-${library} PUBLIC cxx_std_20)
    install(TARGETS quorvi-${library} EXPORT KyvarQuorviTargets
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
    quorvi_public_headers(${library} headers)
    install(FILES ${headers} DESTINATION "${QUORVI_INSTALL_INCLUDE}/${library}" COMPONENT development)
endforeach()
install(EXPORT KyvarQuorviTargets NAMESPACE KyvarQuorvi::
    DESTINATION "${QUORVI_INSTALL_CMAKE}" COMPONENT development)

include(CMakePackageConfigHelpers)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/KyvarQuorviConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/KyvarQuorviConfig.cmake" INSTALL_DESTINATION "${QUORVI_INSTALL_CMAKE}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KyvarQuorviConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/KyvarQuorviConfig.cmake" "${PROJECT_BINARY_DIR}/KyvarQuorviConfigVersion.cmake"
    DESTINATION "${QUORVI_INSTALL_CMAKE}" COMPONENT development)
configure_file("${PROJECT_SOURCE_DIR}/cmake/kyvar-quorvi.pc.in" "${PROJECT_BINARY_DIR}/kyvar-quorvi.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/kyvar-quorvi.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
