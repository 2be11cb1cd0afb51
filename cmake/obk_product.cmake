# What is handed out: stripped, with a map beside the objects (to find a function by its offset), and
# written straight into dist/.

if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(OBK_ARCHITECTURE x64)
else()
    set(OBK_ARCHITECTURE x86)
endif()
set(OBK_DIST "${PROJECT_SOURCE_DIR}/dist" CACHE PATH "Where the products are written")
set(OBK_DIST_DIR "${OBK_DIST}/${OBK_ARCHITECTURE}")
file(MAKE_DIRECTORY "${OBK_DIST_DIR}")

function(obk_product target)
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${OBK_DIST_DIR}")
    target_link_options(${target} PRIVATE -s "-Wl,-Map,${PROJECT_BINARY_DIR}/${target}.map")
endfunction()
