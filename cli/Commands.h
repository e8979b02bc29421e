// The commands of metrisk-cli. Each returns its exit status.
#pragma once

#include <string>
#include <vector>

namespace metrisk::cli {

struct ComputeOptions {
    std::vector<std::string> files;
    std::string settings; // empty: the user's own
    bool json = false;
    bool save = false;
    bool force = false;
    unsigned threads = 0; // 0: all cores
};
int computeCommand(const ComputeOptions& options);

struct ConvertOptions {
    std::string in;
    std::string out;
    std::string settings;
    bool force = false;
};
int convertCommand(const ConvertOptions& options);

struct ShowOptions {
    std::string file;
    std::string settings;
    bool json = false;
};
int showCommand(const ShowOptions& options);

struct BaselineOptions {
    std::string ratio;       // "4:1"
    double measuringPct = 0; // percent
    double subjectPct = 0;   // percent
    bool producer = false;
    bool json = false;
};
int baselineCommand(const BaselineOptions& options);

} // namespace metrisk::cli
