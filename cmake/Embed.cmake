# Writes a source file that holds a data file: cmake -DDATA=... -DSOURCE=... -P Embed.cmake
file(READ "${DATA}" content)
# A string literal may be 65,536 bytes long at least, so the text comes in pieces.
string(REGEX MATCHALL "[^\n]*\n" lines "${content}")
set(pieces "")
foreach(line IN LISTS lines)
  string(APPEND pieces "    R\"data(${line})data\"\n")
endforeach()
file(WRITE "${SOURCE}" "// Made from ${NAME}.\n#include \"selfcheck/SelfCheck.h\"\n\nnamespace metrisk {\n\nstd::string_view publishedFigures() {\n    return\n${pieces}        ;\n}\n\n} // namespace metrisk\n")
