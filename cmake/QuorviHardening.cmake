# What makes a fault in memory the end of a program instead of a way into it. It is said for all targets at once, so
# that none is left out; tests/install reads it back from the programs.

include(CheckCXXCompilerFlag)
include(CheckPIESupported)

# Without this CMake compiles position independent code and leaves it to the compiler's own default how it is linked.
check_pie_supported(LANGUAGES CXX)

add_compile_options(-fstack-protector-strong)
# Each of these is for some processors alone: where a function may be entered, and where it may return to.
foreach(protection fcf-protection mbranch-protection=standard)
    string(MAKE_C_IDENTIFIER "QUORVI_HAS_${protection}" known)
    check_cxx_compiler_flag("-${protection}" ${known})
    if(${known})
        add_compile_options("-${protection}")
    endif()
endforeach()
# The sanitizers look at the same calls themselves and know more of them. Without optimisation it does nothing but warn.
# Distributions define it as well, sometimes to another level.
if(NOT QUORVI_SANITIZE AND NOT QUORVI_FUZZ)
    add_compile_options("$<$<NOT:$<CONFIG:Debug>>:SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3>")
endif()
add_link_options(-Wl,-z,relro -Wl,-z,now)
