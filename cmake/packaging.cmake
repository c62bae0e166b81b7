# Packages by CPack. Any build makes an archive of the installed tree, one for Windows a zip. One that is configured with
# UOM_DEBIAN, below /usr, makes Debian's packages; scripts/packages does that, and checks them.

set(CPACK_PACKAGE_NAME uom)
set(CPACK_PACKAGE_VENDOR "The uom maintainers")
set(CPACK_PACKAGE_CONTACT "${UOM_PACKAGE_CONTACT}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL runtime development tool data documentation)

if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_FILE_NAME "uom-${PROJECT_VERSION}-windows-x64")
else()
    set(CPACK_GENERATOR TGZ)
    string(TOLOWER "${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}" system)
    set(CPACK_PACKAGE_FILE_NAME "uom-${PROJECT_VERSION}-${system}")
endif()

if(UOM_DEBIAN)
    include(cmake/debian.cmake)
endif()
include(CPack)
