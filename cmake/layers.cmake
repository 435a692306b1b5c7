# One folder of src is one target. A target sees only the headers of the layers
# that it links, so an include against the direction of the house does not build.

add_library(mirav_warnings INTERFACE)
target_compile_options(mirav_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow=local -Wconversion -Wno-missing-field-initializers -Wno-sign-conversion -Wnon-virtual-dtor -Werror
  # Fully optimised, g++ 12 warns of overlapping and of uninitialised strings that cannot be.
  $<$<CONFIG:Release>:-Wno-restrict>
  $<$<CONFIG:Release>:-Wno-maybe-uninitialized>)

# What nearly every source includes is read once, by the first target of a group, where the preset asks
# for it (MIRAV_PRECOMPILE). The first target has the fewest settings, so that its result fits the others.
# A build without it (release) proves that each source names what it needs.
set(common_headers <algorithm> <array> <chrono> <cmath> <cstdint> <filesystem> <functional> <map> <memory>
    <optional> <span> <stdexcept> <string> <string_view> <utility> <vector>)
function(mirav_precompile group target)
  get_property(first GLOBAL PROPERTY mirav_precompiled_${group})
  if(NOT MIRAV_PRECOMPILE)
    return()
  elseif(first)
    target_precompile_headers(${target} REUSE_FROM ${first})
  else()
    set_property(GLOBAL PROPERTY mirav_precompiled_${group} ${target})
    target_precompile_headers(${target} PRIVATE ${common_headers} ${ARGN})
  endif()
endfunction()

# mirav_layer(<target> <folder of src> LINK <targets>...)
function(mirav_layer target folder)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/*.h)
  add_library(${target} STATIC ${sources} ${headers})
  set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX)

  set(view ${CMAKE_BINARY_DIR}/layers/${target})
  get_filename_component(parent ${folder} DIRECTORY)
  file(MAKE_DIRECTORY ${view}/${parent})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${folder} ${view}/${folder} SYMBOLIC)
  target_include_directories(${target} PUBLIC ${view})
  target_link_libraries(${target} PUBLIC ${ARG_LINK} PRIVATE mirav_warnings)
  if(NOT target STREQUAL qt_host)  # its settings are the toolkit's
    mirav_precompile(layers ${target})
  endif()
endfunction()

# mirav_tests(<folder of tests> LINK <targets>...): one GTest binary per folder
function(mirav_tests folder)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  string(REPLACE "/" "_" name test_${folder})
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gtest_main mirav_warnings)
  if(NOT qt_host IN_LIST ARG_LINK)
    mirav_precompile(tests ${name} <gtest/gtest.h>)
  endif()
  # Oracles stand beside the tests that call them.
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}/tests/${folder}
                       PROPERTIES TIMEOUT 120)
endfunction()
include(GoogleTest)
