# Makes OUT/dist-packages, Python's package over the library of the build tree BUILD, which is installed for that. Run by
# cmake -P, with SOURCE, PYTHON and LIBDIR.

set(ENV{SETUPTOOLS_USE_DISTUTILS} stdlib) # with the flags of Debian's interpreter
set(ENV{UOM_SYSTEM} 1)
set(ENV{UOM_RPATH} 0)
set(ENV{UOM_WERROR} 1)
set(ENV{PKG_CONFIG_PATH} "${OUT}/installed/${LIBDIR}/pkgconfig")
set(ENV{PYTHONNOUSERSITE} 1)

file(REMOVE_RECURSE "${OUT}/installed" "${OUT}/wheel" "${OUT}/dist-packages")
foreach(component runtime development)
    execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --component ${component} --prefix "${OUT}/installed"
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endforeach()
execute_process(COMMAND "${PYTHON}" -m build --no-isolation --outdir "${OUT}/wheel" "${SOURCE}/bindings/python"
    OUTPUT_FILE "${OUT}/python.log" ERROR_FILE "${OUT}/python.log" RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    file(READ "${OUT}/python.log" log)
    message(FATAL_ERROR "${log}")
endif()
file(GLOB wheel "${OUT}/wheel/uom-*.whl")
file(ARCHIVE_EXTRACT INPUT "${wheel}" DESTINATION "${OUT}/dist-packages")
# dpkg knows the files, and removes them.
file(GLOB records "${OUT}/dist-packages/*.dist-info/RECORD")
file(REMOVE ${records})
