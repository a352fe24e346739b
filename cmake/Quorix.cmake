# Shared CMake helpers.

include(GNUInstallDirs)

# Adds a folder only once it has a CMakeLists.txt, so a tree that is still
# growing configures cleanly.
# QUORIX_SKIP_SUBDIRS (a list of folder names, e.g. "msgmgr;tools") leaves
# folders out of a developer's build while their work is unfinished.
function(quorix_add_subdirectory dir)
  if(dir IN_LIST QUORIX_SKIP_SUBDIRS)
    message(STATUS "Skipping ${dir} (QUORIX_SKIP_SUBDIRS)")
    return()
  endif()
  if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${dir}/CMakeLists.txt")
    add_subdirectory(${dir})
  endif()
endfunction()

# With Ninja, AUTOMOC reruns only when a header it already scanned changes, so
# a Q_OBJECT header that a glob has just found is never mocced and the link
# fails on its vtable. When a target's file list changes, drop its AUTOMOC
# stamp so the next build scans again.
function(quorix_refresh_automoc target)
  string(SHA1 list_hash "${ARGN}")
  set(stamp "${CMAKE_CURRENT_BINARY_DIR}/${target}_sources.sha1")
  set(old_hash "")
  if(EXISTS "${stamp}")
    file(READ "${stamp}" old_hash)
  endif()
  if(NOT old_hash STREQUAL list_hash)
    file(REMOVE "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/timestamp")
    file(WRITE "${stamp}" "${list_hash}")
  endif()
endfunction()

# A shared platform library: lands in lib/, installs to lib/.
function(quorix_add_platform_library target)
  add_library(${target} SHARED ${ARGN})
  quorix_refresh_automoc(${target} ${ARGN})
  set_target_properties(${target} PROPERTIES
    LIBRARY_OUTPUT_DIRECTORY "${QUORIX_LIB_DIR}"
    INSTALL_RPATH "$ORIGIN")
  target_include_directories(${target} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
  install(TARGETS ${target} LIBRARY DESTINATION lib)
endfunction()

# Where a GUI plugin lands, and how it finds the platform libraries: one
# folder up.
function(_quorix_gui_plugin_layout target)
  set_target_properties(${target} PROPERTIES
    PREFIX "lib"
    LIBRARY_OUTPUT_DIRECTORY "${QUORIX_PLUGIN_DIR}"
    BUILD_RPATH "$ORIGIN/.."
    INSTALL_RPATH "$ORIGIN/..")
  install(TARGETS ${target} LIBRARY DESTINATION lib/plugins-gui)
endfunction()

# A Qt plugin module in lib/plugins-gui/.
function(quorix_add_gui_plugin target)
  add_library(${target} MODULE ${ARGN})
  _quorix_gui_plugin_layout(${target})
endfunction()

# A Qt plugin that other plugins may also link against: the same file in the
# same place, but a shared library (soname lib<target>.so) rather than a
# module. The host loads it as a plugin first; a plugin linking it then binds
# to that very copy, since the dynamic loader matches it by soname.
function(quorix_add_linkable_gui_plugin target)
  add_library(${target} SHARED ${ARGN})
  _quorix_gui_plugin_layout(${target})
endfunction()

# A QtTest program run through CTest, headless.
#   quorix_add_qtest(NAME name SOURCES a.cpp ... LIBS lib ... [LABELS l ...])
function(quorix_add_qtest)
  cmake_parse_arguments(T "" "NAME;TIMEOUT" "SOURCES;LIBS;LABELS" ${ARGN})
  add_executable(${T_NAME} ${T_SOURCES})
  set_target_properties(${T_NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
  target_link_libraries(${T_NAME} PRIVATE Qt5::Test ${T_LIBS})
  add_test(NAME ${T_NAME} COMMAND ${T_NAME})
  if(NOT T_TIMEOUT)
    set(T_TIMEOUT 120)
  endif()
  set(env "QT_QPA_PLATFORM=offscreen;DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent/quorix-test-bus;QUORIX_LOG_LEVEL=1;QUORIX_ROOT=${CMAKE_BINARY_DIR};QUORIX_SOURCE_DIR=${CMAKE_SOURCE_DIR};QUORIX_TESTDATA=${CMAKE_SOURCE_DIR}/../shared/testdata")
  if(ENABLE_SANITIZERS)
    # Any report fails the test. Full stacks on malloc, so that the
    # suppressions can name where in Qt a leak starts. Reports also go to
    # files, one per process: a host started by a test has no terminal.
    set(reports "${CMAKE_BINARY_DIR}/sanitizer-reports")
    list(APPEND env
      "ASAN_OPTIONS=fast_unwind_on_malloc=0:detect_leaks=1:abort_on_error=0:log_path=${reports}/asan"
      "UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1:log_path=${reports}/ubsan"
      "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/lsan.supp:print_suppressions=0")
  endif()
  set_tests_properties(${T_NAME} PROPERTIES TIMEOUT ${T_TIMEOUT} ENVIRONMENT "${env}")
  if(T_LABELS)
    set_tests_properties(${T_NAME} PROPERTIES LABELS "${T_LABELS}")
  endif()
endfunction()
