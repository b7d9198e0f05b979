# How the house is built: one static library per floor of src/floors.txt, one test program per folder
# of tests/. Both are compiled as a few large units, over one precompiled header.

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

find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM)
  add_link_options(-fuse-ld=mold)
endif()

# Several sources are compiled as one, which saves reading the headers anew for each. So names in the
# unnamed namespaces of one folder must differ. Few enough go together that a changed source costs
# seconds.
set(QUILLARY_UNITY_SIZE 8)

# GCC 12 warns of overlapping copies in every "literal" + std::string (its bug 105651).
add_library(quillary_warnings INTERFACE)
target_compile_options(quillary_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wno-restrict -Werror -fpch-preprocess -Winvalid-pch)

# The precompiled headers: what nearly every source of the house reads anyway.
function(quillary_precompile name)
  cmake_parse_arguments(ARG "" "" "HEADERS;USES" ${ARGN})
  file(WRITE ${CMAKE_BINARY_DIR}/${name}.cpp "// Carries the precompiled header.\n")
  add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE ${ARG_USES} quillary_warnings)
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()
set(QUILLARY_COMMON_HEADERS
  <QDate> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QString> <QStringList>
  <algorithm> <array> <functional> <map> <memory> <optional> <set> <string> <unordered_map>
  <variant> <vector>)
quillary_precompile(quillary_pch_core HEADERS ${QUILLARY_COMMON_HEADERS} USES Qt6::Core)
quillary_precompile(quillary_pch_widgets
  HEADERS ${QUILLARY_COMMON_HEADERS} <QtWidgets/QtWidgets> USES Qt6::Widgets)

# Lets a target be compiled as a few large units over the given precompiled header.
function(quillary_compile_quickly target header)
  set_target_properties(${target} PROPERTIES
    UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${QUILLARY_UNITY_SIZE})
  target_precompile_headers(${target} REUSE_FROM ${header})
endfunction()

# The library of one floor: the sources of its folder and below it, but for those of other floors.
function(quillary_floor folder widgets uses allFolders)
  string(REPLACE "/" "_" name quillary_${folder})
  set(at ${CMAKE_SOURCE_DIR}/src/${folder})
  if(NOT EXISTS ${at})
    return()
  endif()
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${at}/*.cpp ${at}/*.h ${at}/*.qrc)
  foreach(other IN LISTS allFolders)
    if(other MATCHES "^${folder}/")
      list(FILTER sources EXCLUDE REGEX "/src/${other}/")
    endif()
  endforeach()
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PRIVATE quillary_warnings)
  foreach(use IN LISTS uses)
    string(REPLACE "/" "_" used quillary_${use})
    if(TARGET ${used})
      target_link_libraries(${name} PUBLIC ${used})
    endif()
  endforeach()
  if(widgets)
    target_link_libraries(${name} PUBLIC Qt6::Widgets)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
    quillary_compile_quickly(${name} quillary_pch_widgets)
  elseif(folder MATCHES "^pdf")
    # Stands without Qt: on the standard library alone, but for the faces.
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON)
  else()
    target_link_libraries(${name} PUBLIC Qt6::Core)
    quillary_compile_quickly(${name} quillary_pch_core)
  endif()
endfunction()

# quillary_floors(<file>): makes the libraries that the file declares.
function(quillary_floors file)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  file(STRINGS ${file} lines REGEX "^[^#].*:")
  set(folders ${lines})
  list(TRANSFORM folders REPLACE "[ :].*" "")
  foreach(line IN LISTS lines)
    string(REGEX MATCH "^([^ :]+)( widgets)?: *(.*)$" matched "${line}")
    set(folder ${CMAKE_MATCH_1})
    set(widgets ${CMAKE_MATCH_2})
    string(REPLACE " " ";" uses "${CMAKE_MATCH_3}")
    quillary_floor(${folder} "${widgets}" "${uses}" "${folders}")
  endforeach()
endfunction()

# quillary_test(<name> [LABELS <label>...] [USES <target>...])
# Builds one test program from the .cpp files of the current folder and registers each of its cases
# with CTest. Every test runs offscreen with its own home folder, so no test sees the user's own.
function(quillary_test name)
  cmake_parse_arguments(ARG "WIDGETS" "" "LABELS;USES" ${ARGN})
  if(NOT ARG_LABELS)
    set(ARG_LABELS unit)
  endif()
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  add_executable(test_${name} ${sources})
  target_include_directories(test_${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(test_${name} PRIVATE
    QUILLARY_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data"
    QUILLARY_BIN="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  target_link_libraries(test_${name} PRIVATE ${ARG_USES} GTest::gtest GTest::gtest_main quillary_warnings)
  if(ARG_WIDGETS)
    # Qt's test module defines the folder of each test, so its header cannot be shared.
    set_target_properties(test_${name} PROPERTIES
      UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${QUILLARY_UNITY_SIZE})
    target_precompile_headers(test_${name} PRIVATE
      ${QUILLARY_COMMON_HEADERS} <gtest/gtest.h> <QtWidgets/QtWidgets>)
  else()
    target_link_libraries(test_${name} PRIVATE Qt6::Core)
    quillary_compile_quickly(test_${name} quillary_pch_tests)
  endif()
  include(GoogleTest)
  gtest_discover_tests(test_${name}
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS "${ARG_LABELS}" TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QUILLARY_HOME=${CMAKE_BINARY_DIR}/test-home")
endfunction()
