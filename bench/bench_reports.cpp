// Reports: composed and written as PDF, Rich Text and HTML, and many of them by the command line.
#include "bench/Floor.h"
#include "bench/Sessions.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/files/ReportFiles.h"
#include "files/CairoPress.h"
#include "files/CairoSurface.h"
#include "files/PictureFile.h"
#include "uncertainty/ErrorTable.h"
#include "uncertainty/ProcessTotals.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace metrisk::bench {
namespace {

namespace fs = std::filesystem;

const ReportSelection everything{
    .Report_IncludePlots = true, .Report_IncludeUncertainty = true, .Report_IncludeErrorPlot = true};

struct Reported : BenchSession {
    Reported() : BenchSession(twoSided(90)) {
        record.AnalysisFileName = "bench.mrk";
        EnterError(record, 2, ErrorEntry::Uncertainty, "0.02", {});
        SumProcessUncertainty(session.record, session.regional);
        record.RisksNeedCompute = true;
        ComputeResults_Click(session);
    }
};

/// The floor is a PDF of the same page size with a line of text.
void emptyPdf() {
    const std::string bytes = documentBytes({816, 1056}, {.title = "floor", .created = "2026-01-01T00:00:00"},
                                            {[](DrawingSurface& page) { page.Print("A line of text"); }});
    benchmark::DoNotOptimize(bytes.data());
}

void fullPdf(benchmark::State& state) {
    Reported s;
    const CairoPress press;
    againstFloor(
        state, 1, [&] { benchmark::DoNotOptimize(reportBytes(s.session, everything, {}, "r.pdf", press)); },
        emptyPdf);
}
BENCHMARK(fullPdf)->UseManualTime()->Unit(benchmark::kMillisecond);

void fullRichText(benchmark::State& state) {
    Reported s;
    const CairoPress press;
    againstFloor(
        state, 1, [&] { benchmark::DoNotOptimize(reportBytes(s.session, everything, {}, "r.doc", press)); },
        emptyPdf);
}
BENCHMARK(fullRichText)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Composition and page breaks, as for a preview.
void fullPages(benchmark::State& state) {
    Reported s;
    const CairoPress press;
    const auto metrics = press.metrics({});
    againstFloor(
        state, 1, [&] { benchmark::DoNotOptimize(reportPages(s.session, everything, {}, *metrics, false)); },
        emptyPdf);
}
BENCHMARK(fullPages)->UseManualTime()->Unit(benchmark::kMillisecond);

/// 1,000 files: seconds with one thread over seconds with two.
void thousandReports(benchmark::State& state) {
    const fs::path folder = fs::temp_directory_path() / "metrisk-bench-reports";
    fs::remove_all(folder);
    fs::create_directories(folder / "out");
    for (int i = 0; i < 1000; ++i)
        fs::copy_file(METRISK_SOURCE_DIR "/examples/gauge-block-25mm.mrk",
                      folder / ("a" + std::to_string(i) + ".mrk"));
    const auto seconds = [&](const char* threads) {
        const std::string command = METRISK_CLI " report --out-dir " + (folder / "out").string() +
                                    " --threads " + threads + " " + folder.string() + "/a*.mrk 2>/dev/null";
        const auto start = std::chrono::steady_clock::now();
        if (std::system(command.c_str()) != 0) std::fprintf(stderr, "a report failed\n");
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    for (auto _ : state) {
        const double two = seconds("2");
        const double one = seconds("1");
        state.SetIterationTime(two);
        state.counters["speed_up_of_two_threads"] = one / two;
    }
    fs::remove_all(folder);
}
BENCHMARK(thousandReports)->UseManualTime()->Iterations(1)->Unit(benchmark::kSecond);

} // namespace
} // namespace metrisk::bench
