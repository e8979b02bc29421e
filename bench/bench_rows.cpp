// What a row of a table costs beside the figures of it.
#include "bench/Floor.h"
#include "rows/RowRun.h"

#include <cstdio>

namespace {

using namespace metrisk;
using namespace metrisk::bench;

constexpr int rowCount = 1000;

/// Tests that all differ, as lines.
std::string linesOf(bool units) {
    std::string lines;
    for (int i = 0; i < rowCount; ++i) {
        char line[120];
        std::snprintf(line, sizeof line,
                      units ? "%d,%.4f V,%.3f mV,%.2f,%.4f mV\n" : "%d,%.4f,%.3f,%.2f,%.4f\n", i,
                      10 + i * 0.0371, 0.5 + i * 0.0011, 80 + i * 0.0173, 0.05 + i * 0.00013);
        lines += line;
    }
    return lines;
}

/// The floor is the figures of the same entries, in one thread as the rows.
void rows(benchmark::State& state, bool units) {
    const UnitFactors factors;
    const TestPoint point;
    RowOptions options;
    options.want = std::get<Want>(wantOf("risks,tur"));
    const RowTable table(options, point, factors,
                         units ? "id,nominal,tol,su_pct,mte_u" : "id,nominal[V],tol[mV],su_pct,mte_u[mV]");
    const std::string lines = linesOf(units);
    std::vector<TestEntries> entries;
    for (int i = 0; i < rowCount; ++i) {
        TestPoint one;
        NamedEntries named;
        std::string notes;
        char text[3][40];
        std::snprintf(text[0], sizeof text[0], "%.4f", 10 + i * 0.0371);
        std::snprintf(text[1], sizeof text[1], "%.3fe-3", 0.5 + i * 0.0011);
        std::snprintf(text[2], sizeof text[2], "%.2f", 80 + i * 0.0173);
        named.read(Entry::Nominal, text[0]);
        named.read(Entry::Tol, text[1]);
        named.read(Entry::SubjectPct, text[2]);
        named.read(Entry::Tur, "4");
        putEntries(one, named, factors, CountsAs::Estimate, notes);
        entries.push_back(one.entries);
    }
    RowScratch scratch;
    std::string out;
    againstFloor(
        state, rowCount,
        [&] {
            RowCounts counts;
            out.clear();
            processBlock(lines, table, scratch, out, counts);
            benchmark::DoNotOptimize(out.data());
        },
        [&] {
            for (const TestEntries& one : entries) benchmark::DoNotOptimize(evaluate(one));
        });
}
BENCHMARK_CAPTURE(rows, unitsInHeader, false)->UseManualTime();
BENCHMARK_CAPTURE(rows, unitsInCells, true)->UseManualTime();

} // namespace
