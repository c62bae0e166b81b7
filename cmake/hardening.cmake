# What makes a fault in the code harder to exploit, for all that is shipped. Each as far as the compiler knows it;
# scripts/check-hardening tells whether the files built have it.

include(CheckCompilerFlag)
include(CheckLinkerFlag)

add_library(uom_hardening INTERFACE)
if(MSVC)
    target_compile_options(uom_hardening INTERFACE /guard:cf)
    return()
endif()

check_compiler_flag(CXX -fstack-protector-strong UOM_HAVE_STACK_PROTECTOR)
if(UOM_HAVE_STACK_PROTECTOR)
    target_compile_options(uom_hardening INTERFACE -fstack-protector-strong)
endif()

# The bounds that it checks are known to an optimising compiler alone. Undefined first: some compilers define it
# by themselves, with another value.
target_compile_options(uom_hardening INTERFACE
    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE$<SEMICOLON>-D_FORTIFY_SOURCE=2>)

foreach(keyword relro now noexecstack)
    check_linker_flag(CXX LINKER:-z,${keyword} UOM_HAVE_LINKER_${keyword})
    if(UOM_HAVE_LINKER_${keyword})
        target_link_options(uom_hardening INTERFACE LINKER:-z,${keyword})
    endif()
endforeach()

# With MinGW the checks stand in a library of the compiler's, which it links when it hears of the protector.
if(MINGW AND UOM_HAVE_STACK_PROTECTOR)
    target_link_options(uom_hardening INTERFACE -fstack-protector-strong)
endif()

# Programs whose POSITION_INDEPENDENT_CODE is on are then linked as such, too.
include(CheckPIESupported)
check_pie_supported()
