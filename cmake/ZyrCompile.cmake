# What all targets of this build are compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# Programs and libraries stand to each other in the build as in an installation; so nothing has to be rewritten
# there, and no path is padded for it.
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()

option(ZYR_WARNINGS_AS_ERRORS "Treat warnings as errors" ${PROJECT_IS_TOP_LEVEL})
set(ZYR_SANITIZE "" CACHE STRING "Sanitizers to build with, as in -fsanitize=")
option(ZYR_COVERAGE "Build for coverage" OFF)

# A cache of what has been compiled, where there is one. To get on with precompiled headers it overlooks their times.
find_program(ZYR_CCACHE ccache)
if(ZYR_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_DEPEND=true
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${ZYR_CCACHE})
endif()

find_package(Threads REQUIRED)

add_library(ZyrCompileOptions INTERFACE)
target_compile_options(ZyrCompileOptions INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    # g++ 12 sees overlaps in std::string's own operators when it inlines them (its bug 105651).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # g++ notes what it passes in another way than before its version 7.
    $<$<STREQUAL:${CMAKE_SYSTEM_PROCESSOR},arm>:-Wno-psabi>
    # g++'s -Wconversion doesn't hold it in C++.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>
    $<$<BOOL:${ZYR_WARNINGS_AS_ERRORS}>:-Werror>
    # So that ccache sees which precompiled header is used.
    $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>
    # With less memory g++ takes a tenth of its time to tidy it up.
    $<$<CXX_COMPILER_ID:GNU>:--param=ggc-min-heapsize=524288>
    # Trace records name source files from the root of the sources.
    -fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=)
target_link_libraries(ZyrCompileOptions INTERFACE Threads::Threads)
if(ZYR_SANITIZE)
    target_compile_options(ZyrCompileOptions INTERFACE -fsanitize=${ZYR_SANITIZE} -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(ZyrCompileOptions INTERFACE -fsanitize=${ZYR_SANITIZE})
endif()
if(ZYR_FUZZ)
    target_compile_options(ZyrCompileOptions INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(ZYR_COVERAGE)
    target_compile_options(ZyrCompileOptions INTERFACE --coverage)
    target_link_options(ZyrCompileOptions INTERFACE --coverage)
endif()
