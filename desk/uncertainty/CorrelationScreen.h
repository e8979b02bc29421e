// Which error sources go together, screen CorrelationList: pairs of names with their coefficients.
#pragma once

#include "desk/kit/Worksheet.h"
#include "uncertainty/ErrorRows.h"

#include <array>
#include <vector>

namespace metrisk {

struct Session;

class CorrelationScreen final : public Worksheet {
  public:
    Label pnl_Header{*this, "pnl_Header",
                     "Select a Variable from Column 2 to be Correlated with a Variable\n"
                     "in Column 1 and Enter the Appropriate Correlation Coefficient"};
    Table lst_Variable_0{*this, "lst_Variable_0", "Column 1: error sources to drag from"};
    Table lst_Variable_1{*this, "lst_Variable_1", "Column 2: error sources to drop on"};
    Label Lbl_Hint{
        *this, "Lbl_Hint",
        "Drag a Variable from Column 1, Drop it in Column 2 and Enter the Correlation Coefficient"};
    PushButton cmd_AddPair{*this, "cmd_AddPair", "&Add Pair",
                           "Correlate the variables that are selected in the two columns"};
    Table ss{*this, "ss", "Pairs of error sources with their correlation coefficients"};
    PushButton mnu_Exit_0{*this, "mnu_Exit_0", "&OK", "Keep these correlations"};
    PushButton mnu_Exit_1{*this, "mnu_Exit_1", "&Cancel", "Leave the correlations as they were"};

    explicit CorrelationScreen(Session& session);

    void refresh() override;

  protected:
    bool mayClose(Way way) override;

  private:
    /// Rows of the process errors table, first < second; 0 is no coefficient yet.
    struct Pair {
        int first = 0;
        int second = 0;
        double coefficient = 0;
        friend bool operator==(const Pair&, const Pair&) = default;
    };

    void correlate(int one, int other);
    void enterCoefficient(int row, const std::string& text);
    void clearSelected();
    void store();

    Session& session_;
    std::array<std::string, errorRowCount> names_;
    std::vector<Pair> pairs_;
};

} // namespace metrisk
