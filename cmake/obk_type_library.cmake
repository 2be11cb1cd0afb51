# obk_add_type_library(<target> IDL <file> [LIBID <guid>] [PUBLISH] [DEPENDS <files>...])
#
# Compiles <name>.idl to <name>.tlb in the current binary folder and checks the identity of the result. The
# target has the properties OBK_TYPE_LIBRARY (the file) and OBK_TYPE_LIBRARY_FOLDER (for windres, whose
# script says: 1 TYPELIB "<name>.tlb"). PUBLISH also puts it into dist/. DEPENDS names what the IDL file
# includes.
#
# The IDL imports "automation.idl" for the automation types and says importlib("stdole2.tlb").
function(obk_add_type_library target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "PUBLISH" "IDL;LIBID" "DEPENDS")
    get_filename_component(idl "${arg_IDL}" ABSOLUTE)
    get_filename_component(name "${idl}" NAME_WE)
    set(base "${PROJECT_SOURCE_DIR}/src/server/idl")
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/typelib")
    set(typeLibrary "${folder}/${name}.tlb")
    set(script "${PROJECT_SOURCE_DIR}/cmake/compile_type_library.cmake")
    set(named "${PROJECT_SOURCE_DIR}/cmake/named_defaults.pl")
    add_custom_command(
        OUTPUT "${typeLibrary}"
        COMMAND ${CMAKE_COMMAND} -DWIDL=${OBK_WIDL} -DPOINTER_SIZE=${CMAKE_SIZEOF_VOID_P} -DBASE=${base}
            -DIDL=${idl} -DLIBID=${arg_LIBID} -DOUTPUT=${typeLibrary} -P "${script}"
        DEPENDS "${idl}" ${arg_DEPENDS} "${base}/automation.idl" "${base}/stdole2.idl" "${script}" "${named}"
        COMMENT "Compiling the type library ${name}.tlb"
        VERBATIM)
    add_custom_target(${target} DEPENDS "${typeLibrary}")
    # The 64-bit tree publishes: what differs in the other one concerns only a library that is embedded.
    if(arg_PUBLISH AND CMAKE_SIZEOF_VOID_P EQUAL 8)
        add_custom_command(TARGET ${target} POST_BUILD
            COMMAND ${CMAKE_COMMAND} -E copy_if_different "${typeLibrary}" "${OBK_DIST}/${name}.tlb" VERBATIM)
    endif()
    set_target_properties(${target} PROPERTIES
        OBK_TYPE_LIBRARY "${typeLibrary}"
        OBK_TYPE_LIBRARY_FOLDER "${folder}")
endfunction()
