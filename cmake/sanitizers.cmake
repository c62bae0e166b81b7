# UOM_SANITIZE goes to everything that is compiled and linked: a sanitizer's run time belongs to the whole program.

if(UOM_SANITIZE)
    add_compile_options(-fsanitize=${UOM_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${UOM_SANITIZE})
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        # Some of Clang's checks are for C++ alone. A program in C that uses the library needs their run time too.
        add_link_options(-fsanitize-link-c++-runtime)
        link_libraries(stdc++)
    endif()
endif()

# What the fuzzers learn the way through the library by.
if(UOM_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
