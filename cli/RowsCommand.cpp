// metrisk-cli rows: a table of test points in, their figures out.
#include "base/Digest.h"
#include "base/ExactText.h"
#include "base/TemporaryFile.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/RowColumns.h"
#include "persistence/AnalysisContent.h"
#include "rows/PartFile.h"
#include "rows/RowRun.h"
#include "unattended/AnalysisRun.h"
#include "unattended/Input.h"
#include "units/database/UnitsDatabase.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace metrisk::cli {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

struct Options {
    std::string in;
    std::string out = standardStream;
    std::string templateFile;
    std::string want = "risks,tur";
    std::string header;
    std::string format;
    std::string delimiter;
    std::string countsAs = "estimate";
    std::string settings;
    std::string units;
    std::vector<std::string> ignored;
    std::string prefix;
    bool columns = false;
    bool json = false;
    bool headerGiven = false;
    bool noHeader = false;
    bool writeHeader = false;
    bool decimalComma = false;
    bool lines = false;
    bool onlyKnown = false;
    bool safeCells = false;
    bool resume = false;
    bool force = false;
    bool crlf = false;
    bool bom = false;
    bool noProgress = false;
    bool quiet = false;
    bool answeredIsDone = false;
    unsigned threads = 0;
};

constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
constexpr std::size_t longestHeader = longestRow;

std::atomic<bool> stopAsked = false;
std::atomic<int> stopSignal = 0;

/// While it lives, a signal to end is kept until the block is written.
class StopOnSignals {
  public:
    StopOnSignals() {
        struct sigaction action {};
        action.sa_handler = [](int signal) { stopSignal = signal, stopAsked = true; };
        for (std::size_t i = 0; i < 2; ++i) sigaction(signals[i], &action, &before_[i]);
    }
    ~StopOnSignals() {
        for (std::size_t i = 0; i < 2; ++i) sigaction(signals[i], &before_[i], nullptr);
    }
    StopOnSignals(const StopOnSignals&) = delete;
    StopOnSignals& operator=(const StopOnSignals&) = delete;

  private:
    static constexpr int signals[2] = {SIGINT, SIGTERM};
    struct sigaction before_[2]{};
};

/// A file or the standard input, opened.
class OpenInput {
  public:
    explicit OpenInput(const std::string& path) {
        if (path == standardStream) return;
        descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        struct stat about {};
        if (descriptor >= 0 && ::fstat(descriptor, &about) == 0 && S_ISDIR(about.st_mode))
            errno = EISDIR, close();
        if (descriptor < 0) throw Unreadable(path, std::strerror(errno));
        if (S_ISREG(about.st_mode)) size = static_cast<std::size_t>(about.st_size);
    }
    ~OpenInput() { close(); }
    OpenInput(const OpenInput&) = delete;
    OpenInput& operator=(const OpenInput&) = delete;

    int descriptor = 0;
    std::size_t size = 0; // 0 where it is not known

  private:
    void close() {
        if (descriptor > 0) ::close(descriptor);
        descriptor = -1;
    }
};

bool endsLike(const std::string& path, std::initializer_list<const char*> endings) {
    const std::string ending = fs::path(path).extension().string();
    return std::ranges::any_of(endings, [&](const char* one) { return equalCaseBlind(ending, one); });
}

RowFormat formatOf(const Options& options, RowInput& input) {
    if (!options.format.empty()) return options.format == "jsonl" ? RowFormat::JsonLines : RowFormat::Csv;
    if (endsLike(options.in, {".jsonl", ".ndjson"})) return RowFormat::JsonLines;
    if (options.in != standardStream) return RowFormat::Csv;
    for (;;) {
        const auto first = input.bytes().find_first_not_of(" \t\r\n");
        if (first != std::string_view::npos)
            return input.bytes()[first] == '{' ? RowFormat::JsonLines : RowFormat::Csv;
        if (!input.readMore()) return RowFormat::Csv;
    }
}

/// Drops the mark of UTF-8. Raises Unreadable for another encoding.
void passMark(const Options& options, RowInput& input) {
    while (input.bytes().size() < 4 && input.readMore()) {
    }
    const std::string_view start = input.bytes().substr(0, 4);
    if (start.starts_with("\xff\xfe") || start.starts_with("\xfe\xff") ||
        start == std::string_view("\0\0\xfe\xff", 4))
        throw Unreadable(options.in, "is UTF-16 or UTF-32: save it as CSV UTF-8");
    if (start.starts_with(byteOrderMark)) input.drop(byteOrderMark.size());
}

