# Library.cmake - the libUtils target: the sources each subsystem folder lists,
# hidden visibility, and a linker version script that exports exactly the
# names in src/exports/.

# Our own code is held to warnings-as-errors; third-party headers are system headers.
set(UTILS_WARNINGS -Wall -Wextra -Werror -Wno-unused-parameter)

# The subsystem folders, lowest layer first. Each lists its own sources (and
# any build-time generator) in its sources.cmake; nothing is globbed.
set(UTILS_SUBSYSTEMS
  Utils/TextMemory
  Utils/Model
  Utils/Markup
  Utils/Phonetics
  Utils/Hierarchy
  NLP/NLP_TextNorm
  NLP/NLP_DTree
  Hmm
  NLP/NLP_Dict
  NLP/NLP_PhraseBreak
  NLP/NLP_Stress)
file(GLOB UTILS_EXPORT_LISTS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/exports/*.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${UTILS_EXPORT_LISTS})

# One list of exported names, built from the per-family files.
set(UTILS_EXPORTS "")
foreach(list_file IN LISTS UTILS_EXPORT_LISTS)
  file(STRINGS ${list_file} names REGEX "^[A-Za-z_][A-Za-z0-9_]*$")
  list(APPEND UTILS_EXPORTS ${names})
endforeach()
list(REMOVE_DUPLICATES UTILS_EXPORTS)
list(SORT UTILS_EXPORTS)
string(JOIN "\n" UTILS_EXPORTS_TEXT ${UTILS_EXPORTS})
file(WRITE ${CMAKE_BINARY_DIR}/exports.txt "${UTILS_EXPORTS_TEXT}\n")

# Everything not listed, including the archive's other symbols and the C++
# runtime's template instances, stays local.
string(JOIN ";\n    " UTILS_EXPORTS_MAP ${UTILS_EXPORTS})
file(WRITE ${CMAKE_BINARY_DIR}/libUtils.map
     "{\n  global:\n    ${UTILS_EXPORTS_MAP};\n  local: *;\n};\n")

# The sources are compiled once and packed twice: as libUtils.so, and as a
# static archive for the tests of internal pieces and the fuzz harnesses.
add_library(UtilsObjects OBJECT)
target_include_directories(UtilsObjects
  PUBLIC  ${CMAKE_SOURCE_DIR}/include
  PRIVATE ${CMAKE_SOURCE_DIR}/src ${RE2_INCLUDE_DIR} ${MXML_INCLUDE_DIR})
target_compile_options(UtilsObjects PRIVATE ${UTILS_WARNINGS})
target_compile_definitions(UtilsObjects PRIVATE UTILS_BUILDING)
set_target_properties(UtilsObjects PROPERTIES
  POSITION_INDEPENDENT_CODE ON
  C_VISIBILITY_PRESET hidden
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON)

foreach(subsystem IN LISTS UTILS_SUBSYSTEMS)
  include(${CMAKE_SOURCE_DIR}/src/${subsystem}/sources.cmake)
endforeach()

add_library(Utils SHARED $<TARGET_OBJECTS:UtilsObjects>)
add_library(Utils::Utils ALIAS Utils)
target_include_directories(Utils PUBLIC
  $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/include>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/utils>)
# libUtils.so.1: the major version changes only when the interface does.
set_target_properties(Utils PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  LINK_DEPENDS ${CMAKE_BINARY_DIR}/libUtils.map)
target_link_options(Utils PRIVATE -Wl,--version-script=${CMAKE_BINARY_DIR}/libUtils.map)
# Every symbol the library needs must resolve at link time; clang's fuzzing
# runtime, though, is linked into the harness, not into shared libraries.
if(NOT UTILS_FUZZ)
  target_link_options(Utils PRIVATE -Wl,--no-undefined)
endif()
target_link_libraries(Utils PRIVATE
  -Wl,--whole-archive ${MXML_STATIC_LIBRARY} -Wl,--no-whole-archive
  ${RE2_LIBRARY} Threads::Threads)

add_library(UtilsStatic STATIC $<TARGET_OBJECTS:UtilsObjects>)
target_include_directories(UtilsStatic PUBLIC ${CMAKE_SOURCE_DIR}/include ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(UtilsStatic PUBLIC ${MXML_STATIC_LIBRARY} ${RE2_LIBRARY} Threads::Threads)
