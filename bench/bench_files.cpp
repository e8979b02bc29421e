// Reading and writing analysis files, and whole batches of them through the command-line program.
#include "bench/Floor.h"
#include "bench/Sessions.h"
#include "desk/files/AnalysisFile.h"
#include "desk/files/ClearAnalysis.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace metrisk::bench {
namespace {

namespace fs = std::filesystem;

constexpr const char* example = METRISK_SOURCE_DIR "/examples/thermometer-process-uncertainty.mrk";

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// A folder with files of its own, removed at the end.
class Folder {
  public:
    Folder() {
        std::string name = (fs::temp_directory_path() / "metrisk-bench-XXXXXX").string();
        path_ = mkdtemp(name.data());
    }
    ~Folder() { fs::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    fs::path operator/(const std::string& name) const { return path_ / name; }
    const fs::path& path() const { return path_; }

  private:
    fs::path path_;
};

/// The floor of reading is getting the file's bytes.
void readFile(benchmark::State& state) {
    BenchSession s(twoSided(90));
    againstFloor(
        state, 1,
        [&] {
            ClearAnalysis(s.session);
            ReadAnalysis(s.session, example);
            benchmark::DoNotOptimize(s.record.SU_Mode);
        },
        [&] { benchmark::DoNotOptimize(contentOf(example)); });
}
BENCHMARK(readFile)->UseManualTime();

/// The floor of writing is a new file beside, flushed to the disk and renamed.
void writeFile(benchmark::State& state) {
    const Folder folder;
    BenchSession s(twoSided(90));
    ReadAnalysis(s.session, example);
    const std::string content = contentOf(example);
    againstFloor(
        state, 1, [&] { WriteAnalysis(s.session, folder / "written.mrk"); },
        [&] {
            const fs::path beside = folder / "beside.tmp";
            FILE* file = std::fopen(beside.c_str(), "wb");
            std::fwrite(content.data(), 1, content.size(), file);
            std::fflush(file);
            fsync(fileno(file));
            std::fclose(file);
            fs::rename(beside, folder / "floor.mrk");
        });
}
BENCHMARK(writeFile)->UseManualTime()->Iterations(200);

struct Run {
    double seconds;
    double peakMegabytes;
};

/// Runs the command-line program on the first `count` files of the list and waits for it.
Run computeBatch(const std::vector<std::string>& files, std::size_t count, const char* threads) {
    std::vector<std::string> words = {METRISK_CLI, "compute", "--json", "--threads", threads};
    words.insert(words.end(), files.begin(), files.begin() + static_cast<std::ptrdiff_t>(count));
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        if (!std::freopen("/dev/null", "w", stdout) || !std::freopen("/dev/null", "w", stderr)) _exit(127);
        execv(METRISK_CLI, arguments.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return {seconds, static_cast<double>(usage.ru_maxrss) / 1024};
}

/// 10,000 files: one thread against two, and the memory of 10,000 against that of 100.
void batch(benchmark::State& state) {
    constexpr std::size_t count = 10000;
    const Folder folder;
    std::vector<std::string> files;
    std::vector<std::string> contents;
    for (const auto& entry : fs::directory_iterator(METRISK_SOURCE_DIR "/examples"))
        if (entry.path().extension() == ".mrk") contents.push_back(contentOf(entry.path()));
    for (std::size_t i = 0; i < count; ++i) {
        files.push_back(folder / (std::to_string(i) + ".mrk"));
        std::ofstream(files.back(), std::ios::binary) << contents[i % contents.size()];
    }
    const double fewMegabytes = computeBatch(files, 100, "2").peakMegabytes;
    for (auto _ : state) {
        const Run one = computeBatch(files, count, "1");
        const Run two = computeBatch(files, count, "2");
        state.SetIterationTime(two.seconds);
        state.counters["seconds_1_thread"] = one.seconds;
        state.counters["seconds_2_threads"] = two.seconds;
        state.counters["speedup"] = one.seconds / two.seconds;
        state.counters["peak_MB_100_files"] = fewMegabytes;
        state.counters["peak_MB_10000_files"] = two.peakMegabytes;
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * count));
}
BENCHMARK(batch)->UseManualTime()->Iterations(1)->Unit(benchmark::kSecond);

} // namespace
} // namespace metrisk::bench
