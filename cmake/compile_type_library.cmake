# Compiles one type library with widl; see obk_type_library.cmake.
math(EXPR bits "${POINTER_SIZE} * 8")
get_filename_component(folder "${OUTPUT}" DIRECTORY)
file(MAKE_DIRECTORY "${folder}")

function(compile idl output)
    execute_process(
        COMMAND ${WIDL} -t -m${bits} -I "${BASE}" -L "${folder}" -o "${output}" "${idl}"
        RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE said)
    # widl calls the reference to the standard library a duplicate, always.
    string(REGEX REPLACE "warning: duplicate uuid {00020430[^\n]*\n" "" said "${said}")
    if(said)
        message("${said}")
    endif()
    if(NOT result EQUAL 0 OR NOT EXISTS "${output}")
        file(REMOVE "${output}")
        message(FATAL_ERROR "widl could not compile ${idl}")
    endif()
    # widl writes when it ran, as text and as a number. The same input has to give the same file.
    execute_process(
        COMMAND perl -0777 -pi -e
            "s/(Created by WIDL version [0-9.]+ at ).{24}(\\nW*\\x13\\x00)..../\${1}Thu Jan  1 00:00:00 1970\${2}\\0\\0\\0\\0/s or die"
            "${output}"
        COMMAND_ERROR_IS_FATAL ANY)
endfunction()

compile("${BASE}/stdole2.idl" "${folder}/stdole2.tlb")
set(named "${CMAKE_CURRENT_LIST_DIR}/named_defaults.pl")
get_filename_component(name "${IDL}" NAME)
execute_process(COMMAND perl "${named}" plain "${IDL}" "${folder}/${name}" COMMAND_ERROR_IS_FATAL ANY)
compile("${folder}/${name}" "${OUTPUT}")
execute_process(COMMAND perl "${named}" named "${IDL}" "${OUTPUT}" COMMAND_ERROR_IS_FATAL ANY)

# An interface derived from IDispatch after a dispinterface damages the library's identity without a word.
file(READ "${OUTPUT}" contents HEX)
if(LIBID)
    string(REGEX REPLACE "[-{} ]" "" digits "${LIBID}")
    string(TOLOWER "${digits}" digits)
    string(REGEX REPLACE
        "^(..)(..)(..)(..)(..)(..)(..)(..)(.*)$" "\\4\\3\\2\\1\\6\\5\\8\\7\\9" bytes "${digits}")
    if(NOT contents MATCHES "${bytes}")
        message(FATAL_ERROR "${OUTPUT} does not have the identity ${LIBID}")
    endif()
endif()
