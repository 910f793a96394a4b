# What every target of the project is built with, said once.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(QUORVI_BUNDLE_DIR "${CMAKE_BINARY_DIR}/KyvarQuorvi.prefPane")
# A bundle is a folder of its own kind, which only its hosts open: it is neither in a library path nor for others.
set(QUORVI_INSTALL_BUNDLE "lib/kyvar-quorvi/KyvarQuorvi.prefPane")

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

include(QuorviHardening)

add_library(quorvi-options INTERFACE)
target_compile_options(quorvi-options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    -Wcast-qual -Wformat=2)
if(QUORVI_WERROR)
    # Another compiler warns of other things; whoever only wants to use the panel is not to be kept from it.
    target_compile_options(quorvi-options INTERFACE -Werror)
endif()
target_include_directories(quorvi-options INTERFACE "${PROJECT_SOURCE_DIR}/src")

# For what runs with each report of a mouse. Position independent code leaves every function to be replaced by another
# library's, so that none is put into its caller; nobody replaces ours.
add_library(quorvi-hot-path INTERFACE)
target_compile_options(quorvi-hot-path INTERFACE -fno-semantic-interposition)

if(CMAKE_UNITY_BUILD)
    # In a file of several sources no class of a source's own is of the main file.
    target_compile_options(quorvi-options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()

if(QUORVI_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(QUORVI_FUZZ)
    # The fuzzer's main function is linked to the targets alone. Dictionaries say what comparisons would, in half
    # the time.
    add_compile_options(-fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

# A library of the project: static, position independent, so that the plug-in, the programs and the
# tests all link the one build of it.
function(quorvi_library name)
    add_library(${name} STATIC ${ARGN})
    # Only while it is built: how we compile is nobody's business who links an installed library.
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:quorvi-options>)
    target_include_directories(${name} PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>")
endfunction()

function(quorvi_program name)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE quorvi-options)
endfunction()
