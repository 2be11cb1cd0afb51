# Headers that most files of a folder read are compiled once for the folder. Nothing depends on that: the
# preset native-debug does without, and finds the include that a file forgot.

option(OBK_PRECOMPILE "Compile common headers once for each target" ON)

set(OBK_COMMON_HEADERS <algorithm> <array> <cmath> <cstdint> <functional> <limits> <map> <memory> <optional>
    <set> <span> <string> <string_view> <utility> <vector>)
set(OBK_SYSTEM_HEADERS <windows.h> <ole2.h> <olectl.h>)

# obk_precompile(<target> [SYSTEM] [HEADERS <header>...]): also these headers; SYSTEM: also the platform's,
# which portable code must not see.
function(obk_precompile target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "SYSTEM" "" "HEADERS")
    if(NOT OBK_PRECOMPILE)
        return()
    endif()
    # A header compiled for a handful of files costs more than it saves.
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    list(LENGTH sources count)
    if(count LESS 5)
        return()
    endif()
    set(headers ${OBK_COMMON_HEADERS} ${arg_HEADERS})
    if(arg_SYSTEM)
        list(APPEND headers ${OBK_SYSTEM_HEADERS})
    endif()
    target_precompile_headers(${target} PRIVATE ${headers})
endfunction()
