# SPDX-License-Identifier: Apache-2.0
# The few rules that every target of the project shares.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# Programs and what they read lie as they do once installed, so both find their resources alike.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(QF_SHARE_DIR ${CMAKE_BINARY_DIR}/share)

find_program(QF_CCACHE ccache)
if(QF_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${QF_CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor)
if(CMAKE_COMPILE_WARNING_AS_ERROR AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  # GCC sees faults in the standard library where there are none.
  add_compile_options(-Wno-error=array-bounds -Wno-error=stringop-overflow -Wno-error=restrict)
endif()
if(QF_SANITIZE)
  add_compile_options(-fsanitize=${QF_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${QF_SANITIZE})
endif()

# A folder takes part as soon as it has something to build.
function(qf_add_floor folder)
  if(EXISTS ${CMAKE_SOURCE_DIR}/${folder}/CMakeLists.txt)
    add_subdirectory(${CMAKE_SOURCE_DIR}/${folder})
  endif()
endfunction()

# A static library of one folder. Headers are included by their path from the project's root.
function(qf_add_library target)
  add_library(${target} STATIC ${ARGN})
  target_include_directories(${target} PUBLIC ${CMAKE_SOURCE_DIR})
endfunction()

# Most of the time that a Qt source takes to compile goes into Qt's headers: this compiles the usual ones once for
# each target. Sources still include what they use; clang-tidy reads them without this.
function(qf_precompile_qt target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WIDGETS;DBUS" "" "")
  set(headers <algorithm> <functional> <map> <memory> <optional> <string> <utility> <vector> <QTimer>)
  if(arg_WIDGETS)
    list(APPEND headers <QApplication> <QBoxLayout> <QLabel> <QLineEdit> <QMenu> <QPainter> <QPushButton>)
  endif()
  if(arg_DBUS)
    list(APPEND headers <QDBusArgument> <QDBusConnection> <QDBusMessage> <QDBusPendingCallWatcher>)
  endif()
  target_precompile_headers(${target} PRIVATE ${headers})
endfunction()

# Tests are compiled without optimisation: they run for seconds, and compile in half the time.
function(qf_add_test_program target)
  add_executable(${target} ${ARGN})
  target_compile_options(${target} PRIVATE -O0)
endfunction()

# A GoogleTest program whose cases are registered one by one.
function(qf_add_test target)
  qf_add_test_program(${target} ${ARGN})
  target_link_libraries(${target} PRIVATE GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${target} TEST_PREFIX ${target}. DISCOVERY_TIMEOUT 60)
endfunction()

# A GoogleTest program that needs a desktop: run whole, inside a private headless one. It brings its
# own main where Qt's core application is not enough, and may ask to bring its own trays or window
# manager.
function(qf_add_desktop_test target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WITHOUT_TRAY;WITHOUT_WINDOW_MANAGER" "" "")
  qf_add_test_program(${target} ${arg_UNPARSED_ARGUMENTS})
  target_link_libraries(${target} PRIVATE qf_desktop_test_main)
  set(option)
  if(arg_WITHOUT_WINDOW_MANAGER)
    set(option --no-window-manager)
  elseif(arg_WITHOUT_TRAY)
    set(option --no-tray)
  endif()
  add_test(NAME ${target} COMMAND ${CMAKE_SOURCE_DIR}/tests/desktop/desktop-session ${option}
    $<TARGET_FILE:${target}>)
  set_tests_properties(${target} PROPERTIES TIMEOUT 400 LABELS desktop)
endfunction()
