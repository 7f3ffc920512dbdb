# sources.cmake - model sections, parameter streams and MLPG, and the DSP
# lookup tables.
target_sources(UtilsObjects PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/dsp_tables.cpp
  ${CMAKE_CURRENT_LIST_DIR}/hts_model.cpp
  ${CMAKE_CURRENT_LIST_DIR}/hts_model_check.cpp
  ${CMAKE_CURRENT_LIST_DIR}/mlpg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/mlpg_plan.cpp
  ${CMAKE_CURRENT_LIST_DIR}/pstream.cpp
)

# The generated tracks must follow the stated single-precision operation
# order on every target: no fused multiply-add contraction in the solver.
set_source_files_properties(${CMAKE_CURRENT_LIST_DIR}/mlpg.cpp
  PROPERTIES COMPILE_OPTIONS -ffp-contract=off)

# The DSP lookup tables are computed at build time by a small host program
# (make_dsp_tables) and compiled into the library as constant data.
add_executable(make_dsp_tables ${CMAKE_CURRENT_LIST_DIR}/make_dsp_tables.cc)
target_compile_options(make_dsp_tables PRIVATE ${UTILS_WARNINGS})

set(UTILS_DSP_TABLE_DATA ${CMAKE_BINARY_DIR}/generated/Hmm/dsp_table_data.cpp)
add_custom_command(
  OUTPUT ${UTILS_DSP_TABLE_DATA}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/generated/Hmm
  COMMAND make_dsp_tables ${UTILS_DSP_TABLE_DATA}
  DEPENDS make_dsp_tables
  COMMENT "Generating the DSP lookup tables"
  VERBATIM)
target_sources(UtilsObjects PRIVATE ${UTILS_DSP_TABLE_DATA})
