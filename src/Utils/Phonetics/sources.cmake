# sources.cmake - the IPA inventory, context features and labels.
target_sources(UtilsObjects PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/feature_label.cpp
  ${CMAKE_CURRENT_LIST_DIR}/feature_path.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ipa_inventory.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ipa_predicates.cpp
  ${CMAKE_CURRENT_LIST_DIR}/structural_features.cpp
)
