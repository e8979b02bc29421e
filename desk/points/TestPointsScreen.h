// A table of test points, screen TestPoints: each row is typed, pasted or read, and computed at once.
#pragma once

#include "desk/kit/Worksheet.h"
#include "desk/points/PointComputing.h"
#include "desk/points/PointContent.h"
#include "desk/points/PointDesk.h"
#include "desk/points/PointPapers.h"

#include <functional>
#include <string>
#include <vector>

namespace metrisk {

/// Figures are those of `rows` with the same template, to the byte. A row whose figures are not those of its
/// cells shows none.
class TestPointsScreen final : public Worksheet {
    PointDesk own_{};
    PointDesk& desk_;
    PointView view_;
    PointContent content_{view_};

  public:
    Label Lbl_Template{*this, "Lbl_Template", "&Template"};
    Choice cbo_Template{*this, "cbo_Template", "What fills the entries that a row does not name"};
    Label Lbl_Want{*this, "Lbl_Want", "Fi&gures"};
    TextBox txt_Want{*this, "txt_Want",
                     "Of each row: risks, tur, ratio, exact, baseline, fit, entries, guardband:fa=2%, worst, "
                     "uncertainty, counts, decide, with commas between",
                     Holds::Words};
    Label Lbl_Filter{*this, "Lbl_Filter", "&Show"};
    Choice cbo_Filter{*this, "cbo_Filter", "Which rows are shown"};
    TextBox txt_Filter{*this, "txt_Filter", "Percent of a risk, or a ratio"};
    Label Lbl_Limit{*this, "Lbl_Limit", "L&imit of False Accept Risk, %"};
    TextBox txt_Limit{*this, "txt_Limit", "Rows above it are counted"};
    Sheet tbl_Points{*this, "tbl_Points", content_,
                     "Test points; a double click on a figure opens the row as an analysis"};
    Label Lbl_State{*this, "Lbl_State"};
    Label Lbl_Totals{*this, "Lbl_Totals"};
    PictureArea pic_Histogram{*this, "pic_Histogram", "No false accept risks",
                              "False accept risks of all rows"};
    Meter met_Progress{*this, "met_Progress", "Rows that have been computed"};
    PushButton cmd_Stop{*this, "cmd_Stop", "Sto&p", "Stop computing; what is there stays"};
    PushButton cmd_Compute{*this, "cmd_Compute", "Co&mpute", "Compute the rows that are not computed yet"};
    PushButton cmd_Open{*this, "cmd_Open", "&Open Row", "Open the row as an analysis"};
    PushButton cmd_Close{*this, "cmd_Close", "C&lose", "The table stays as it is until the program ends"};

    /// `desk` is that of the program; null for one of the screen's own.
    TestPointsScreen(Session& session, FileChooser* files, PointDesk* desk = nullptr);

    /// Takes a row as the analysis of the main screen; false if the user thinks better of it.
    std::function<bool(const Analysis&)> openAnalysis;
    PointPapers papers;

    void begin() override;
    void refresh() override;

    // Each takes the place of the table once the user has settled what becomes of its changes.
    void newTable();
    void chooseTable();
    bool openTable(const std::string& path);

    bool isComputing() const { return computing_.isBusy(); }

  protected:
    bool mayClose(Way way) override;

  private:
    Session& session_;
    FileChooser* files_;
    PointFilter filter_ = PointFilter::All;
    double filterLimit_ = 0.02;
    PointTotals totals_;
    PointComputing computing_;

    void bindEntries();
    void bindSheet();
    std::vector<MenuItem> menuItems();
    std::vector<MenuItem> tableItems();
    std::vector<MenuItem> editItems();
    std::vector<MenuItem> rowItems();
    std::vector<MenuItem> columnItems();

    void putBlock(std::size_t row, std::size_t column, const CellBlock& cells);
    void chooseTemplate(int index);
    void makeRules();
    /// After the table has changed: rules, the figures of rows that have none, and what is in sight.
    void changed();
    void showRows();
    void summarise();

    std::vector<std::size_t> selectedRows() const;
    std::size_t selectedColumn() const;
    Regional tableRegional() const;
    void addColumn();
    void renameColumn();
    void sort(std::size_t column, bool falling);
    /// Rising, or falling where it is rising already.
    void sortByHeading(std::size_t column);
    void openRow(int row);
};

} // namespace metrisk
