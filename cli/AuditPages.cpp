#include "cli/AuditPages.h"

#include "base/Clock.h"
#include "base/Digest.h"
#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "cli/Output.h"
#include "files/CairoPress.h"
#include "reports/PagedDocument.h"
#include "reports/TableReport.h"
#include "rows/AuditTable.h"

namespace metrisk::cli {

namespace {

std::string riskText(const std::optional<double>& risk) {
    if (!risk) return "";
    const ShownRisk shown = shownRisk(*risk);
    return FormatNumber(shown.value, riskPicture(shown.units), {}) + " " + shown.units;
}

std::string numberText(const std::optional<double>& number, const char* picture) {
    return number ? FormatNumber(*number, WidenPicture(*number, picture), {}) : "";
}

std::string joined(std::initializer_list<std::string> texts) {
    std::string all;
    for (const std::string& text : texts) {
        if (text.empty()) continue;
        all += (all.empty() ? "" : " ") + text;
    }
    return all;
}

std::string limitsText(const AuditRow& row) {
    std::string names;
    for (const std::string_view name : row.limits) names += (names.empty() ? "" : " ") + std::string(name);
    return names.empty() ? "" : "outside: " + names;
}

std::string guardbandText(const AuditRow& row) {
    return joined({numberText(row.lowerMultiplier, "0.0###"), numberText(row.upperMultiplier, "0.0###")});
}

std::string remarkOf(const AuditRow& row) {
    const std::string status = row.status == AuditStatus::Ok ? "" : std::string(wordOf(row.status)) + ":";
    return joined({limitsText(row), status, row.message});
}

TableReport tableOf(std::span<const AuditRow> rows, std::size_t others, const std::string& digest) {
    const Moment now = SystemClock().now();
    TableReport table{.title = "Audit of Analyses",
                      .head = {"Metrisk " + std::string(METRISK_VERSION) + ", " + longDate(now) + " " +
                                   FormatNumber(now.time, "h:mm AM/PM", {}) + ", " +
                                   std::to_string(rows.size() + others) + " files, of them analyses " +
                                   conventionCounts(rows),
                               auditSummary(rows)},
                      .columns = {{"File", 24},
                                  {"Subject Unit", 18},
                                  {"Measuring Unit", 18},
                                  {"Nominal", 10},
                                  {"TUR", 6},
                                  {"FA Consumer", 8},
                                  {"FA Producer", 8},
                                  {"FR", 8},
                                  {"Stored FA", 8},
                                  {"Stored FR", 8},
                                  {"Agreement", 9},
                                  {"Guardband", 10},
                                  {"Remarks", 18}},
                      .rows = {},
                      .smallPrint = "SHA-256 of this audit as a table: " + digest};
    for (const AuditRow& row : rows) {
        const Identification& n = row.names;
        std::string file = row.file;
        if (!row.sha256.empty()) file += " (SHA-256 " + row.sha256.substr(0, 16) + ")";
        table.rows.push_back({file, joined({n.SU_Manufacturer, n.SU_ModelNumber, n.SU_ParameterName}),
                              joined({n.MTE_Manufacturer, n.MTE_ModelNumber, n.MTE_ParameterName}),
                              joined({numberText(row.nominal, "#,##0.####"), row.unit}),
                              numberText(row.tur, "0.00"), riskText(row.consumer), riskText(row.producer),
                              riskText(row.falseReject), riskText(row.storedFalseAccept),
                              riskText(row.storedFalseReject), std::string(wordOf(row.agreement)),
                              guardbandText(row), remarkOf(row)});
    }
    return table;
}

} // namespace

std::string auditText(const AuditRow& row) {
    const bool compared = row.agreement != Agreement::None;
    std::string line = "  " + std::string(compared ? wordOf(row.agreement) : wordOf(row.status));
    if (row.falseReject)
        line += ": " + joined({"FA " + riskText(row.falseAccept()), "FR " + riskText(row.falseReject),
                               "TUR " + numberText(row.tur, "0.00"), limitsText(row)});
    return forResults(row.file) + "\n" + line + "\n";
}

std::string auditPdf(std::span<const AuditRow> rows, std::size_t others) {
    std::string csv = auditHeaderLine();
    for (const AuditRow& row : rows) csv += auditLine(row, false);
    const CairoPress press;
    const auto metrics = press.metrics(tablePage());
    PagedDocument document(*metrics, tablePage());
    composeTable(tableOf(rows, others, sha256(csv)), document);
    return press.pdf(document.report(), "Audit of Analyses", SystemClock().now());
}

} // namespace metrisk::cli
