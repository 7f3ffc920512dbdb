# sources.cmake - the NLP dictionary and word segmentation.
target_sources(UtilsObjects PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/best_path.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dict_break.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dict_check.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dict_image.cpp
  ${CMAKE_CURRENT_LIST_DIR}/lattice_pool.cpp
  ${CMAKE_CURRENT_LIST_DIR}/model_holder.cpp
  ${CMAKE_CURRENT_LIST_DIR}/word_filter.cpp
)

# Scores are single precision in the stated operation order on every
# target: no fused multiply-add in the dequantisation or the path sums.
set_source_files_properties(
  ${CMAKE_CURRENT_LIST_DIR}/dict_image.cpp ${CMAKE_CURRENT_LIST_DIR}/dict_break.cpp
  ${CMAKE_CURRENT_LIST_DIR}/best_path.cpp
  PROPERTIES COMPILE_OPTIONS -ffp-contract=off)
