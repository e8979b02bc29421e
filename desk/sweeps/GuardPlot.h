// Plot of the risks over a range of one quantity, screen GuardPlot.
#pragma once

#include "desk/kit/Background.h"
#include "desk/kit/Worksheet.h"
#include "plots/RiskChart.h"

#include <string>
#include <vector>

namespace metrisk {

struct Session;

class GuardPlot final : public Worksheet {
  public:
    PictureArea Graph1{*this, "Graph1", "No plot", "The risks over the range"};
    Panel MessagePanel{*this, "MessagePanel"};
    Label Lbl_Message{*this, "Lbl_Message", "Computing Risk vs. Guardband Data"};
    Meter MessageBox1{*this, "MessageBox1", "Part of the points computed"};
    PushButton CmdCancelPlot{*this, "CmdCancelPlot", "Cancel", "Keep the points that there are"};

    Panel pnl_PlotPoints{*this, "pnl_PlotPoints"};
    Label pnl_PlotPointsHdr{*this, "pnl_PlotPointsHdr"};
    Label Lbl_LowerLimit{*this, "Lbl_LowerLimit", "From:"};
    TextBox LowerLimitBox{*this, "LowerLimitBox", "Least value plotted"};
    Label Lbl_UpperLimit{*this, "Lbl_UpperLimit", "To:"};
    TextBox UpperLimitBox{*this, "UpperLimitBox", "Greatest value plotted"};
    Label Lbl_NumberPoints{*this, "Lbl_NumberPoints", "Number of Points:"};
    TextBox NumberPointsBox{*this, "NumberPointsBox", "Points computed, 2 to 31"};
    RadioButton optShowPct{*this, "optShowPct", "Show In-Tolerance Probability", "Percentages on the axis",
                           0};
    RadioButton optShowSigma{*this, "optShowSigma", "Show Uncertainty",
                             "The standard uncertainties that belong to the percentages on the axis", 0};

    Panel pnl_Baseline{*this, "pnl_Baseline"};
    Label Lbl_SUPctInTol{*this, "Lbl_SUPctInTol", "Subject Parameter % In-Tol"};
    TextBox txt_SUPctInTol{*this, "txt_SUPctInTol", "% in-tolerance of the baseline's subject parameter"};
    Label Lbl_MTEPctInTol{*this, "Lbl_MTEPctInTol", "Measuring Parameter % In-Tol"};
    TextBox txt_MTEPctInTol{*this, "txt_MTEPctInTol", "% in-tolerance of the baseline's measuring parameter"};

    Panel pnl_Include{*this, "pnl_Include"};
    CheckBox chk_IncludeGuardbands{*this, "chk_IncludeGuardbands", "&Guardbands",
                                   "Accept within the test limits instead of the tolerance limits"};
    CheckBox chk_IncludeMTESigma{*this, "chk_IncludeMTESigma", "&Other Measurement Process Uncertainty",
                                 "Take the process uncertainty together with the measuring parameter's"};
    Label pnl_ProcessUncertainty{*this, "pnl_ProcessUncertainty"};

    RadioButton Opt_FalseAccept{*this, "Opt_FalseAccept", "False Accept Risk", "Plot the false accept risk",
                                1};
    RadioButton Opt_FalseReject{*this, "Opt_FalseReject", "False Reject Risk", "Plot the false reject risk",
                                1};
    RadioButton Opt_Both{*this, "Opt_Both", "&Both", "Plot both risks", 1};
    CheckBox Chk3D_ThickLines{*this, "Chk3D_ThickLines", "&Thick Line", "Draw the curves with thick lines"};
    CheckBox chk_SmoothCurve{*this, "chk_SmoothCurve", "&Smooth Curve",
                             "Draw from as many points as there are pixels, and mark the extremes"};
    PushButton CmdPlotGraph{*this, "CmdPlotGraph", "P&lot Graph", "Compute the points and draw them"};

    /// Both parameters have been fitted.
    GuardPlot(Session& session, Swept swept);
    /// The reference case as it is typed.
    struct Baseline {
        std::string subjectPct, measuringPct;
        std::string ratio[2];
    };
    /// Over the accuracy ratio, at these percentages; the curve is marked at this ratio.
    GuardPlot(Session& session, const Baseline& baseline);

    void refresh() override;

    /// The smooth curve is still being computed.
    bool isSmoothing() const { return background_.isBusy(); }

  protected:
    bool mayClose(Way way) override;

  private:
    /// A box whose text counts as it is typed; `kept` is the last one that was not refused.
    struct Entry {
        std::string typed;
        std::string kept;
        void set(const std::string& text) { typed = kept = text; }
    };

    Session& session_;
    const Swept swept_;
    Entry from_, to_, count_, subjectPct_, measuringPct_;
    double baselineRatio_ = 0; // as its screen has it
    bool showSigma_ = false;
    bool includeGuardbands_, includeProcess_;
    ShownRisks shown_ = ShownRisks::FalseAccept;
    bool thick_ = false;
    bool smooth_ = false;
    bool current_ = false; // the plot is that of the entries
    bool computing_ = false;
    bool cancelled_ = false;
    bool closeAsked_ = false;
    double done_ = 0;                 // percent of the points
    std::vector<RiskPoint> curve_;    // the smooth one
    std::vector<RiskPoint> proposed_; // over the range that the screen opens with where no plot is stored
    SweepRange drawn_{0, 0, 0};       // of the plot, entered quantity; without points there is none
    SweepOptions drawnBy_;            // of the plot or the proposed points
    bool drawnSigma_ = false;         // the plot has uncertainties on its axis
    std::size_t pixels_ = 800;        // across the chart's axes
    Background background_;

    void bindRange();
    void bindOptions();
    void bindMenus();
    void openStored();
    void propose();
    void drawQuietly();
    std::optional<double> presentValue() const;
    std::optional<RiskPoint> present() const;
    bool ofPercent() const { return swept_ == Swept::SubjectPct || swept_ == Swept::MeasuringPct; }
    SweepWords drawnWords() const;
    SweepOptions options() const;
    std::vector<double> inputs() const;
    double valueOf(const Entry& entry) const;

    void bindEntry(TextBox& box, Entry& entry, bool percent);
    void changed();
    void optionChanged();
    bool refusePercent(Entry& entry, const char* box);
    bool rangeFilled() const;
    void plot();
    bool rangeAllowed(const SweepRange& range);
    void sweep(const SweepRange& range);
    void store(const std::vector<SweepPoint>& points);
    void tellChanges(const std::vector<SweepPoint>& points, bool ended);
    void showOnAxis(bool sigma);
    RiskPoint pointOf(const SweepPoint& point) const;
    std::vector<RiskPoint> storedPoints() const;
    void markParted(std::vector<RiskPoint>& points) const;
    void startSmooth();
    void draw();
    void copyData();
    void printGraph();
};

} // namespace metrisk
