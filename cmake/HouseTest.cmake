# SPDX-License-Identifier: MIT

# A QtTest program with a scratch home of its own. LABEL is "unit" or "widgets"; both run on the
# offscreen platform, so no test here needs a display.
function(tavik_test name)
  cmake_parse_arguments(TEST "BUS" "LABEL" "SOURCES;USES" ${ARGN})
  if(NOT TEST_LABEL)
    set(TEST_LABEL unit)
  endif()
  add_executable(${name} ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE ${TEST_USES} TavikTestSupport Qt6::Test tavik_house)
  target_compile_options(${name} PRIVATE ${TAVIK_TEST_OPTIONS})
  tavik_read_precompiled(${name} tests)
  # BUS: with a session bus of its own.
  add_test(NAME ${name} COMMAND "$<$<BOOL:${TEST_BUS}>:dbus-run-session;-->" $<TARGET_FILE:${name}> COMMAND_EXPAND_LISTS)
  set(scratch ${CMAKE_BINARY_DIR}/scratch/${name})
  file(MAKE_DIRECTORY ${scratch})
  set_tests_properties(${name} PROPERTIES LABELS ${TEST_LABEL} ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen;HOME=${scratch};XDG_CONFIG_HOME=${scratch}/config;XDG_DATA_HOME=${scratch}/data;XDG_CACHE_HOME=${scratch}/cache;XDG_DATA_DIRS=${scratch}/share;LC_ALL=C.UTF-8;NO_AT_BRIDGE=1;UBSAN_OPTIONS=halt_on_error=1")
endfunction()
