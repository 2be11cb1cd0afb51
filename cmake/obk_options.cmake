# How everything is compiled and linked. obk_warnings is for our own code only: googletest and the
# like are built without it.

add_library(obk_warnings INTERFACE)
target_compile_options(obk_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    # Part of the line above for one compiler and not for the other.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>)
if(WIN32)
    # COM's own idioms: function pointers out of GetProcAddress. And the compiler takes the platform's own
    # intrinsic for the thread block, which reads at an offset from a segment, for an access to an empty array;
    # in a precompiled header it also reports the runtime's own copying of short literals.
    target_compile_options(obk_warnings INTERFACE -Wno-cast-function-type -Wno-array-bounds
        -Wno-stringop-overread)
endif()

add_compile_options(-ffunction-sections -fdata-sections -fstack-protector-strong)

if(WIN32)
    # The names of types would be a thirtieth of a server, and nothing asks for a type at run time.
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fno-rtti>)
    # Nothing of the place where it was built gets into a product.
    add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
    add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601 WINVER=0x0601)
    add_link_options(-static -fstack-protector-strong
        -Wl,--gc-sections,--dynamicbase,--nxcompat,--no-insert-timestamp)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        add_link_options(-Wl,--high-entropy-va)
    else()
        # Hosts built by older compilers guarantee a stack aligned to 4 bytes only.
        add_compile_options(-mincoming-stack-boundary=2 -mstackrealign)
        add_link_options(-Wl,--enable-stdcall-fixup)
    endif()
else()
    add_compile_definitions($<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
endif()

if(OBK_GUARD)
    add_compile_options($<$<COMPILE_LANGUAGE:C,CXX>:-fsanitize=undefined> $<$<COMPILE_LANGUAGE:C,CXX>:-fsanitize-undefined-trap-on-error>)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
if(OBK_SANITIZE)
    add_compile_options(-fsanitize=${OBK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${OBK_SANITIZE})
endif()
