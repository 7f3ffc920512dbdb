# sources.cmake - the prosodic hierarchy over the SSML tree.
target_sources(UtilsObjects PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/focus_phrase.cpp
  ${CMAKE_CURRENT_LIST_DIR}/phone_split.cpp
  ${CMAKE_CURRENT_LIST_DIR}/phrase_build.cpp
  ${CMAKE_CURRENT_LIST_DIR}/pronunciation.cpp
)
