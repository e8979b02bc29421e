// A table of texts as a document: what it is a table of, the rows, and where it comes from.
#pragma once

#include "reports/ReportDocument.h"

#include <string>
#include <vector>

namespace metrisk {

struct TableReportColumn {
    std::string name;
    double share; // of the width of the page, in any unit that all columns share
    bool centred = false;
};

struct TableReport {
    std::string title;             // in the running header
    std::vector<std::string> head; // lines above the table
    std::vector<TableReportColumn> columns;
    std::vector<std::vector<std::string>> rows; // a cell for each column
    std::string smallPrint;
};

/// Composes the whole document from StartDoc to EndDoc: the names of the columns stand on each page, with its
/// number below.
void composeTable(const TableReport& table, ReportDocument& document);

/// Of A4 across, with margins of half an inch.
PageSetup tablePage();

} // namespace metrisk
