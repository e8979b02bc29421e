// The rows of a screen in files and on paper.
#pragma once

#include "base/Box.h"
#include "desk/kit/FileChooser.h"
#include "desk/points/PointDesk.h"
#include "desk/points/PointReport.h"
#include "desk/points/PointView.h"

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

struct Session;

inline constexpr Message notPrinted{"Nothing could be printed.", "Test Points"};

/// Rows that have no figures yet get them first. What fails is told.
class PointPapers {
  public:
    PointPapers(Session& session, FileChooser* files, PointDesk& desk, const PointView& view)
        : session_(session), files_(files), desk_(desk), view_(view) {}

    /// False where that failed, none where nothing can be made.
    std::function<bool(const TableReport&)> printTable;
    std::function<std::optional<std::string>(const TableReport&)> tablePdf;

    /// All rows as CSV, byte for byte what `rows` writes.
    void saveResults();
    /// The rows in sight.
    void print();
    void savePdf();

  private:
    std::string results();
    /// None where there is nothing to print.
    std::optional<TableReport> report();
    /// With the first of the extensions, if the chosen name has none of them.
    std::optional<std::string> nameToSave(const char* title, const char* filter, const char* proposed,
                                          std::initializer_list<std::string_view> extensions);

    Session& session_;
    FileChooser* files_;
    PointDesk& desk_;
    const PointView& view_;
};

} // namespace metrisk
