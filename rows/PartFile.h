// The output of a run on its way: a file beside it that becomes it, and that a stopped run goes on with.
#pragma once

#include "rows/RowSource.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace metrisk {

/// Why an output cannot be begun, gone on with or written; the text is told.
struct OutputFault : std::runtime_error {
    OutputFault(const std::string& text, bool isUsage) : std::runtime_error(text), usage(isUsage) {}
    bool usage; // of the wrong input, options or name; else the disk
};

/// Where the output is a symbolic link, it is what that ends at. OUT.part grows by whole records and becomes
/// OUT at the end. OUT.part.options tells what it was begun with.
class PartFile {
  public:
    /// Begins anew, or opens what is there to go on with. `begunWith` holds every option that changes a byte.
    /// Raises OutputFault, also where another run writes to it.
    PartFile(std::filesystem::path target, const std::string& begunWith, bool resume);
    ~PartFile();
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    /// Reads what a former run has written beside the input from its first row on; what is behind the last
    /// whole record is cut. The input stands behind what is done. Raises OutputFault where it is another
    /// input.
    RowCounts goOn(const RowTable& table, std::string_view header, RowInput& input);

    /// Raises OutputFault, with what was written before in place.
    void write(std::string_view bytes);
    /// Brings it to the disk and under its name.
    void finish();

    bool resumed() const { return resumed_; }

  private:
    [[noreturn]] void fail() const;

    std::filesystem::path target_, part_, optionsFile_;
    int file_ = -1;
    bool resumed_ = false;
};

/// What a finished output has counted.
RowCounts countsOf(const std::filesystem::path& output, const RowTable& table, bool hasHeader);

} // namespace metrisk
