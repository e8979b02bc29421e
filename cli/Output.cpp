#include "cli/Output.h"

#include "unattended/Json.h"
#include "unattended/Steering.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <sstream>
#include <unistd.h>

namespace metrisk::cli {

namespace {

constexpr std::size_t barWidth = 40;

std::string escaped(char32_t code) {
    constexpr const char* digits = "0123456789abcdef";
    switch (code) {
    case '\n': return "\\n";
    case '\r': return "\\r";
    case '\t': return "\\t";
    default: break;
    }
    return code > 0xFF ? unicodeEscape(code) : std::string("\\x") + digits[code >> 4] + digits[code & 15];
}

bool isTerminal(std::FILE* stream) {
    return ::isatty(::fileno(stream)) != 0;
}

} // namespace

const char* statusWord(int status, const char* done) {
    return status == allDone ? done : status == unreadable ? "unreadable" : "refused";
}

std::string faultText(const std::exception& fault) {
    return dynamic_cast<const std::bad_alloc*>(&fault) ? "out of memory" : fault.what();
}

std::string printable(std::string_view text) {
    return withoutSteering(text, escaped);
}

std::string forResults(std::string_view text) {
    return isTerminal(stdout) ? printable(text) : std::string(text);
}

std::string linesForResults(const std::string& text) {
    if (!isTerminal(stdout)) return text;
    std::istringstream lines(text);
    std::string shown;
    for (std::string line; std::getline(lines, line);) shown += printable(line) + "\n";
    return shown;
}

std::string forDiagnostics(std::string_view text) {
    return isTerminal(stderr) ? printable(text) : std::string(text);
}

std::string diagnosticLine(const std::string& name, const std::string& text) {
    return forDiagnostics(name.empty() ? text : name + ": " + text) + "\n";
}

std::string diagnosticLines(const std::string& name, const std::vector<Told>& messages) {
    std::string lines;
    for (const Told& message : messages) {
        std::string text = message.title.empty()
                               ? message.text
                               : message.title + ": " + message.text + " [" + message.answer + "]";
        std::replace(text.begin(), text.end(), '\n', ' ');
        lines += diagnosticLine(name, text);
    }
    return lines;
}

Output refusal(const std::string& name, const std::string& text, int status, bool json) {
    const std::vector<Told> told{{"", text, "", false}};
    return {.results = json ? jsonLine(resultJson(name, statusWord(status, ""), told)) : "",
            .diagnostics = diagnosticLines(name, told),
            .status = status};
}

Outlet::Outlet(std::size_t outputs) : total_(outputs), hasBar_(outputs > 1 && isTerminal(stderr)) {}

void Outlet::put(const Output& output) {
    clearBar();
    std::fwrite(output.diagnostics.data(), 1, output.diagnostics.size(), stderr);
    status_ = std::max(status_, output.status);
    const bool written =
        std::fwrite(output.results.data(), 1, output.results.size(), stdout) == output.results.size() &&
        std::fflush(stdout) == 0;
    if (!written) {
        if (!full_) std::fprintf(stderr, "metrisk-cli: standard output: %s\n", std::strerror(errno));
        full_ = true;
        status_ = std::max<int>(status_, refused);
    }
    if (++done_ < total_) showBar();
}

void Outlet::clearBar() {
    if (hasBar_ && done_ > 0) std::fputs("\r\x1b[K", stderr);
}

void Outlet::showBar() {
    if (!hasBar_) return;
    const std::size_t filled = done_ * barWidth / total_;
    const std::string bar = std::string(filled, '#') + std::string(barWidth - filled, ' ');
    std::fprintf(stderr, "[%s] %zu/%zu", bar.c_str(), done_, total_);
}

int finish(const Output& output) {
    Outlet outlet;
    outlet.put(output);
    return outlet.status();
}

} // namespace metrisk::cli
