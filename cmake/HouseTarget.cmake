# SPDX-License-Identifier: MIT
option(TAVIK_WERROR "Treat compiler warnings as errors" OFF)
set(TAVIK_SANITIZE "" CACHE STRING "Comma list handed to -fsanitize")

add_library(tavik_house INTERFACE)
target_compile_features(tavik_house INTERFACE cxx_std_20)
# Some libraries ask for it in what uses them; every file is to be compiled alike.
target_compile_options(tavik_house INTERFACE -pthread)
target_compile_definitions(tavik_house INTERFACE QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
  QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
# Designated initializers leave out on purpose what keeps its default.
target_compile_options(tavik_house INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast
  -Woverloaded-virtual -Wnon-virtual-dtor -Wundef -Wcast-align -Wformat=2 -Wimplicit-fallthrough -Wextra-semi -Wno-missing-field-initializers
  $<$<BOOL:${TAVIK_WERROR}>:-Werror>)
# A hundred programs are linked for the tests; this linker takes a third of the time.
find_program(TAVIK_GOLD ld.gold)
if(TAVIK_GOLD AND NOT TAVIK_SANITIZE)
  target_link_options(tavik_house INTERFACE -fuse-ld=gold)
endif()
if(TAVIK_SANITIZE)
  target_compile_options(tavik_house INTERFACE -fsanitize=${TAVIK_SANITIZE} -fno-omit-frame-pointer)
  target_link_options(tavik_house INTERFACE -fsanitize=${TAVIK_SANITIZE})
endif()

# Half the size, so that much less of the program is in memory, and no slower where it was measured. A room that says FAST
# is compiled for speed.
set(TAVIK_ROOM_OPTIONS)
if(NOT TAVIK_SANITIZE)
  set(TAVIK_ROOM_OPTIONS $<$<CONFIG:RelWithDebInfo>:-Os>)
endif()
# What is tested is optimised; the tests themselves only cost time to build.
set(TAVIK_TEST_OPTIONS $<$<CONFIG:RelWithDebInfo>:-O0> $<$<CONFIG:RelWithDebInfo>:-g1>)
include(HousePrecompiled)

# A room is a static library. It links only the rooms it may know, so an edge that is not
# written here does not link, and each of its headers is compiled alone.
function(tavik_room name)
  cmake_parse_arguments(ROOM "FAST" "" "HEADERS;SOURCES;USES;QT" ${ARGN})
  add_library(${name} STATIC ${ROOM_SOURCES})
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/Sources FILES ${ROOM_HEADERS})
  target_link_libraries(${name} PUBLIC ${ROOM_USES} ${ROOM_QT} PRIVATE tavik_house)
  set_target_properties(${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
  if(NOT ROOM_FAST)
    target_compile_options(${name} PRIVATE ${TAVIK_ROOM_OPTIONS})
    tavik_read_precompiled(${name} rooms)
  endif()
endfunction()
