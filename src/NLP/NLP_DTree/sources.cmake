# sources.cmake - decision trees: tree images, label-field questions,
# classification trees over values, and the image check.
target_sources(UtilsObjects PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/cart.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dtree.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dtree_check.cpp
  ${CMAKE_CURRENT_LIST_DIR}/feature_label2.cpp
  ${CMAKE_CURRENT_LIST_DIR}/field_text.cpp
  ${CMAKE_CURRENT_LIST_DIR}/pattern_match.cpp
)
