# sources.cmake - text normalisation: the rule-set replacer and the say-as converter.
target_sources(UtilsObjects PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/hconverter_class.cpp
  ${CMAKE_CURRENT_LIST_DIR}/hconverter_exports.cpp
  ${CMAKE_CURRENT_LIST_DIR}/hreplacer_class.cpp
  ${CMAKE_CURRENT_LIST_DIR}/hreplacer_exports.cpp
  ${CMAKE_CURRENT_LIST_DIR}/node_template.cpp
  ${CMAKE_CURRENT_LIST_DIR}/replace_rule.cpp
  ${CMAKE_CURRENT_LIST_DIR}/rule_pass.cpp
  ${CMAKE_CURRENT_LIST_DIR}/rule_set_reader.cpp
  ${CMAKE_CURRENT_LIST_DIR}/say_as_cardinal.cpp
  ${CMAKE_CURRENT_LIST_DIR}/template_parser.cpp
  ${CMAKE_CURRENT_LIST_DIR}/text_collector.cpp
)
