#include "rows/PartFile.h"

#include "base/AtomicFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace metrisk {

namespace {

namespace fs = std::filesystem;
constexpr std::size_t longestOptions = std::size_t{16} << 20;

fs::path beside(const fs::path& target, const char* ending) {
    return fs::path(target.native() + ending);
}

/// Walks the records of an output.
class Written {
  public:
    Written(int file, const RowTable& table) : input_(file), table_(table) {}

    /// The next whole record with its line end; empty where there is none.
    std::string_view next() {
        input_.drop(size_);
        size_ = 0;
        for (;;) {
            // A record that is not whole is cut and made again, so that only those with a line end count.
            const std::string_view bytes = input_.bytes();
            const std::size_t found = bytes.empty() ? 0 : table_.recordSize(bytes, input_.atEnd());
            if (found > 0 && bytes[found - 1] == '\n') {
                size_ = found;
                return bytes.substr(0, found);
            }
            if (!input_.readMore()) return {};
        }
    }

  private:
    RowInput input_;
    const RowTable& table_;
    std::size_t size_ = 0;
};

std::string_view withoutEnd(std::string_view record) {
    while (!record.empty() && (record.back() == '\n' || record.back() == '\r')) record.remove_suffix(1);
    return record;
}

/// The status in a record of the output; empty where it is not whole.
std::string statusOf(const RowTable& table, std::string_view record, CsvRecord& cells, JsonRow& json) {
    if (table.options().format == RowFormat::JsonLines) {
        if (readJsonRow(withoutEnd(record), json)) return "";
        for (const JsonMember& member : json.members)
            if (member.key == table.options().prefix + "status") return std::string(member.value);
        return "";
    }
    readRecord(record, table.form(), cells);
    if (cells.flaw || cells.cells.size() != table.outputColumns()) return "";
    return std::string(cells.cells[table.inputColumns()].text);
}

/// Whether the record is what this input gives, as far as its own cells tell.
bool isOf(const RowTable& table, std::string_view output, std::string_view input, CsvRecord& cells,
          JsonRow& json) {
    if (table.options().format == RowFormat::JsonLines) {
        const std::string_view line = withoutEnd(input);
        return line.size() > longestRow || readJsonRow(line, json) || output.starts_with(json.upToBrace) ||
               output.find("\"line\":") != output.npos;
    }
    readRecord(input, table.form(), cells);
    if (cells.flaw || cells.cells.size() != table.inputColumns()) return true;
    std::string expected;
    table.appendInput(expected, cells);
    return output.starts_with(expected) && output[expected.size()] == table.form().delimiter;
}

} // namespace

PartFile::PartFile(fs::path target, const std::string& begunWith, bool resume)
    : target_(linkTarget(std::move(target))), part_(beside(target_, ".part")),
      optionsFile_(beside(target_, ".part.options")) {
    file_ = ::open(part_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (file_ < 0) throw OutputFault(part_.string() + " cannot be written: " + std::strerror(errno), false);
    if (::flock(file_, LOCK_EX | LOCK_NB) != 0) {
        ::close(file_);
        throw OutputFault(part_.string() + " is written by another run", true);
    }
    if (resume) {
        const auto former = readWholeFile(optionsFile_, longestOptions);
        const bool whole = former && former->ends_with('\n');
        if (whole && *former != begunWith) {
            ::close(file_);
            throw OutputFault(
                part_.string() + " was begun with other options, another header or another template", true);
        }
        resumed_ = whole;
    }
    if (resumed_) return;
    if (::ftruncate(file_, 0) != 0) fail();
    if (const auto error = writeFile(optionsFile_, begunWith)) {
        ::close(file_);
        throw OutputFault(optionsFile_.string() + " cannot be written: " + error.message(), false);
    }
}

PartFile::~PartFile() {
    if (file_ >= 0) ::close(file_);
}

void PartFile::fail() const {
    throw OutputFault(part_.string() + " cannot be written: " + std::strerror(errno), false);
}

RowCounts PartFile::goOn(const RowTable& table, std::string_view header, RowInput& input) {
    RowCounts counts;
    off_t done = 0;
    CsvRecord cells;
    JsonRow json;
    Written written(file_, table);
    const auto differs = [&] {
        return OutputFault(part_.string() + " is of another input: begin anew with --force", true);
    };
    if (!header.empty()) {
        const std::string_view first = written.next();
        if (!first.empty() && first != header) throw differs();
        done = static_cast<off_t>(first.size());
    }
    RowSource source(input, table);
    std::string block;
    for (std::string_view record; !(record = written.next()).empty();) {
        const bool empty = withoutEnd(record).empty();
        const std::string status = empty ? "" : statusOf(table, record, cells, json);
        if (!empty && status.empty()) break;
        if (!source.next(block, 1)) throw differs();
        if (empty != withoutEnd(block).empty()) throw differs();
        if (!empty && !isOf(table, record, block, cells, json)) throw differs();
        if (!empty) counts.add(pointStatusOf(status));
        done += static_cast<off_t>(record.size());
    }
    if (::ftruncate(file_, done) != 0 || ::lseek(file_, done, SEEK_SET) < 0) fail();
    if (done == 0) write(header);
    return counts;
}

void PartFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(file_, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) fail();
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void PartFile::finish() {
    std::error_code error = keepAttributes(file_, target_);
    if (error) throw OutputFault(part_.string() + ": " + error.message(), false);
    if (::fsync(file_) != 0) fail();
    fs::rename(part_, target_, error);
    if (error) throw OutputFault(target_.string() + " cannot be written: " + error.message(), false);
    fs::remove(optionsFile_, error);
}

RowCounts countsOf(const fs::path& output, const RowTable& table, bool hasHeader) {
    const int file = ::open(output.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) throw OutputFault(output.string() + " cannot be read: " + std::strerror(errno), false);
    RowCounts counts;
    CsvRecord cells;
    JsonRow json;
    Written written(file, table);
    if (hasHeader) written.next();
    for (std::string_view record; !(record = written.next()).empty();)
        if (!withoutEnd(record).empty()) counts.add(pointStatusOf(statusOf(table, record, cells, json)));
    ::close(file);
    return counts;
}

} // namespace metrisk
