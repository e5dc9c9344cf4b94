# What every target of the project is compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}")

add_library(tarnwick_options INTERFACE)
target_include_directories(tarnwick_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_definitions(tarnwick_options INTERFACE
    QT_NO_KEYWORDS
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(tarnwick_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wcast-align
    -Wimplicit-fallthrough)
if(TARNWICK_WERROR)
    target_compile_options(tarnwick_options INTERFACE -Werror)
endif()
if(TARNWICK_SANITIZE)
    target_compile_options(tarnwick_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(tarnwick_options INTERFACE -fsanitize=address,undefined)
endif()
if(TARNWICK_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "The fuzz targets need clang: configure with the preset fuzz")
    endif()
    target_compile_options(tarnwick_options INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_compile_definitions(tarnwick_options INTERFACE QT_FORCE_ASSERTS _GLIBCXX_ASSERTIONS)
    target_link_options(tarnwick_options INTERFACE -fsanitize=address,undefined)
endif()
if(TARNWICK_HARDENED)
    include(CheckPIESupported)
    check_pie_supported(LANGUAGES CXX)
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    target_compile_options(tarnwick_options INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong)
    target_link_options(tarnwick_options INTERFACE -Wl,-z,relro -Wl,-z,now)
endif()
