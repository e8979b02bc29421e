# Writes a source file that holds a data file: cmake -DDATA=... -DNAME=... -DHEADER=... -DFUNCTION=...
# -DSOURCE=... -P Embed.cmake; the header declares the function, which gives the text.
file(READ "${DATA}" content)
# A string literal may be 65,536 bytes long at least, so the text comes in pieces.
string(REGEX MATCHALL "[^\n]*\n" lines "${content}")
set(pieces "")
foreach(line IN LISTS lines)
  string(APPEND pieces "    R\"data(${line})data\"\n")
endforeach()
file(WRITE "${SOURCE}" "// Made from ${NAME}.\n#include \"${HEADER}\"\n\nnamespace metrisk {\n\nstd::string_view ${FUNCTION}() {\n    return\n${pieces}        ;\n}\n\n} // namespace metrisk\n")
