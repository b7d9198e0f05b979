# How every folder of the house is built: one static library per folder, with the libraries it may
# use named where it is declared. tools/check holds the includes against the same order.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # Precompiled headers defeat ccache unless it is told to overlook their defines and times.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} ${CCACHE_PROGRAM})
endif()

# GCC 12 warns of overlapping copies in every "literal" + std::string (its bug 105651).
add_library(quillary_warnings INTERFACE)
target_compile_options(quillary_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wno-restrict -Werror -fpch-preprocess)

# quillary_library(<name> [WIDGETS] [USES <target>...])
# Builds quillary_<name> from the .cpp and .h files of the current folder. A file laid into the
# folder belongs to its library; nothing has to be registered by hand.
function(quillary_library name)
  cmake_parse_arguments(ARG "WIDGETS" "" "USES;EXTRA" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h ${ARG_EXTRA})
  add_library(quillary_${name} STATIC ${sources})
  target_include_directories(quillary_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(quillary_${name} PUBLIC ${ARG_USES} PRIVATE quillary_warnings)
  if(ARG_WIDGETS)
    set_target_properties(quillary_${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(quillary_${name} PUBLIC Qt6::Widgets)
    target_precompile_headers(quillary_${name} PRIVATE <QtWidgets/QtWidgets>)
  endif()
endfunction()

# quillary_test(<name> [LABELS <label>...] [USES <target>...])
# Builds one test program from the .cpp files of the current folder and registers each of its cases
# with CTest. Every test runs offscreen with its own home folder, so no test sees the user's own.
function(quillary_test name)
  cmake_parse_arguments(ARG "" "" "LABELS;USES" ${ARGN})
  if(NOT ARG_LABELS)
    set(ARG_LABELS unit)
  endif()
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h ${ARG_EXTRA})
  add_executable(test_${name} ${sources})
  target_include_directories(test_${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(test_${name} PRIVATE
    QUILLARY_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data"
    QUILLARY_BIN="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  target_link_libraries(test_${name} PRIVATE ${ARG_USES} GTest::gtest GTest::gtest_main quillary_warnings)
  include(GoogleTest)
  gtest_discover_tests(test_${name}
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS "${ARG_LABELS}" TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QUILLARY_HOME=${CMAKE_BINARY_DIR}/test-home")
endfunction()
