# Flags that every target shares: warnings are errors, Qt's implicit conversions and keywords are off.
add_library(ovrin_flags INTERFACE)
target_compile_options(ovrin_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wformat=2 -Werror)
target_compile_definitions(ovrin_flags INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
    QT_NO_FOREACH QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # QCoro's coroutines are what they should be; this warning of g++ 12 fires inside its headers.
    target_compile_options(ovrin_flags INTERFACE -Wno-mismatched-new-delete)
endif()

if(OVRIN_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    add_compile_definitions(OVRIN_SANITIZED)
endif()
if(OVRIN_FUZZ)
    # The rooms too: a fuzzer that cannot see the branches of the code under test is blind.
    # Findings are fatal; but the JSON library moves a null pointer of an empty stack by what it then never uses.
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize=pointer-overflow
        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=address,undefined)
endif()
if(OVRIN_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()

# What a distribution hardens its packages with.
add_compile_options($<$<CONFIG:Release>:-fstack-protector-strong> $<$<CONFIG:Release>:-fstack-clash-protection>)
add_compile_definitions($<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
add_link_options(-Wl,-z,relro,-z,now)

find_program(OVRIN_CCACHE ccache)
if(OVRIN_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Base directory and sloppiness let checkouts share a cache and precompiled headers be cached.
    set(launcher ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${OVRIN_CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
    add_compile_options(-fpch-preprocess)
endif()

find_program(OVRIN_MOLD mold)
if(OVRIN_MOLD)
    add_link_options(-fuse-ld=mold)
endif()
