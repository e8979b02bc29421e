// What a test point costs by itself, without a table, an array or a query: the floor of bench/doors.py.
#include "persistence/NewAnalysis.h"
#include "rows/PointFigures.h"
#include "rows/UnitFactors.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <limits>

using namespace metrisk;

/// points_core COUNT WANT: nanoseconds a point of the fastest of five passes, in one thread.
int main(int argc, char** argv) {
    const int count = argc > 1 ? std::atoi(argv[1]) : 100000;
    const Want want = std::get<Want>(wantOf(argc > 2 ? argv[2] : "risks,tur"));
    const Analysis record = newAnalysis();
    const TestPoint base = testPointOf(record, Regional{});
    double fastest = std::numeric_limits<double>::infinity(), sum = 0;
    for (int pass = 0; pass < 5; ++pass) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < count; ++i) {
            NamedEntries named;
            named.put(Entry::Nominal, 10);
            named.put(Entry::Tol, 0.5);
            named.put(Entry::SubjectPct, 80 + 19.0 * i / count);
            named.put(Entry::MteU, 0.02 + 0.2 * i / count);
            TestPoint point = base;
            PointFigures figures;
            std::string notes;
            computePoint(point, named, UnitFactors::shipped(), CountsAs::Estimate, want, figures, notes);
            sum += figures.values[0].number;
        }
        const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - start;
        fastest = std::min(fastest, spent.count() / count);
    }
    std::fprintf(stderr, "%.17g\n", sum); // so that nothing is left out
    std::printf("%.6g\n", fastest);
}
