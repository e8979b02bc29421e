// The cells of the sample worksheet: what was typed in each, and what it reads in either way of showing.
#pragma once

#include "base/CellBlock.h"
#include "base/Regional.h"

#include <optional>
#include <string>
#include <vector>

namespace metrisk {

class SampleGrid {
  public:
    /// Measured values in nominal units = mode + deviation / factor.
    SampleGrid(double mode, double factor, const Regional& regional);

    /// Rows that the grid has; more are refused.
    int rows() const { return static_cast<int>(cells_.size()); }
    bool measured() const { return measured_; }
    /// Shows the same samples the other way; each cell keeps what was typed in it.
    void setMeasured(bool measured) { measured_ = measured; }

    void fill(const std::vector<double>& values, const std::string& picture);
    void set(int row, const std::string& text);
    /// Puts the first column of a block there, as many rows as there are; its own marks decide which commas
    /// are decimal marks. Returns how many of the cells that are not blank were taken as numbers.
    struct Taken {
        int taken = 0;
        int given = 0;
    };
    Taken put(int row, const CellBlock& block);
    /// Opens rows; false if that would push samples out of the grid.
    bool insertRows(int row, int count);
    void deleteRows(int row, int count);

    std::string text(int row) const;
    /// Holds something that is no number.
    bool isRefused(int row) const;
    std::vector<double> values() const;
    /// Most decimals of the texts of values.
    int decimals() const;

    friend bool operator==(const SampleGrid& a, const SampleGrid& b) {
        return a.measured_ == b.measured_ && a.cells_ == b.cells_;
    }

  private:
    struct Cell {
        std::string text; // as typed
        std::optional<double> value;
        bool measured = false; // how it was typed
        friend bool operator==(const Cell&, const Cell&) = default;
    };

    double shownValue(const Cell& cell) const;
    Cell cellOf(const std::string& text) const;

    double mode_, factor_;
    Regional regional_;
    std::vector<Cell> cells_;
    bool measured_ = false;
};

} // namespace metrisk
