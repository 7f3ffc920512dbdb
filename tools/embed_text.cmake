# Writes a C++ source that holds a text file as a character array, so that the
# front end carries its bundled data with it.
#   cmake -DINPUT=<file> -DOUTPUT=<source> -DNAME=<identifier> -P embed_text.cmake
file(READ "${INPUT}" content HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${content}")
file(WRITE "${OUTPUT}"
  "// Generated from ${INPUT} at build time.\n"
  "#include <cstddef>\n"
  "namespace utts {\n"
  "extern const char ${NAME}[] = {${bytes} 0};\n"
  "extern const std::size_t ${NAME}Size = sizeof(${NAME}) - 1;\n"
  "}  // namespace utts\n")
