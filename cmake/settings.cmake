# What every target of the project is built with.

option(DEPCALC_TESTS "Build the tests" ON)
option(DEPCALC_BENCH "Build the benchmarks" OFF)
option(DEPCALC_FUZZERS "Build the fuzz targets with libFuzzer (needs clang)" OFF)
option(DEPCALC_PRECOMPILE "Precompile the headers that most sources include" OFF)
option(DEPCALC_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Paths are taken relative to this checkout, so that every other checkout can use the results.
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
    "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${CCACHE_PROGRAM}")
endif()

add_library(depcalc_settings INTERFACE)
target_include_directories(depcalc_settings INTERFACE "${PROJECT_SOURCE_DIR}/cmake/gates")
# Money depends on every bit of a double: no contraction, no fast math. Warnings are errors in the
# presets alone: another compiler's new warning must not stop a packager's build.
target_compile_options(depcalc_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -ffp-contract=off
  # gcc 12 sees overlaps in "a" + std::string that are not there (its bug 105329).
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)

if(DEPCALC_SANITIZE)
  target_compile_options(depcalc_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(depcalc_settings INTERFACE -fsanitize=address,undefined)
endif()
if(DEPCALC_FUZZERS)
  target_compile_options(depcalc_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(CMAKE_CXX_CLANG_TIDY)
  # What Qt's moc writes into the build is not ours to mend; clang-tidy wants one check at least.
  file(WRITE "${PROJECT_BINARY_DIR}/.clang-tidy" "Checks: '-*,misc-definitions-in-headers'\n")
endif()

# depcalc_precompiled(TARGET HEADERS …): a target whose headers others read precompiled, by
# depcalc_precompiled_as. A build without them shows that every source includes what it uses.
function(depcalc_precompiled target)
  if(DEPCALC_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

function(depcalc_precompiled_as target other)
  if(DEPCALC_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM ${other})
  endif()
endfunction()

# What the rooms of a folder read is depcalc_room_headers: the standard library's, unless the folder
# sets another target, or none.
set(depcalc_std_header_list <algorithm> <array> <cstdint> <functional> <map> <memory> <optional>
  <string> <string_view> <utility> <variant> <vector>)
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/precompiled.cpp" CONTENT "")
add_library(depcalc_std_headers STATIC "${PROJECT_BINARY_DIR}/precompiled.cpp")
target_link_libraries(depcalc_std_headers PRIVATE depcalc_settings)
depcalc_precompiled(depcalc_std_headers ${depcalc_std_header_list})
set(depcalc_room_headers depcalc_std_headers)
