# sources.cmake - SSML markup: tag schema, load and save, walks, inherited attributes, AddTag.
target_sources(UtilsObjects PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/add_tag.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ancestor_walk.cpp
  ${CMAKE_CURRENT_LIST_DIR}/between_mark.cpp
  ${CMAKE_CURRENT_LIST_DIR}/inherited_att.cpp
  ${CMAKE_CURRENT_LIST_DIR}/move_tree.cpp
  ${CMAKE_CURRENT_LIST_DIR}/mxml_safe.cpp
  ${CMAKE_CURRENT_LIST_DIR}/scratch_text.cpp
  ${CMAKE_CURRENT_LIST_DIR}/wide_value.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ssml_load.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ssml_save.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ssml_to_xml.cpp
  ${CMAKE_CURRENT_LIST_DIR}/tag_list.cpp
  ${CMAKE_CURRENT_LIST_DIR}/tag_schema.cpp
  ${CMAKE_CURRENT_LIST_DIR}/utt_walk.cpp
)
