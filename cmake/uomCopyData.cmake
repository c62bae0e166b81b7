# uom_copy_data(TARGET): puts the data files beside a program, or a library that a program loads, when it is built.
# That is where a library that is linked into it looks for them.
function(uom_copy_data target)
    foreach(file IN LISTS UOM_DATA_FILES)
        add_custom_command(TARGET ${target} POST_BUILD
            COMMAND "${CMAKE_COMMAND}" -E copy_if_different "${file}" "$<TARGET_FILE_DIR:${target}>"
            VERBATIM)
    endforeach()
endfunction()
