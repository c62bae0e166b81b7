# What can be chosen. The three parts that need a package of their own are AUTO: built where the package is
# found, skipped with a message where it is not. ON makes the package a must, OFF leaves the part out.
# A project around this one gets the library alone, and what it asks for.

option(UOM_WARNINGS_AS_ERRORS "Compile with -Werror" ${PROJECT_IS_TOP_LEVEL})
option(UOM_INSTALL "Make the rules of installation, and those of packages" ${PROJECT_IS_TOP_LEVEL})
option(UOM_FUZZ "Build the fuzzers of typed texts; needs Clang" OFF)
option(UOM_DEBIAN "Lay the installed tree out as Debian does, and make its packages by CPack" OFF)
set(UOM_PACKAGE_CONTACT "The uom maintainers <maintainers@uom.example.org>" CACHE STRING
    "Who answers for the packages: name and mail address")
set(UOM_SANITIZE "" CACHE STRING "Sanitizers to build with, e.g. address,undefined")

if(PROJECT_IS_TOP_LEVEL)
    set(part_default AUTO)
else()
    set(part_default OFF)
endif()
foreach(part TOOL TESTS BENCH)
    set(UOM_${part} ${part_default} CACHE STRING "AUTO, ON or OFF")
    set_property(CACHE UOM_${part} PROPERTY STRINGS AUTO ON OFF)
endforeach()

# The tests and the examples. BUILD_TESTING is of the whole project, and so says nothing within another one.
if(PROJECT_IS_TOP_LEVEL)
    option(BUILD_TESTING "Build the tests and the examples" ON)
    set(build_testing ${BUILD_TESTING})
else()
    set(build_testing ${UOM_TESTS})
endif()

# The libraries that are built and installed. Where nothing is said these are both, and within another project the one
# that BUILD_SHARED_LIBS asks for.
set(UOM_LIBRARIES "" CACHE STRING "BOTH, SHARED or STATIC; empty for what is usual")
set_property(CACHE UOM_LIBRARIES PROPERTY STRINGS "" BOTH SHARED STATIC)
if(UOM_LIBRARIES)
    set(libraries ${UOM_LIBRARIES})
elseif(PROJECT_IS_TOP_LEVEL)
    set(libraries BOTH)
elseif(BUILD_SHARED_LIBS)
    set(libraries SHARED)
else()
    set(libraries STATIC)
endif()
if(NOT libraries MATCHES "^(BOTH|SHARED|STATIC)$")
    message(FATAL_ERROR "UOM_LIBRARIES is \"${libraries}\", and not BOTH, SHARED or STATIC")
endif()

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
