#include "reports/RunningText.h"

#include "reports/ReportDocument.h"
#include "reports/RichTextDocument.h"

#include <cmath>

namespace metrisk {

namespace {

void replaceAll(std::string& text, std::string_view what, std::string_view by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != text.npos; at += by.size())
        text.replace(at, what.size(), by);
}

std::string prologueOf(const ReportDocument& document) {
    std::string prologue = "\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033 ";
    prologue += "{\\fonttbl{\\f999 {{fname}};}}\\li0\\tqc\\tx{{center}}\\tqr\\tx{{right}}\\f999\\fs{{fsize}}";
    const auto whole = [](double value) { return std::to_string(std::lround(value)); };
    replaceAll(prologue, "{{center}}", whole(document.textWidth() / 2));
    replaceAll(prologue, "{{right}}", whole(document.textWidth()));
    std::string family = document.HdrFontName; // a semicolon would end the name
    std::erase(family, ';');
    replaceAll(prologue, "{{fname}}", richText(family));
    replaceAll(prologue, "{{fsize}}", whole(document.HdrFontSize * 2));
    if (document.HdrFontBold) prologue += "\\b";
    if (document.HdrFontItalic) prologue += "\\i";
    if (document.HdrFontUnderline) prologue += "\\ul";
    return prologue;
}

/// Said once more in the running text: not every word processor takes it over from outside.
std::string fontOf(const ReportDocument& document) {
    return "\\plain\\f999\\fs" + std::to_string(std::lround(document.HdrFontSize * 2)) +
           (document.HdrFontBold ? "\\b" : "") + (document.HdrFontItalic ? "\\i" : "") +
           (document.HdrFontUnderline ? "\\ul" : "");
}

std::string fieldsOf(std::string_view running) {
    std::string text = richText(running);
    replaceAll(text, "%d", "{\\field{\\*\\fldinst PAGE}}");
    std::string line = " {{left}} \\tab {{center}} \\tab {{right}}\\par }}";
    for (const char* place : {"{{left}}", "{{center}}", "{{right}}"}) {
        const std::size_t end = std::min(text.find('|'), text.size());
        replaceAll(line, place, text.substr(0, end));
        text.erase(0, std::min(end + 1, text.size()));
    }
    return line;
}

} // namespace

void BeginExportHeader(ReportDocument& document, bool prologue) {
    if (document.ExportFile.empty() || document.ExportFormat != ReportFormat::RichText) return;
    document.GetMargins();
    std::string head = prologue ? prologueOf(document) : "";
    if (!document.Header.empty()) {
        document.ExportRaw(head + "{\\header{" + fontOf(document) + "\\brdrb\\brdrs\\brdrw5\\brsp40" +
                           fieldsOf(document.Header));
        head.clear();
    }
    if (!document.Footer.empty())
        document.ExportRaw(head + "{\\footer{" + fontOf(document) + fieldsOf(document.Footer));
}

} // namespace metrisk
