#include "desk/points/PointTexts.h"

#include "base/NumberFormat.h"

namespace metrisk {

namespace {

std::string percent(double fraction, const Regional& regional) {
    return GeneralText(100 * fraction, regional, 4) + " %";
}

} // namespace

Regional regionalOfTable(Regional users, bool decimalComma) {
    users.DecimalSymbol = decimalComma ? "," : ".";
    if (users.ThousandSeparator == users.DecimalSymbol) users.ThousandSeparator = decimalComma ? "." : ",";
    return users;
}

std::string countText(std::size_t number, const Regional& regional) {
    return FormatNumber(static_cast<double>(number), "#,##0", regional);
}

std::string totalsText(const PointView& view, const PointTotals& totals, const Regional& regional) {
    const auto count = [&regional](std::size_t number) { return countText(number, regional); };
    const RowCounts& counts = totals.counts;
    std::string text = count(totals.points()) + " rows: " + count(counts.ok) + " ok, " + count(counts.note) +
                       " note, " + count(counts.refused) + " refused, " + count(counts.bad) + " bad";
    if (totals.waiting > 0) text += ", " + count(totals.waiting) + " not computed";
    if (totals.worst) {
        const double share =
            static_cast<double>(totals.above) / static_cast<double>(totals.falseAccept.size());
        text += "\nWorst false accept risk " + percent(totals.worstRisk, regional) + " in row " +
                count(*totals.worst + 1) + "; " + percent(share, regional) + " of the rows above " +
                percent(totals.limit, regional);
    }
    if (view.rows.size() != view.sheet.size()) text += "\n" + count(view.rows.size()) + " rows are shown";
    return text;
}

std::string histogramText(const PointTotals& totals, const Regional& regional) {
    if (totals.falseAccept.empty()) return "No false accept risks";
    return "False accept risks of " + countText(totals.falseAccept.size(), regional) + " rows, " +
           countText(totals.above, regional) + " above " + percent(totals.limit, regional);
}

std::string rowText(const PointView& view, std::size_t sheetRow, const Regional& regional) {
    const PointAnswer* answer = view.answer(sheetRow);
    const std::string message = answer ? view.rules->message(*answer) : "";
    return message.empty() ? "" : "Row " + countText(sheetRow + 1, regional) + ": " + message;
}

std::string noPlaceText(std::size_t columns, const PointSheet& sheet, const Regional& regional) {
    const std::string count = columns == 1 ? "1 column does" : countText(columns, regional) + " columns do";
    return count + " not fit: the last one that can be typed into is " + sheet.columns().back() +
           ". Nothing was pasted.\n\nAdd columns first. An empty table takes its columns from a first line "
           "of "
           "names.";
}

} // namespace metrisk
