# SPDX-License-Identifier: MIT
option(TAVIK_PRECOMPILE "Read the common headers once for all files: a cold build takes about half the time" OFF)

# Off in daily work, where ccache does more and each file is to show that it names what it includes.
if(NOT TAVIK_PRECOMPILE)
  function(tavik_read_precompiled target kind)
  endfunction()
  return()
endif()

file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/Precompiled.cpp CONTENT "// Here to have the headers read.\n")

# The compiler takes precompiled headers only where options and macros are those they were written
# with. So the toolkit is not linked here, which would define what some of the rooms do not.
function(tavik_precompiled name)
  add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/Precompiled.cpp)
  set_target_properties(${name} PROPERTIES AUTOMOC OFF POSITION_INDEPENDENT_CODE ON)
  target_link_libraries(${name} PRIVATE tavik_house)
  foreach(module Core Gui Widgets)
    target_include_directories(${name} SYSTEM PRIVATE $<TARGET_PROPERTY:Qt6::${module},INTERFACE_INCLUDE_DIRECTORIES>)
  endforeach()
  target_compile_definitions(${name} PRIVATE QT_CORE_LIB $<$<NOT:$<CONFIG:Debug>>:QT_NO_DEBUG>)
  target_compile_options(${name} PRIVATE ${ARGN})
  target_precompile_headers(${name} PRIVATE
    <algorithm> <array> <chrono> <cmath> <functional> <map> <memory> <numbers> <optional> <ranges> <span> <utility> <variant> <vector>
    <QByteArray> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QList> <QObject> <QPointer> <QSet> <QString> <QStringList> <QUrl> <QVariant>
    <QAbstractButton> <QApplication> <QBoxLayout> <QColor> <QImage> <QKeyEvent> <QLabel> <QMouseEvent> <QPainter> <QPainterPath>
    <QPushButton> <QScreen> <QWidget> <QWindow>)
endfunction()

tavik_precompiled(tavik_precompiled_rooms ${TAVIK_ROOM_OPTIONS})
tavik_precompiled(tavik_precompiled_tests ${TAVIK_TEST_OPTIONS})

# KIND is "rooms" or "tests", after the options that `target` is compiled with.
function(tavik_read_precompiled target kind)
  target_precompile_headers(${target} REUSE_FROM tavik_precompiled_${kind})
  # The headers' inline functions use classes of widgets, and sanitizers ask for the types of all that is used.
  if(TAVIK_SANITIZE)
    target_link_libraries(${target} PRIVATE $<TARGET_FILE:Qt6::Widgets> $<TARGET_FILE:Qt6::Gui>)
  endif()
endfunction()
