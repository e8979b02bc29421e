// Any text as a table of units: refused in words, or read into what reads back as the same.
#include "units/UnitsTable.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace metrisk;
    std::vector<AreaContent> content;
    try {
        content = readUnitsTable({reinterpret_cast<const char*>(data), size});
    } catch (const UnitsError&) {
        return 0;
    }
    const std::string table = writeUnitsTable(content);
    if (writeUnitsTable(readUnitsTable(table)) == table) return 0;
    std::fprintf(stderr, "broken: the table does not read back:\n%s", table.c_str());
    std::abort();
}
