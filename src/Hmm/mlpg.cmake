# The generated tracks must follow the stated single-precision operation
# order on every target: no fused multiply-add contraction in the solver.
set_source_files_properties(${CMAKE_CURRENT_LIST_DIR}/mlpg.cpp
  PROPERTIES COMPILE_OPTIONS -ffp-contract=off)
