// Any bytes as a table of test points: the output has the cells that its header tells, and parts give the
// whole.
#include "rows/RowRun.h"

#include <cstdio>
#include <cstdlib>

namespace {

using namespace metrisk;

std::string outputOf(const RowTable& table, std::string_view rows) {
    RowScratch scratch;
    RowCounts counts;
    std::string out;
    processBlock(rows, table, scratch, out, counts);
    return out;
}

void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const UnitFactors units;
    static const TestPoint point;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const bool json = !input.empty() && input.front() == '{';
    RowOptions options{.format = json ? RowFormat::JsonLines : RowFormat::Csv};
    options.want = std::get<Want>(wantOf("risks,tur,uncertainty,decide"));
    const std::size_t header = json ? 0 : std::min(input.find('\n'), input.size() - (size > 0)) + (size > 0);
    try {
        const RowTable table(options, point, units, input.substr(0, header));
        const std::string_view rows = input.substr(header);
        const std::string whole = outputOf(table, rows);
        const std::size_t first = rows.empty() ? 0 : table.recordSize(rows, true);
        if (first > 0 && rows[first - 1] == '\n')
            require(outputOf(table, rows.substr(0, first)) + outputOf(table, rows.substr(first)) == whole,
                    "two parts are not the whole");
        CsvRecord record;
        for (std::string_view rest = whole; !json && !rest.empty();) {
            const std::string_view one = rest.substr(0, table.recordSize(rest, true));
            readRecord(one, table.form(), record);
            require(record.raw.empty() || (!record.flaw && record.cells.size() == table.outputColumns()),
                    "a record of the output is none");
            rest.remove_prefix(one.size());
        }
    } catch (const HeaderFault&) {
    }
    return 0;
}
