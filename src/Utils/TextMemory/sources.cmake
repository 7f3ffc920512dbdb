# sources.cmake - the text and memory routines: allocators, private heap, strings, Unicode, CStr.
target_sources(UtilsObjects PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/cstr.cpp
  ${CMAKE_CURRENT_LIST_DIR}/cstr_layout.cpp
  ${CMAKE_CURRENT_LIST_DIR}/first_difference.cpp
  ${CMAKE_CURRENT_LIST_DIR}/local_alloc.cpp
  ${CMAKE_CURRENT_LIST_DIR}/private_heap.cpp
  ${CMAKE_CURRENT_LIST_DIR}/string_case.cpp
  ${CMAKE_CURRENT_LIST_DIR}/string_compare.cpp
  ${CMAKE_CURRENT_LIST_DIR}/string_copy.cpp
  ${CMAKE_CURRENT_LIST_DIR}/string_numbers.cpp
  ${CMAKE_CURRENT_LIST_DIR}/string_replace.cpp
  ${CMAKE_CURRENT_LIST_DIR}/string_search.cpp
  ${CMAKE_CURRENT_LIST_DIR}/string_tokenize.cpp
  ${CMAKE_CURRENT_LIST_DIR}/unicode_ncr.cpp
  ${CMAKE_CURRENT_LIST_DIR}/utf16_to_utf8.cpp
  ${CMAKE_CURRENT_LIST_DIR}/utf8_to_utf16.cpp
  ${CMAKE_CURRENT_LIST_DIR}/widen.cpp
)
