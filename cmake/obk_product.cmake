# What is handed out is written into dist/, stripped. Its symbols are in a file of their own in dist/symbols/, which
# the stripped one names by a debug link; scripts/where.sh finds the line behind an address there.

if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(OBK_ARCHITECTURE x64)
else()
    set(OBK_ARCHITECTURE x86)
endif()
set(OBK_DIST "${PROJECT_SOURCE_DIR}/dist" CACHE PATH "Where the products are written")
set(OBK_DIST_DIR "${OBK_DIST}/${OBK_ARCHITECTURE}")
set(OBK_SYMBOLS_DIR "${OBK_DIST}/symbols/${OBK_ARCHITECTURE}")
file(MAKE_DIRECTORY "${OBK_DIST_DIR}" "${OBK_SYMBOLS_DIR}")

# obk_product(<target> <file name>)
function(obk_product target file)
    set(built "${PROJECT_BINARY_DIR}/products/${file}")
    set(handedOut "${OBK_DIST_DIR}/${file}")
    set(symbols "${OBK_SYMBOLS_DIR}/${file}.debug")
    cmake_path(GET file STEM stem)
    cmake_path(GET file EXTENSION extension)
    set_target_properties(${target} PROPERTIES
        PREFIX "" OUTPUT_NAME "${stem}" SUFFIX "${extension}"
        RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/products")
    # The map tells which libraries are built in; the package lists them.
    target_link_options(${target} PRIVATE "-Wl,-Map=${PROJECT_BINARY_DIR}/products/${file}.map")
    add_custom_command(OUTPUT "${handedOut}" "${symbols}"
        # -p keeps the empty time stamp inside; the files themselves are new.
        COMMAND ${CMAKE_OBJCOPY} -p --only-keep-debug "${built}" "${symbols}"
        COMMAND ${CMAKE_STRIP} -s -p -o "${handedOut}" "${built}"
        COMMAND ${CMAKE_OBJCOPY} -p "--add-gnu-debuglink=${symbols}" "${handedOut}"
        COMMAND ${CMAKE_COMMAND} -E touch "${handedOut}" "${symbols}"
        DEPENDS ${target} "${built}"
        COMMENT "Writing dist/${OBK_ARCHITECTURE}/${file}"
        VERBATIM)
    add_custom_target(${target}_in_dist ALL DEPENDS "${handedOut}")
    add_dependencies(products ${target}_in_dist)
endfunction()

# obk_hand_out(<target> <file>): a file goes into dist/ beside the products as it is.
function(obk_hand_out target file)
    cmake_path(ABSOLUTE_PATH file NORMALIZE)
    cmake_path(GET file FILENAME name)
    add_custom_command(OUTPUT "${OBK_DIST_DIR}/${name}"
        COMMAND ${CMAKE_COMMAND} -E copy "${file}" "${OBK_DIST_DIR}/${name}"
        DEPENDS "${file}"
        COMMENT "Writing dist/${OBK_ARCHITECTURE}/${name}"
        VERBATIM)
    add_custom_target(${target} ALL DEPENDS "${OBK_DIST_DIR}/${name}")
    add_dependencies(products ${target})
endfunction()
