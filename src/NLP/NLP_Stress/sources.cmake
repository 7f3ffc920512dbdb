# sources.cmake - sentence stress over the prosodic hierarchy.
target_sources(UtilsObjects PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/sentence_stress.cpp
)
