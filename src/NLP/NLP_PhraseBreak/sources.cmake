# sources.cmake - prosodic-word and phrase breaks.
target_sources(UtilsObjects PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/phrase_break.cpp
)
