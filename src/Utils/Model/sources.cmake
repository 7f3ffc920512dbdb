# sources.cmake - the utterance model: values, feature sets, items, relations, utterances, feature paths.
target_sources(UtilsObjects PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/features.cpp
  ${CMAKE_CURRENT_LIST_DIR}/features_copy_print.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ffeature.cpp
  ${CMAKE_CURRENT_LIST_DIR}/item_contents.cpp
  ${CMAKE_CURRENT_LIST_DIR}/item_features.cpp
  ${CMAKE_CURRENT_LIST_DIR}/item_links.cpp
  ${CMAKE_CURRENT_LIST_DIR}/relation.cpp
  ${CMAKE_CURRENT_LIST_DIR}/utterance.cpp
  ${CMAKE_CURRENT_LIST_DIR}/val_compare.cpp
  ${CMAKE_CURRENT_LIST_DIR}/val_constants.c
  ${CMAKE_CURRENT_LIST_DIR}/val_list.cpp
  ${CMAKE_CURRENT_LIST_DIR}/val_make.cpp
  ${CMAKE_CURRENT_LIST_DIR}/val_print.cpp
  ${CMAKE_CURRENT_LIST_DIR}/val_read.cpp
  ${CMAKE_CURRENT_LIST_DIR}/val_release.cpp
  ${CMAKE_CURRENT_LIST_DIR}/val_types.cpp
)
