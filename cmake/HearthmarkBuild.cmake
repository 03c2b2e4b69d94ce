# SPDX-License-Identifier: MIT
# Settings that every target shares, and the functions that declare a floor and a test program.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# A third smaller than with CMake's own -O3, which no benchmark shows to be faster.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
add_compile_options(-ffunction-sections -fdata-sections)
add_link_options(-Wl,--gc-sections)

# What a compiler and a linker can do against faults of memory, in what people run. Each is left out
# where it is not known; fortified functions need an optimising build.
if(NOT HEARTHMARK_SANITIZE)
    include(CheckCXXCompilerFlag)
    include(CheckLinkerFlag)
    foreach(flag -fPIE -fstack-protector-strong -fstack-clash-protection -fcf-protection)
        string(MAKE_C_IDENTIFIER "HEARTHMARK_COMPILES_WITH${flag}" known)
        check_cxx_compiler_flag(${flag} ${known})
        if(${known})
            add_compile_options($<$<CONFIG:Release>:${flag}>)
        endif()
    endforeach()
    add_compile_options("$<$<CONFIG:Release>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    foreach(flag -pie -Wl,-z,relro,-z,now)
        string(MAKE_C_IDENTIFIER "HEARTHMARK_LINKS_WITH${flag}" known)
        check_linker_flag(CXX ${flag} ${known})
        if(${known})
            add_link_options($<$<CONFIG:Release>:${flag}>)
        endif()
    endforeach()
endif()

add_library(hearthmark_warnings INTERFACE)
target_compile_options(hearthmark_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(HEARTHMARK_SANITIZE)
    # Optimised a little and with lines alone, since it is built for every change; assertions are on.
    add_compile_options(-O1 -gline-tables-only -fno-omit-frame-pointer -D_GLIBCXX_ASSERTIONS
        -fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=all
        -fsanitize-coverage-allowlist=${PROJECT_SOURCE_DIR}/tests/fuzz/explored.txt)
    add_link_options(-fsanitize=address,undefined)
endif()

# One static library for one folder: target hearthmark_<folder>, alias Hearthmark::<folder>.
function(hearthmark_add_floor folder)
    add_library(hearthmark_${folder} STATIC ${ARGN})
    add_library(Hearthmark::${folder} ALIAS hearthmark_${folder})
    target_include_directories(hearthmark_${folder} PUBLIC "${PROJECT_SOURCE_DIR}")
    target_link_libraries(hearthmark_${folder} PRIVATE hearthmark_warnings)
endfunction()

# Of code that waits for a person or for the desktop its size is what counts: what is mapped is memory.
function(hearthmark_prefer_size target)
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-Os>)
endfunction()

# To be called after the target's QML module is there. The QML compiler's output does not keep to our
# warnings, and takes long to optimise. What it makes of a view includes much and says little: one by one
# they would take five times as long as together.
function(hearthmark_build_generated_code target)
    set(options "-w;$<$<BOOL:${HEARTHMARK_SANITIZE}>:-O0>")
    get_target_property(sources ${target} SOURCES)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "STATIC_LIBRARY")
        set(views ${sources})
        list(FILTER views INCLUDE REGEX "_qml[.]cpp$")
        list(REMOVE_ITEM sources ${views})
        set_target_properties(${target} PROPERTIES SOURCES "${sources}")

        add_library(${target}_views OBJECT ${views})
        set_target_properties(${target}_views PROPERTIES
            AUTOMOC OFF UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
        hearthmark_prefer_size(${target}_views)
        target_compile_options(${target}_views PRIVATE ${options})
        target_link_libraries(${target}_views PRIVATE Qt6::Qml)
        # Whoever links the target links them. The target itself must not wait for them: they wait for
        # the list of its types.
        target_link_libraries(${target} INTERFACE $<TARGET_OBJECTS:${target}_views>)
    endif()
    list(FILTER sources INCLUDE REGEX "qmlcache|qmltyperegistrations")
    set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS "${options}")
endfunction()
