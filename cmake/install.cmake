# The installed tree can be moved as a whole: every path in it is relative.

include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/uom")

install(TARGETS uom uom_static EXPORT uomTargets)
install(DIRECTORY include/uom DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")
install(FILES "${UOM_DATA_FILE}" "${UOM_ALIASES_FILE}" DESTINATION "${CMAKE_INSTALL_DATADIR}/uom")
if(UOM_IMPORT_LIBRARY)
    install(FILES "${UOM_IMPORT_LIBRARY}" DESTINATION "${CMAKE_INSTALL_LIBDIR}")
endif()
if(TARGET uom_tool)
    install(TARGETS uom_tool)
endif()

# find_package(uom) gives uom::uom and uom::uom_static.
install(EXPORT uomTargets NAMESPACE uom:: DESTINATION "${package_dir}")
configure_package_config_file(cmake/uomConfig.cmake.in "${PROJECT_BINARY_DIR}/uomConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/uomConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/uomConfig.cmake" "${PROJECT_BINARY_DIR}/uomConfigVersion.cmake"
    DESTINATION "${package_dir}")

# pkg-config uom
file(RELATIVE_PATH UOM_PC_TO_PREFIX
    "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
configure_file(cmake/uom.pc.in "${PROJECT_BINARY_DIR}/uom.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/uom.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
