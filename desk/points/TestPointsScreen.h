// A table of test points, screen TestPoints: each row is typed, pasted or read, and computed at once.
#pragma once

#include "desk/kit/Background.h"
#include "desk/kit/FileChooser.h"
#include "desk/kit/Sheet.h"
#include "desk/kit/Worksheet.h"
#include "desk/points/PointDesk.h"
#include "desk/points/PointReport.h"
#include "desk/points/PointView.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace metrisk {

struct Session;

/// Figures are those of `rows` with the same template, to the byte. A row whose figures are not those of its
/// cells shows none.
class TestPointsScreen final : public Worksheet {
  public:
    Label Lbl_Template{*this, "Lbl_Template", "&Template"};
    Choice cbo_Template{*this, "cbo_Template", "What fills the entries that a row does not name"};
    Label Lbl_Want{*this, "Lbl_Want", "Fi&gures"};
    TextBox txt_Want{*this, "txt_Want",
                     "Of each row: risks, tur, ratio, exact, baseline, fit, entries, guardband:fa=2%, worst, "
                     "uncertainty, counts, decide, with commas between",
                     Holds::Words};
    Label Lbl_Limit{*this, "Lbl_Limit", "L&imit of False Accept Risk, %"};
    TextBox txt_Limit{*this, "txt_Limit", "Rows above it are counted"};
    Label Lbl_Filter{*this, "Lbl_Filter", "&Show"};
    Choice cbo_Filter{*this, "cbo_Filter", "Which rows are shown"};
    TextBox txt_Filter{*this, "txt_Filter", "Percent of a risk, or a ratio"};

  private:
    /// The sheet's own columns and those that are computed.
    class Content final : public SheetContent {
      public:
        explicit Content(const TestPointsScreen& screen) : screen_(screen) {}
        int rowCount() const override;
        int columnCount() const override;
        std::string heading(int column) const override;
        std::string headingTip(int column) const override;
        std::string rowName(int row) const override;
        std::string rowFault(int row) const override;
        SheetCell cell(int row, int column) const override;

      private:
        const TestPointsScreen& screen_;
    };
    Content content_{*this};

  public:
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

    /// Of the rows in sight; false where that failed, none where nothing can be printed.
    std::function<bool(const TableReport&)> printTable;
    std::function<std::optional<std::string>(const TableReport&)> tablePdf;

    void begin() override;
    void refresh() override;

    void newTable();
    void chooseTable();
    /// Takes the place of the table once the user has settled what becomes of its changes.
    bool openTable(const std::string& path);
    /// Asks whether to save changes; false if the user thinks better of it.
    bool changesSettled();
    bool isComputing() const { return background_.isBusy(); }

  protected:
    bool mayClose(Way way) override;

  private:
    Session& session_;
    FileChooser* files_;
    PointDesk own_{};
    PointDesk& desk_;
    std::shared_ptr<const PointRules> rules_; // null where the header allows none
    std::string fault_;                       // why it does not
    PointFilter filter_ = PointFilter::All;
    double filterLimit_ = 0.02;
    std::vector<std::size_t> visible_; // rows of the table, by the rows of the sheet in sight
    PointTotals totals_;
    std::size_t done_ = 0, wanted_ = 0; // of what is being computed
    bool stopped_ = false;
    Background background_; // last: its end waits for what uses the others

    void bindEntries();
    void bindSheet();
    std::vector<MenuItem> menuItems();
    Analysis templateAnalysis() const;
    void chooseTemplate(int index);
    void makeRules();
    /// After the table has changed: rules, what is in sight, and the figures of what has none.
    void changed();
    void showRows();
    void computeWaiting();
    void computeChunk(std::vector<std::size_t> rows);
    void summarise();
    void drawHistogram();
    std::vector<std::size_t> selectedRows() const;
    std::size_t selectedColumn() const;
    std::size_t tableRow(int row) const;
    void addColumn();
    void renameColumn();
    void sort(std::size_t column, bool falling);
    void openRow(int row);
    bool saveTable(bool underAnotherName);
    void saveResults();
    std::string nameOfTable() const;
    std::string resultText();
    /// None where there is nothing to print, which has been told.
    std::optional<TableReport> report();
    void print();
    void savePdf();
};

} // namespace metrisk
