# Locates the installed libraries the library links: RE2 (shared) and
# Mini-XML 3.x (its static archive, folded into libUtils).
find_package(Threads REQUIRED)

find_path(RE2_INCLUDE_DIR re2/re2.h REQUIRED)
find_library(RE2_LIBRARY NAMES re2 REQUIRED)

find_path(MXML_INCLUDE_DIR mxml.h REQUIRED)
find_library(MXML_STATIC_LIBRARY NAMES libmxml.a REQUIRED)
