# What can be chosen. The three parts that need a package of their own are AUTO: built where the package is
# found, skipped with a message where it is not. ON makes the package a must, OFF leaves the part out.

option(UOM_WARNINGS_AS_ERRORS "Compile with -Werror" ON)
option(BUILD_TESTING "Build the tests and the examples" ON)
option(UOM_FUZZ "Build the fuzzers of typed texts; needs Clang" OFF)
set(UOM_SANITIZE "" CACHE STRING "Sanitizers to build with, e.g. address,undefined")

foreach(part TOOL TESTS BENCH)
    set(UOM_${part} AUTO CACHE STRING "AUTO, ON or OFF")
    set_property(CACHE UOM_${part} PROPERTY STRINGS AUTO ON OFF)
endforeach()

# Finds the package that a part needs, as the part's option says, and sets `result` to whether to build the part.
macro(uom_find_for part package debian result)
    set(${result} OFF)
    if(UOM_${part} STREQUAL "AUTO")
        find_package(${package} QUIET)
        if(NOT ${package}_FOUND)
            message(STATUS "UOM_${part}: skipped, ${package} not found (Debian: apt-get install ${debian})")
        endif()
        set(${result} ${${package}_FOUND})
    elseif(UOM_${part})
        find_package(${package} QUIET)
        if(NOT ${package}_FOUND)
            message(FATAL_ERROR "UOM_${part} is ON, but ${package} is not found (Debian: apt-get install ${debian})")
        endif()
        set(${result} ON)
    endif()
endmacro()
