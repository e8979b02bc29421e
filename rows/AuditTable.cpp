#include "rows/AuditTable.h"

#include "rows/CsvRecord.h"
#include "rows/SafeCell.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace metrisk {

namespace {

constexpr std::string_view columns[] = {"file",
                                        "sha256",
                                        "SU_Manufacturer",
                                        "SU_ModelNumber",
                                        "SU_Description",
                                        "SU_ParameterName",
                                        "SU_Qualifier1",
                                        "SU_Qualifier2",
                                        "MTE_Manufacturer",
                                        "MTE_ModelNumber",
                                        "MTE_Description",
                                        "MTE_ParameterName",
                                        "MTE_Qualifier1",
                                        "MTE_Qualifier2",
                                        "nominal",
                                        "unit",
                                        "convention",
                                        "TUR",
                                        "FalseAcceptConsumer",
                                        "FalseAcceptProducer",
                                        "FalseReject",
                                        "StoredFalseAccept",
                                        "StoredFalseReject",
                                        "Agreement",
                                        "IncludeGuardbands",
                                        "GB_UpperMult",
                                        "GB_LowerMult",
                                        "AgreeingDigits",
                                        "limits",
                                        "status",
                                        "message"};

class Cells {
  public:
    void add() { cells_.emplace_back(); }
    void add(double number) { cells_.push_back({AuditCell::Kind::Number, number}); }
    void add(const std::optional<double>& number) { number ? add(*number) : add(); }
    void add(bool flag) { cells_.push_back({AuditCell::Kind::Flag, flag ? 1.0 : 0.0}); }
    void add(std::string_view text) { cells_.push_back({AuditCell::Kind::Text, 0, std::string(text)}); }
    std::vector<AuditCell> take() { return std::move(cells_); }

  private:
    std::vector<AuditCell> cells_;
};

void append(std::string& line, const AuditCell& cell, bool safeCells) {
    switch (cell.kind) {
    case AuditCell::Kind::None: break;
    case AuditCell::Kind::Number: {
        char text[32];
        line.append(text, std::to_chars(text, text + sizeof text, cell.number).ptr);
        break;
    }
    case AuditCell::Kind::Flag: line += cell.number != 0 ? "true" : "false"; break;
    case AuditCell::Kind::Text: appendCell(line, safeCells ? safeCell(cell.text) : cell.text, ',');
    }
}

std::string counted(std::size_t count, std::string_view what) {
    return std::to_string(count) + " " + std::string(what);
}

} // namespace

std::span<const std::string_view> auditColumns() {
    return columns;
}

std::vector<AuditCell> auditCells(const AuditRow& row) {
    const bool read = row.status != AuditStatus::Unreadable;
    const Identification& names = row.names;
    std::string limits;
    for (const std::string_view name : row.limits) (limits += limits.empty() ? "" : " ") += name;
    Cells cells;
    for (const auto* text :
         {&row.file, &row.sha256, &names.SU_Manufacturer, &names.SU_ModelNumber, &names.SU_Description,
          &names.SU_ParameterName, &names.SU_Qualifier1, &names.SU_Qualifier2, &names.MTE_Manufacturer,
          &names.MTE_ModelNumber, &names.MTE_Description, &names.MTE_ParameterName, &names.MTE_Qualifier1,
          &names.MTE_Qualifier2})
        cells.add(std::string_view(*text));
    cells.add(row.nominal);
    cells.add(std::string_view(row.unit));
    const std::string_view convention = row.convention == Convention::Producer ? "producer" : "consumer";
    cells.add(read ? convention : std::string_view());
    for (const auto* figure : {&row.tur, &row.consumer, &row.producer, &row.falseReject,
                               &row.storedFalseAccept, &row.storedFalseReject})
        cells.add(*figure);
    cells.add(wordOf(row.agreement));
    read ? cells.add(row.guardbanded) : cells.add();
    cells.add(row.upperMultiplier);
    cells.add(row.lowerMultiplier);
    row.agreeingDigits ? cells.add(static_cast<double>(*row.agreeingDigits)) : cells.add();
    cells.add(std::string_view(limits));
    cells.add(wordOf(row.status));
    cells.add(std::string_view(row.message));
    return cells.take();
}

std::string auditHeaderLine() {
    std::string line;
    for (const std::string_view name : columns) (line += line.empty() ? "" : ",") += name;
    return line + "\n";
}

std::string auditLine(const AuditRow& row, bool safeCells) {
    std::string line;
    bool first = true;
    for (const AuditCell& cell : auditCells(row)) {
        if (!first) line += ',';
        first = false;
        append(line, cell, safeCells);
    }
    return line + "\n";
}

std::string auditSummary(std::span<const AuditRow> rows) {
    const auto agreeing = [&](Agreement agreement) {
        return static_cast<std::size_t>(std::ranges::count(rows, agreement, &AuditRow::agreement));
    };
    const auto having = [&](AuditStatus status) {
        return static_cast<std::size_t>(std::ranges::count(rows, status, &AuditRow::status));
    };
    const auto outside = static_cast<std::size_t>(
        std::ranges::count_if(rows, [](const AuditRow& row) { return !row.limits.empty(); }));
    return counted(rows.size(), rows.size() == 1 ? "analysis: " : "analyses: ") +
           counted(agreeing(Agreement::Same), "same, ") +
           counted(agreeing(Agreement::Rounding), "rounding, ") +
           counted(agreeing(Agreement::Differs), "differ, ") +
           counted(agreeing(Agreement::Stale), "stale, ") +
           counted(agreeing(Agreement::NeverComputed), "never computed; ") +
           counted(having(AuditStatus::Refused), "refused, ") +
           counted(having(AuditStatus::Unreadable), "unreadable, ") + counted(outside, "outside of a limit");
}

std::string conventionCounts(std::span<const AuditRow> rows) {
    std::size_t producer = 0, read = 0;
    for (const AuditRow& row : rows) {
        read += row.status != AuditStatus::Unreadable;
        producer += row.status != AuditStatus::Unreadable && row.convention == Convention::Producer;
    }
    return counted(read - producer, "of the consumer's, ") +
           counted(producer, "of the producer's convention");
}

} // namespace metrisk
