# A port over the tree that it lies in. In a registry, vcpkg_from_github or the like sets SOURCE_PATH.
get_filename_component(SOURCE_PATH "${CURRENT_PORT_DIR}/../../../.." ABSOLUTE)

if(VCPKG_LIBRARY_LINKAGE STREQUAL "dynamic")
    set(libraries SHARED)
else()
    set(libraries STATIC)
endif()
vcpkg_check_features(OUT_FEATURE_OPTIONS features FEATURES tool UOM_TOOL)

vcpkg_cmake_configure(
    SOURCE_PATH "${SOURCE_PATH}"
    OPTIONS
        -DUOM_LIBRARIES=${libraries}
        -DUOM_WARNINGS_AS_ERRORS=OFF
        -DUOM_BENCH=OFF
        -DBUILD_TESTING=OFF
        ${features})
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/uom)
vcpkg_fixup_pkgconfig()
vcpkg_copy_pdbs()
if("tool" IN_LIST FEATURES)
    vcpkg_copy_tools(TOOL_NAMES uom AUTO_CLEAN)
endif()

file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share"
    "${CURRENT_PACKAGES_DIR}/share/doc")
file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
