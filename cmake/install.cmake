# The installed tree can be moved as a whole: every path in it is relative. Its components: runtime is the shared library,
# development what compiles and links with it, data the data files, tool the command-line tool, documentation the pages.

include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/uom")
set(header_dir "${CMAKE_INSTALL_INCLUDEDIR}/uom")

if(libraries STREQUAL "BOTH")
    set(installed uom uom_static)
elseif(libraries STREQUAL "SHARED")
    set(installed uom)
else()
    set(installed uom_static)
endif()
install(TARGETS ${installed} EXPORT uomTargets
    RUNTIME COMPONENT runtime
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development)
if(UOM_IMPORT_LIBRARY AND NOT libraries STREQUAL "STATIC")
    install(FILES "${UOM_IMPORT_LIBRARY}" DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
endif()

install(DIRECTORY include/uom/ DESTINATION "${header_dir}" COMPONENT development
    FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")
# A module of Fortran is compiled by the compiler that uses it.
install(FILES "${UOM_FORTRAN_MODULE}" DESTINATION "${header_dir}" COMPONENT development)
install(FILES ${UOM_DATA_FILES} DESTINATION "${CMAKE_INSTALL_DATADIR}/uom" COMPONENT data)
if(TARGET uom_tool)
    install(TARGETS uom_tool COMPONENT tool)
endif()

# find_package(uom) gives uom::uom, and uom::uom_static where that was built.
install(EXPORT uomTargets NAMESPACE uom:: DESTINATION "${package_dir}" COMPONENT development)
set(data_dir "${CMAKE_INSTALL_DATADIR}/uom")
configure_package_config_file(cmake/uomConfig.cmake.in "${PROJECT_BINARY_DIR}/uomConfig.cmake"
    INSTALL_DESTINATION "${package_dir}"
    PATH_VARS data_dir header_dir)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/uomConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/uomConfig.cmake" "${PROJECT_BINARY_DIR}/uomConfigVersion.cmake"
    cmake/uomCopyData.cmake
    DESTINATION "${package_dir}" COMPONENT development)

# pkg-config uom
file(RELATIVE_PATH UOM_PC_TO_PREFIX
    "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
if(libraries STREQUAL "STATIC")
    set(UOM_PC_LIBS "-luom -lm")
else()
    set(UOM_PC_LIBS "-luom")
endif()
configure_file(cmake/uom.pc.in "${PROJECT_BINARY_DIR}/uom.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/uom.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)

# The pages, laid out as here so that they find each other.
set(pages_component documentation)
set(pages_dir "${CMAKE_INSTALL_DOCDIR}")
if(UOM_DEBIAN) # each of whose packages has licence and changes
    set(pages_component development)
    set(pages_dir "${CMAKE_INSTALL_DATADIR}/doc/libuom-dev")
else()
    install(FILES LICENSE CHANGELOG.md packaging/third-party.txt DESTINATION "${pages_dir}" COMPONENT ${pages_component})
endif()
install(FILES README.md SECURITY.md DESTINATION "${pages_dir}" COMPONENT ${pages_component})
install(DIRECTORY docs examples DESTINATION "${pages_dir}" COMPONENT ${pages_component})
install(FILES bindings/dotnet/Uom.cs DESTINATION "${pages_dir}/bindings/dotnet" COMPONENT ${pages_component})
