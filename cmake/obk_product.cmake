# What is handed out is written into dist/, stripped. The file with its symbols stays in the build tree, where
# scripts/where.sh finds the function behind an address.

if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(OBK_ARCHITECTURE x64)
else()
    set(OBK_ARCHITECTURE x86)
endif()
set(OBK_DIST "${PROJECT_SOURCE_DIR}/dist" CACHE PATH "Where the products are written")
set(OBK_DIST_DIR "${OBK_DIST}/${OBK_ARCHITECTURE}")
file(MAKE_DIRECTORY "${OBK_DIST_DIR}")

# obk_product(<target> <file name>)
function(obk_product target file)
    set(built "${PROJECT_BINARY_DIR}/products/${file}")
    set(handedOut "${OBK_DIST_DIR}/${file}")
    cmake_path(GET file STEM stem)
    cmake_path(GET file EXTENSION extension)
    set_target_properties(${target} PROPERTIES
        PREFIX "" OUTPUT_NAME "${stem}" SUFFIX "${extension}"
        RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/products")
    add_custom_command(OUTPUT "${handedOut}"
        # -p keeps the empty time stamp inside; the file itself is new.
        COMMAND ${CMAKE_STRIP} -s -p -o "${handedOut}" "${built}"
        COMMAND ${CMAKE_COMMAND} -E touch "${handedOut}"
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
