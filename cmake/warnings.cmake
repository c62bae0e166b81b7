# One set of warnings for all that is compiled here, C and C++.

add_library(uom_warnings INTERFACE)
if(MSVC)
    target_compile_options(uom_warnings INTERFACE /W4 $<$<BOOL:${UOM_WARNINGS_AS_ERRORS}>:/WX>)
    return()
endif()
target_compile_options(uom_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<BOOL:${UOM_WARNINGS_AS_ERRORS}>:-Werror>)

# Clang's say of names that belong to the compiler, which takes no time; clang-tidy's takes a sixth of its checks.
include(CheckCompilerFlag)
check_compiler_flag(CXX -Wreserved-identifier UOM_HAVE_RESERVED_IDENTIFIER)
if(UOM_HAVE_RESERVED_IDENTIFIER)
    target_compile_options(uom_warnings INTERFACE -Wreserved-identifier)
endif()
