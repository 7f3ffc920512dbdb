# dict.cmake - the dictionary commands of utts (compile-dict, segment) and
# the sample Chinese dictionary the build makes with them: the word list of
# Debian's python3-jieba turned into a lexicon (data/zh/jieba_lexicon.py),
# with the committed class list and class-pair table (data/zh/, estimated by
# data/zh/make_class_pairs.py).
target_sources(utts PRIVATE
  ${CMAKE_CURRENT_SOURCE_DIR}/utts/compile_dict_command.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/utts/dict_source.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/utts/line_command.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/utts/segment_command.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/utts/breaks_command.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/utts/analyze_command.cpp)

find_package(Python3 REQUIRED COMPONENTS Interpreter)
find_file(UTILS_JIEBA_DICT dict.txt
  PATHS /usr/lib/python3/dist-packages/jieba NO_DEFAULT_PATH
  DOC "python3-jieba's word list (Debian package python3-jieba)")
if(NOT UTILS_JIEBA_DICT)
  message(FATAL_ERROR "python3-jieba's dict.txt not found: install python3-jieba "
                      "(scripts/install-deps.sh) or set UTILS_JIEBA_DICT")
endif()

set(UTILS_ZH_DATA ${CMAKE_SOURCE_DIR}/data/zh)
set(UTILS_SAMPLE_LEXICON ${CMAKE_BINARY_DIR}/data/zh_lexicon.txt)
set(UTILS_SAMPLE_DICT ${CMAKE_BINARY_DIR}/data/zh.dic)
add_custom_command(
  OUTPUT ${UTILS_SAMPLE_LEXICON}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/data
  COMMAND ${Python3_EXECUTABLE} ${UTILS_ZH_DATA}/jieba_lexicon.py ${UTILS_JIEBA_DICT}
          ${UTILS_SAMPLE_LEXICON}
  DEPENDS ${UTILS_ZH_DATA}/jieba_lexicon.py ${UTILS_JIEBA_DICT}
  COMMENT "Making the sample Chinese lexicon from jieba's word list"
  VERBATIM)
# The phrase-break and stress models: small trees written from linguistic
# rules (data/zh/*.model), compiled and embedded.
foreach(model phrase_break stress)
  add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/data/zh_${model}.img
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/data
    COMMAND ${UTILS_RUN} $<TARGET_FILE:utts> compile-model -o ${CMAKE_BINARY_DIR}/data/zh_${model}.img
            ${UTILS_ZH_DATA}/${model}.model
    DEPENDS utts ${UTILS_ZH_DATA}/${model}.model
    COMMENT "Compiling the sample ${model} model"
    VERBATIM)
endforeach()
add_custom_command(
  OUTPUT ${UTILS_SAMPLE_DICT}
  COMMAND ${UTILS_RUN} $<TARGET_FILE:utts> compile-dict -c ${UTILS_ZH_DATA}/classes.txt -p ${UTILS_ZH_DATA}/class_pairs.txt
          -l ${UTILS_ZH_DATA}/punctuation.txt -l ${UTILS_SAMPLE_LEXICON}
          --phrase-break ${CMAKE_BINARY_DIR}/data/zh_phrase_break.img
          --stress ${CMAKE_BINARY_DIR}/data/zh_stress.img -o ${UTILS_SAMPLE_DICT}
  DEPENDS utts ${UTILS_SAMPLE_LEXICON} ${UTILS_ZH_DATA}/classes.txt
          ${UTILS_ZH_DATA}/class_pairs.txt ${UTILS_ZH_DATA}/punctuation.txt
          ${CMAKE_BINARY_DIR}/data/zh_phrase_break.img ${CMAKE_BINARY_DIR}/data/zh_stress.img
  COMMENT "Compiling the sample Chinese dictionary"
  VERBATIM)
add_custom_target(sample_dict ALL DEPENDS ${UTILS_SAMPLE_DICT})
target_compile_definitions(utts PRIVATE UTTS_SAMPLE_DICT="${UTILS_SAMPLE_DICT}")
if(TARGET bench_dict)
  add_dependencies(bench_dict sample_dict)
endif()

if(UTILS_TESTS)
  add_test(NAME utts_dict
           COMMAND ${CMAKE_SOURCE_DIR}/tests/dict/utts_dict_test.sh ${UTTS_UNDER_TEST}
                   ${UTILS_SAMPLE_DICT} ${UTILS_ZH_DATA})
  add_test(NAME utts_analyze
           COMMAND ${CMAKE_SOURCE_DIR}/tests/frontend/utts_analyze_test.sh ${UTTS_UNDER_TEST})
endif()
