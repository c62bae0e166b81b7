# Debian's packages: libuom1, libuom-dev, uom, uom-data, python3-uom, one of each component.

if(NOT TARGET uom_tool OR NOT libraries STREQUAL "BOTH")
    message(FATAL_ERROR "UOM_DEBIAN packs the tool and both libraries, and not all of these are built here")
endif()

set(debian_release 1)
set(debian_version "${PROJECT_VERSION}-${debian_release}")
set(debian_dir "${PROJECT_BINARY_DIR}/debian")
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENTS_ALL runtime development tool data python)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${debian_release})
set(CPACK_DEBIAN_PACKAGE_SOURCE uom)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Where the library lies that the others need. Their dependence on its package is stated below: dpkg-shlibdeps knows
# installed packages alone.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")

# Each description is a synopsis and a text. CPack would put the project's in front.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
function(debian_package component name section synopsis text)
    string(TOUPPER "${component}" upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME "${name}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION "${section}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${synopsis}\n${text}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${ARGN}" PARENT_SCOPE)
    install(FILES "${PROJECT_SOURCE_DIR}/packaging/debian/copyright" "${debian_dir}/changelog.gz"
        "${debian_dir}/changelog.Debian.gz"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${name}" COMPONENT ${component})
endfunction()

debian_package(runtime libuom1 libs "Units of measure for process simulation (library)"
"Converts numbers and arrays between the units of some 70 quantities of process
engineering, reads and prints units as engineers write them, and keeps named
sets of default units for companies, sites and users."
    "uom-data (>= ${debian_version})")
debian_package(development libuom-dev libdevel "Units of measure for process simulation (development)"
"Headers for C, C++ and Fortran, the static library, the files of CMake and
pkg-config, documentation and examples of libuom."
    "libuom1 (= ${debian_version})")
debian_package(tool uom science "Units of measure for process simulation (command-line tool)"
"Converts values, CSV files and typed texts between units of measure, lists
quantities and units, and defines sets of default units."
    "libuom1 (>= ${PROJECT_VERSION})")
debian_package(data uom-data science "Units of measure for process simulation (catalogue)"
"The catalogue of quantities, units, aliases and sets of default units that
libuom reads, as plain text.")
set(CPACK_DEBIAN_DATA_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DATA_PACKAGE_SHLIBDEPS OFF)

# What dpkg-shlibdeps reads when others are linked with the library: dpkg-gensymbols fails when the names that the library
# exports are not those of packaging/debian/libuom1.symbols. CPack's own shlibs would take Python's module for a library.
file(WRITE "${debian_dir}/shlibs" "libuom ${PROJECT_VERSION_MAJOR} libuom1 (>= ${PROJECT_VERSION})\n")
file(WRITE "${debian_dir}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${debian_dir}/symbols" "${debian_dir}/shlibs" "${debian_dir}/triggers")
add_custom_command(
    OUTPUT "${debian_dir}/symbols"
    COMMAND dpkg-gensymbols -q -plibuom1 "-v${debian_version}" -c4 "-e$<TARGET_FILE:uom>" "-P${debian_dir}"
        "-I${PROJECT_SOURCE_DIR}/packaging/debian/libuom1.symbols" "-O${debian_dir}/symbols"
    DEPENDS uom packaging/debian/libuom1.symbols
    WORKING_DIRECTORY "${debian_dir}"
    VERBATIM)
add_custom_target(uom_debian_symbols ALL DEPENDS "${debian_dir}/symbols")

# The date is SOURCE_DATE_EPOCH where that is set.
string(TIMESTAMP debian_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/debian/changelog.in "${debian_dir}/changelog.Debian" @ONLY)
file(COPY_FILE "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${debian_dir}/changelog")
execute_process(COMMAND gzip -9nf changelog.Debian changelog WORKING_DIRECTORY "${debian_dir}" COMMAND_ERROR_IS_FATAL ANY)

# Python's package, over the library as it is installed --------------------------------------------------------

find_package(Python3 REQUIRED COMPONENTS Interpreter)
math(EXPR next_minor "${Python3_VERSION_MINOR} + 1")
debian_package(python python3-uom python "Units of measure for process simulation (Python 3)"
"Converts numbers, NumPy arrays, columns of pandas and Dask collections of any
size between units of measure."
    "libuom1 (>= ${PROJECT_VERSION}), python3 (>= 3.${Python3_VERSION_MINOR}~), python3 (<< 3.${next_minor})")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-numpy, python3-pandas, python3-dask")
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
    "${PROJECT_SOURCE_DIR}/packaging/debian/python3-uom/postinst"
    "${PROJECT_SOURCE_DIR}/packaging/debian/python3-uom/prerm")

file(GLOB_RECURSE python_sources CONFIGURE_DEPENDS bindings/python/uom/* bindings/python/src/*)
add_custom_command(
    OUTPUT "${debian_dir}/python.stamp"
    COMMAND "${CMAKE_COMMAND}"
        "-DBUILD=${PROJECT_BINARY_DIR}" "-DSOURCE=${PROJECT_SOURCE_DIR}" "-DOUT=${debian_dir}" "-DPYTHON=${Python3_EXECUTABLE}"
        "-DLIBDIR=${CMAKE_INSTALL_LIBDIR}" -P "${PROJECT_SOURCE_DIR}/cmake/debian_python.cmake"
    COMMAND "${CMAKE_COMMAND}" -E touch "${debian_dir}/python.stamp"
    DEPENDS uom uom_static ${python_sources} bindings/python/setup.py bindings/python/pyproject.toml
    VERBATIM)
add_custom_target(uom_debian_python ALL DEPENDS "${debian_dir}/python.stamp")
install(DIRECTORY "${debian_dir}/dist-packages/" DESTINATION lib/python3/dist-packages COMPONENT python)
