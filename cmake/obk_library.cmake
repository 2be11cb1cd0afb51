# obk_add_library(<target> [SYSTEM] [ROOT <folder>] [LINKS <targets>...] SOURCES <files>... [FAST <files>...])
#
# A static library of the folder it is called in. Others include its headers as "<folder>/<header>", and
# only those who link it can: the include path of a target holds nothing but a link to its own folder, so
# that an include of a higher level does not compile.
# FAST: which of the files are on the way of every call from a host, or of every cell; the rest of a product
# is built for size.
# SYSTEM: it speaks to the platform itself.
# ROOT is the folder which include paths start from (default: src).
function(obk_add_library target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "SYSTEM" "ROOT" "LINKS;SOURCES;FAST")
    if(NOT arg_ROOT)
        set(arg_ROOT src)
    endif()
    file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}/${arg_ROOT}" "${CMAKE_CURRENT_SOURCE_DIR}")
    set(includes "${PROJECT_BINARY_DIR}/include/${target}")
    get_filename_component(parent "${includes}/${folder}" DIRECTORY)
    file(MAKE_DIRECTORY "${parent}")
    file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${includes}/${folder}" SYMBOLIC)

    set(compiled ${arg_SOURCES})
    list(FILTER compiled INCLUDE REGEX "\\.(cpp|c)$")
    if(compiled)
        add_library(${target} STATIC ${arg_SOURCES})
        target_include_directories(${target} PUBLIC "${includes}")
        target_link_libraries(${target} PUBLIC ${arg_LINKS} PRIVATE obk_warnings)
        if(arg_FAST AND WIN32)
            # Without the headers that are compiled beforehand, which are compiled for size.
            set_source_files_properties(${arg_FAST} PROPERTIES COMPILE_OPTIONS -O2 SKIP_PRECOMPILE_HEADERS ON)
        endif()
        if(OBK_FUZZ)
            # What fuzzers steer by; a test that links it runs as before.
            target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
        endif()
        if(arg_SYSTEM)
            obk_precompile(${target} SYSTEM)
        else()
            obk_precompile(${target})
        endif()
    else()
        add_library(${target} INTERFACE)
        target_include_directories(${target} INTERFACE "${includes}")
        target_link_libraries(${target} INTERFACE ${arg_LINKS})
    endif()
endfunction()