/// The header record with its line end. Raises Unreadable where there is none.
std::string headerOf(const Options& options, RowInput& input) {
    for (;;) {
        const std::string_view bytes = input.bytes();
        const std::string_view first = bytes.substr(0, bytes.find('\n'));
        const CsvForm form{delimiterOf(first), options.lines};
        const std::size_t size = bytes.empty() ? 0 : recordSize(bytes, form, input.atEnd());
        if (size > 0) {
            if (size > longestHeader) throw HeaderFault("the header is longer than 1 MiB");
            std::string header(bytes.substr(0, size));
            if (!header.ends_with('\n') && header.find('\r') != header.npos)
                throw Unreadable(options.in, "ends its lines with CR alone: save it with LF or CR LF");
            input.drop(size);
            return header;
        }
        if (input.atEnd()) throw Unreadable(options.in, "is empty: a header is due");
        input.readMore();
    }
}

char delimiterNamed(const std::string& word) {
    return word == "tab" ? '\t' : word == "semicolon" ? ';' : ',';
}

/// "1,234,567".
std::string grouped(std::size_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3;) digits.insert(at -= 3, ",");
    return digits;
}

/// One line on the terminal, once a second.
class Progress {
  public:
    Progress(bool shown, std::size_t before, std::size_t size, int descriptor)
        : shown_(shown && ::isatty(STDERR_FILENO)), before_(before), size_(size), descriptor_(descriptor) {}
    ~Progress() {
        if (drawn_) std::fputs("\r\x1b[K", stderr);
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void show(const RowCounts& counts) {
        if (!shown_ || Clock::now() - last_ < std::chrono::seconds(1)) return;
        last_ = Clock::now();
        drawn_ = true;
        const double seconds = std::chrono::duration<double>(last_ - start_).count();
        const double rate = static_cast<double>(counts.rows()) / seconds;
        std::string line = "\r\x1b[K" + grouped(before_ + counts.rows()) + " rows, " +
                           grouped(static_cast<std::size_t>(rate)) + " a second, " + grouped(counts.refused) +
                           " refused" + left(seconds);
        std::fputs(line.c_str(), stderr);
        std::fflush(stderr);
    }

  private:
    std::string left(double seconds) const {
        const off_t at = size_ > 0 ? ::lseek(descriptor_, 0, SEEK_CUR) : -1;
        if (at <= 0) return "";
        const double share = static_cast<double>(at) / static_cast<double>(size_);
        const auto rest = static_cast<unsigned>(std::max(0.0, seconds * (1 / share - 1)));
        char text[32];
        std::snprintf(text, sizeof text, ", %02u:%02u left", rest / 60, rest % 60);
        return text;
    }

    bool shown_;
    bool drawn_ = false;
    std::size_t before_, size_;
    int descriptor_;
    Clock::time_point start_ = Clock::now(), last_ = start_;
};

std::string summaryOf(const RowCounts& counts) {
    return std::to_string(counts.rows()) + " rows: " + std::to_string(counts.ok) + " ok, " +
           std::to_string(counts.note) + " note, " + std::to_string(counts.refused) + " refused, " +
           std::to_string(counts.bad) + " bad\n";
}

void toStandardOutput(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw OutputFault(std::string("the standard output: ") + std::strerror(errno), false);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

/// Everything that can change a byte of the output, on one line.
std::string begunWith(const Options& o, const Analysis& record, std::string_view header,
                      std::string_view units) {
    Json all = {{"version", 1},
                {"format", o.format},
                {"want", o.want},
                {"header", std::string(header)},
                {"template", sha256(AnalysisText(record))},
                {"units", sha256(units)},
                {"counts", o.countsAs},
                {"prefix", o.prefix},
                {"delimiter", o.delimiter},
                {"decimalComma", o.decimalComma},
                {"lines", o.lines},
                {"onlyKnown", o.onlyKnown},
                {"safeCells", o.safeCells},
                {"crlf", o.crlf},
                {"bom", o.bom},
                {"noHeader", o.noHeader},
                {"writeHeader", o.writeHeader}};
    Json ignored = Json::array();
    for (const std::string& name : o.ignored) ignored.push_back(name);
    all["ignored"] = ignored;
    return jsonLine(all);
}

class RowsRun {
  public:
    explicit RowsRun(const Options& options)
        : o_(options),
          workplace_(options.settings.empty() ? Workplace(SettingsContent{}) : Workplace(options.settings)),
          run_(workplace_) {}

    int all() {
        run_.record = workplace_.newAnalysis;
        if (!o_.templateFile.empty() && !run_.open(o_.templateFile))
            return finish(
                {.diagnostics = diagnosticLines(o_.templateFile, run_.ui.messages()), .status = unreadable});
        if (const std::string fault = targetFault(); !fault.empty())
            return finish(refusal("", fault, wrongUsage, false));
        try {
            return compute();
        } catch (const HeaderFault& fault) {
            return finish(refusal(o_.in, fault.what(), wrongUsage, false));
        } catch (const ReadFailure& fault) {
            throw Unreadable(o_.in, fault.what());
        } catch (const OutputFault& fault) {
            return finish(refusal("", fault.what(), fault.usage ? wrongUsage : refused, false));
        } catch (const RowFault& fault) {
            return finish(refusal(o_.templateFile, fault.text, unreadable, false));
        }
    }

  private:
    bool toFile() const { return o_.out != standardStream; }

    std::string targetFault() const {
        std::error_code none;
        if (!toFile() || !fs::exists(o_.out, none)) return "";
        for (const std::string& read : {o_.in, o_.templateFile})
            if (!read.empty() && read != standardStream && fs::equivalent(o_.out, read, none))
                return o_.out + " is what is read and is not written over";
        if (!o_.force && !o_.resume) return o_.out + " exists; use --force to replace it, or --resume";
        // What becomes the output as a whole must never take the place of a device or a pipe.
        return fs::is_regular_file(o_.out, none) ? ""
                                                 : o_.out + " is no regular file; - is the standard output";
    }

    UnitFactors unitFactors(std::string& bytes) const {
        if (o_.units.empty()) return {};
        try {
            const auto content = openUnitsDatabase(o_.units)->content();
            for (const AreaContent& area : content)
                for (const MeasurementUnit& unit : area.units)
                    bytes += area.name + "\t" + unit.symbol + "\t" + exactText(unit.multiplier) + "\n";
            return UnitFactors(content);
        } catch (const UnitsError& fault) {
            throw Unreadable(o_.units, fault.what());
        }
    }

    RowOptions rowOptions(RowFormat format) const {
        RowOptions rows{.format = format,
                        .marks = {o_.decimalComma},
                        .lines = o_.lines,
                        .onlyKnown = o_.onlyKnown,
                        .crlf = o_.crlf,
                        .safeCells = o_.safeCells,
                        .ignored = o_.ignored,
                        .prefix = o_.prefix,
                        .want = std::get<Want>(wantOf(o_.want)),
                        .countsAs = *countsAsNamed(o_.countsAs)};
        if (!o_.delimiter.empty()) rows.delimiter = delimiterNamed(o_.delimiter);
        return rows;
    }

    int compute() {
        const TestPoint point = testPointOf(run_.record, run_.session.regional);
        std::string unitBytes;
        const UnitFactors units = unitFactors(unitBytes);
        OpenInput opened(o_.in);
        RowInput input(opened.descriptor);
        passMark(o_, input);
        const RowFormat format = formatOf(o_, input);
        std::string header;
        if (format == RowFormat::Csv) {
            if (!o_.noHeader) header = headerOf(o_, input);
            if (o_.headerGiven) header = o_.header;
        }
        const RowTable table(rowOptions(format), point, units, header);
        std::string first;
        if (!o_.noHeader || o_.writeHeader) first = table.outputHeader();
        const std::string begun = begunWith(o_, run_.record, header, unitBytes);
        if (o_.bom) first.insert(0, byteOrderMark);
        if (!o_.quiet && format == RowFormat::Csv)
            std::fputs(forDiagnostics(table.taken() + "\n").c_str(), stderr);
        return stream(table, input, opened, first, begun);
    }

    int statusOf(const RowCounts& counts) const {
        if (!o_.quiet) std::fputs(summaryOf(counts).c_str(), stderr);
        return counts.allAnswered() || o_.answeredIsDone ? allDone : refused;
    }

    int stream(const RowTable& table, RowInput& input, const OpenInput& opened, const std::string& first,
               const std::string& begun) {
        std::error_code none;
        if (o_.resume && fs::exists(o_.out, none) && !fs::exists(linkTarget(o_.out) += ".part", none)) {
            std::fputs((o_.out + ": complete\n").c_str(), stderr);
            return statusOf(countsOf(o_.out, table, !first.empty()));
        }
        std::optional<PartFile> part;
        RowCounts before;
        if (toFile()) {
            part.emplace(o_.out, begun, o_.resume);
            if (part->resumed())
                before = part->goOn(table, first, input);
            else
                part->write(first);
        } else {
            toStandardOutput(first);
        }
        const StopOnSignals stopping;
        Progress progress(!o_.noProgress && !o_.quiet, before.rows(), opened.size, opened.descriptor);
        RowSource source(input, table);
        RowCounts counts = runRows(source, table,
                                   {.threads = o_.threads,
                                    .put =
                                        [&](std::string_view bytes, const RowCounts& counted) {
                                            if (part)
                                                part->write(bytes);
                                            else
                                                toStandardOutput(bytes);
                                            progress.show(counted);
                                            return true;
                                        },
                                    .stop = &stopAsked});
        counts += before;
        if (stopAsked) {
            std::fputs(part ? "stopped; --resume goes on\n" : "stopped\n", stderr);
            return 128 + stopSignal;
        }
        if (part) part->finish();
        return statusOf(counts);
    }

    const Options& o_;
    Workplace workplace_;
    AnalysisRun run_;
};

int rows(const Options& options) {
    if (options.columns) return finish({.results = options.json ? columnsJson() : columnsText()});
    return RowsRun(options).all();
}

void checkUsage(const Options& o) {
    if (o.columns) return;
    if (o.in.empty()) throw WrongUsage("IN is required: a table, or - for the standard input");
    if (o.json) throw WrongUsage("--json goes with --columns");
    if (o.noHeader && !o.headerGiven && o.format != "jsonl")
        throw WrongUsage("--no-header needs --header LINE");
    if (o.resume && (o.in == standardStream || o.out == standardStream))
        throw WrongUsage("--resume needs files, not the standard input or output");
    if (o.resume && o.force) throw WrongUsage("--resume and --force exclude each other");
    if (const auto want = wantOf(o.want); const auto* wrong = std::get_if<std::string>(&want))
        throw WrongUsage(*wrong);
}

} // namespace

void addRows(const Arguments& program, Command& chosen) {
    const auto o = std::make_shared<Options>();
    const Arguments command = program.command("rows", "Compute the risks of a table of test points");
    command.text("IN", o->in, "Table as CSV or JSON lines, - for the standard input").shownAs(" ").isPath();
    command.text("-o,--output", o->out, "Output; - for the standard output, the default")
        .shownAs("OUT")
        .isPath();
    command.text("--template", o->templateFile, "Analysis that fills what a row does not name")
        .shownAs("FILE")
        .isPath();
    command.text("--want", o->want, "What to compute, comma between: risks,tur and others of --columns")
        .shownAs("LIST");
    command.flag("--columns", o->columns, "List the columns of in- and output, and end");
    command.flag("--json", o->json, "With --columns: one JSON object a line");
    const Argument header =
        command.text("--header", o->header, "LINE in place of the header of the input").shownAs("LINE");
    command.flag("--no-header", o->noHeader, "The input has no header, and none is written");
    command.flag("--write-header", o->writeHeader, "With --no-header: write one");
    command.text("--format", o->format, "csv or jsonl; otherwise by the name").oneOf({"csv", "jsonl"});
    command.text("--delimiter", o->delimiter, "Between cells; otherwise by the header line")
        .oneOf({"comma", "semicolon", "tab"});
    command.flag("--decimal-comma", o->decimalComma, "Numbers have a decimal comma");
    command.flag("--lines", o->lines, "A line end always ends a row, in quotes, too");
    command.texts("--ignore", o->ignored, "Pass a known column through as an unknown one")
        .shownAs("NAME")
        .oneEach();
    command.flag("--only-known", o->onlyKnown, "An unknown column is an error");
    command.text("--prefix", o->prefix, "Put before every name of the output").shownAs("P");
    command.text("--counts", o->countsAs, "What passed and tested stand for")
        .oneOf({"estimate", "lower", "median", "observed"});
    command.flag("--resume", o->resume, "Go on with what a stopped run has written");
    command.flag("--force", o->force, "Replace an existing output");
    addSettingsOption(command, o->settings);
    command.text("--units", o->units, "Units database; otherwise the units of the program")
        .shownAs("FILE")
        .isPath();
    command.flag("--crlf", o->crlf, "Line ends of Windows");
    command.flag("--bom", o->bom, "Begin with a byte order mark");
    command.flag("--safe-cells", o->safeCells, "Texts that begin with = + - @ get an apostrophe");
    command.flag("--no-progress", o->noProgress, "No line of progress");
    command.flag("-q,--quiet", o->quiet, "No summary");
    command.flag("--ok-if-answered", o->answeredIsDone, "Refused and bad rows do not change the exit status");
    command.count("--threads", o->threads, "Threads to use; 0, the default, means one a core").shownAs("N");
    command.examples({"rows points.csv -o risks.csv", "rows - --want risks,fit,guardband:fa=2% <points.csv",
                      "rows points.csv --template gauge-block-25mm.mrk --threads 1", "rows --columns"});
    command.then([o, header, &chosen] {
        o->headerGiven = header.given();
        checkUsage(*o);
        chosen = [o] { return rows(*o); };
    });
}

} // namespace metrisk::cli
