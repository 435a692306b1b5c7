# One folder of src is one target. Headers are named from src ("store/database.h"), and a target may name
# those of the layers that it links: cmake/includes.cmake reads its sources before they are compiled, and
# an include against the direction of the house stops the build.

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

# mirav_link(<target> [FOLDER <own folder of src>] [LINK <targets>...] [USES <targets>...])
#
# Links the target, and has its includes checked. What links it sees the layers under LINK, too, but not
# those under USES.
function(mirav_link target)
  cmake_parse_arguments(ARG "" "FOLDER" "LINK;USES" ${ARGN})
  target_include_directories(${target} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${target} PUBLIC ${ARG_LINK} PRIVATE ${ARG_USES} mirav_warnings mirav_hardening)

  set(passes_on ${ARG_FOLDER})
  foreach(linked ${ARG_LINK})
    get_target_property(folders ${linked} MIRAV_SEEN)
    if(folders)
      list(APPEND passes_on ${folders})
    endif()
  endforeach()
  list(REMOVE_DUPLICATES passes_on)
  set_target_properties(${target} PROPERTIES MIRAV_SEEN "${passes_on}")
  set(sees ${passes_on})
  foreach(linked ${ARG_USES})
    get_target_property(folders ${linked} MIRAV_SEEN)
    if(folders)
      list(APPEND sees ${folders})
    endif()
  endforeach()

  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.(cpp|h)$")
  list(TRANSFORM sources PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ REGEX "^[^/]")
  set(checked ${CMAKE_BINARY_DIR}/includes/${target})
  add_custom_command(OUTPUT ${checked}
    COMMAND ${CMAKE_COMMAND} "-DSOURCES=${sources}" "-DSEES=${sees}" -DWHO=${target} -DDONE=${checked}
            -P ${CMAKE_SOURCE_DIR}/cmake/includes.cmake
    DEPENDS ${sources} ${CMAKE_SOURCE_DIR}/cmake/includes.cmake
    COMMENT "Reading the includes of ${target}" VERBATIM)
  # A target of its own waits for no library, so that folders are compiled side by side.
  add_custom_target(${target}_includes DEPENDS ${checked})
  add_dependencies(${target} ${target}_includes)
endfunction()

# mirav_layer(<target> <folder of src> [LINK <targets>...] [USES <targets>...])
function(mirav_layer target folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp ${CMAKE_SOURCE_DIR}/src/${folder}/*.h)
  add_library(${target} STATIC ${sources})
  set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX)
  mirav_link(${target} FOLDER ${folder} ${ARGN})
  if(NOT target STREQUAL qt_host)  # its settings are the toolkit's
    mirav_precompile(layers ${target})
  endif()
endfunction()

# mirav_program(<target> <sources>... LINK <targets>...)
function(mirav_program target)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  add_executable(${target} ${ARG_UNPARSED_ARGUMENTS})
  mirav_link(${target} LINK ${ARG_LINK})
endfunction()

# mirav_tests(<folder of tests> LINK <targets>...): one GTest binary per folder
function(mirav_tests folder)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${folder}/*.cpp ${CMAKE_SOURCE_DIR}/tests/${folder}/*.h)
  if(NOT sources)
    return()
  endif()
  string(REPLACE "/" "_" name test_${folder})
  mirav_program(${name} ${sources} LINK ${ARG_LINK} GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  if(NOT qt_host IN_LIST ARG_LINK)
    mirav_precompile(tests ${name} <gtest/gtest.h>)
  endif()
  # Oracles stand beside the tests that call them.
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}/tests/${folder}
                       PROPERTIES TIMEOUT 120)
endfunction()
