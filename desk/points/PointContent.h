// The cells of a sheet of test points: its own columns, and behind them those that are computed.
#pragma once

#include "desk/kit/Sheet.h"
#include "desk/points/PointView.h"
#include "rows/Entries.h"

#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

/// What the column names, whatever unit it has in brackets; none for one that passes through.
std::optional<Entry> entryOfColumn(std::string_view column);

class PointContent final : public SheetContent {
  public:
    explicit PointContent(const PointView& view) : view_(view) {}
    int rowCount() const override;
    int columnCount() const override;
    std::string heading(int column) const override;
    std::string headingTip(int column) const override;
    std::string rowName(int row) const override;
    std::string rowFault(int row) const override;
    SheetCell cell(int row, int column) const override;

  private:
    SheetCell ownCell(std::size_t row, std::size_t column) const;
    SheetCell figure(std::size_t row, std::size_t column) const;
    std::size_t sheetRow(int row) const { return view_.sheetRow(static_cast<std::size_t>(row)); }

    const PointView& view_;
};

} // namespace metrisk
