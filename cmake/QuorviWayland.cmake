# What wayland-scanner writes of a protocol for its clients, in C, as a static library.
enable_language(C)

function(quorvi_wayland_protocol library file)
    pkg_get_variable(WAYLAND_SCANNER wayland-scanner wayland_scanner)
    get_filename_component(protocol "${file}" NAME_WE)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/wayland")
    file(MAKE_DIRECTORY "${folder}")
    set(header "${folder}/${protocol}-client-protocol.h")
    set(code "${folder}/${protocol}-protocol.c")
    add_custom_command(
        OUTPUT "${header}" "${code}"
        COMMAND "${WAYLAND_SCANNER}" client-header "${file}" "${header}"
        COMMAND "${WAYLAND_SCANNER}" private-code "${file}" "${code}"
        DEPENDS "${file}"
        VERBATIM)
    add_library(${library} STATIC "${code}" "${header}")
    target_include_directories(${library} SYSTEM PUBLIC "${folder}")
    target_link_libraries(${library} PUBLIC PkgConfig::WAYLAND_CLIENT)
endfunction()
