# Flags every target of ours is compiled with. Linked privately, so that they reach nobody else.
add_library(tezgah_flags INTERFACE)
target_compile_features(tezgah_flags INTERFACE cxx_std_20)
target_compile_options(tezgah_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    -Wcast-align -Wundef -Wformat=2 -Wimplicit-fallthrough
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op -Wno-restrict>
    $<$<BOOL:${TEZGAH_WERROR}>:-Werror>)
target_compile_definitions(tezgah_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS QT_NO_KEYWORDS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(TEZGAH_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# One file runs on every Windows: the compiler's own libraries go into it.
if(MINGW)
    add_link_options(-static)
    set(CMAKE_LINK_SEARCH_START_STATIC ON)
    set(CMAKE_LINK_SEARCH_END_STATIC ON)
endif()
