// Reliability model worksheet of either parameter, screen ReliabilityModelCoefficients.
#pragma once

#include "base/NumberEntry.h"
#include "desk/compute/ReliabilitySlot.h"
#include "desk/kit/Worksheet.h"
#include "record/Analysis.h"

#include <array>
#include <optional>
#include <string>

namespace metrisk {

struct Session;

class ReliabilityScreen final : public Worksheet {
  public:
    Label pnl_Header{*this, "pnl_Header",
                     "Select a Reliability Model, Enter an Interval, Select Units and Enter Probabilities or "
                     "Coefficients"};
    RadioButton optParameter_0{*this, "optParameter_0", "  &Subject parameter",
                               "The reliability of the subject parameter", 0};
    RadioButton optParameter_1{*this, "optParameter_1", "  &Measuring parameter",
                               "The reliability of the measuring parameter", 0};
    Label Lbl_Model{*this, "Lbl_Model", "Reliability Model"};
    Choice cbo_RModels{*this, "cbo_RModels", "How reliability falls with time"};
    Label ReliabilityModelCaption{*this, "ReliabilityModelCaption"};
    TextBox CalibrationIntervalBox{*this, "CalibrationIntervalBox",
                                   "Time from one test or calibration to the next"};
    Choice IntervalUnitsBox{*this, "IntervalUnitsBox", "Units of the interval and of all times here"};
    Label Lbl_BOP{*this, "Lbl_BOP", "Beginning of Period"};
    TextBox BOPBox{*this, "BOPBox", "% in-tolerance just after a test or calibration"};
    Label Lbl_AOP{*this, "Lbl_AOP", "Average over Period"};
    TextBox AOPBox{*this, "AOPBox", "Mean % in-tolerance over the interval"};
    Label Lbl_EOP{*this, "Lbl_EOP", "End of Period"};
    TextBox EOPBox{*this, "EOPBox", "% in-tolerance at the end of the interval"};
    PushButton Compute{*this, "Compute", "Compute Coefficients",
                       "Find the coefficients of these percentages"};
    Label Lbl_theta1{*this, "Lbl_theta1", "a"};
    TextBox theta1Box{*this, "theta1Box", "Coefficient a"};
    Label Lbl_theta2{*this, "Lbl_theta2", "b"};
    TextBox theta2Box{*this, "theta2Box", "Coefficient b"};
    Label Lbl_theta3{*this, "Lbl_theta3", "c"};
    TextBox theta3Box{*this, "theta3Box", "Coefficient c"};
    Label Lbl_Questionable{*this, "Lbl_Questionable", "questionable",
                           "The form of the model may not be consistent with the percentages"};
    PushButton cmdComputePct{*this, "cmdComputePct", "Compute % In-Tolerance",
                             "Find the percentages of these coefficients"};
    PictureArea pic_RPlot{*this, "pic_RPlot", "Time Since Test or Calibration",
                          "Reliability over the time since the last test or calibration"};
    TextBox txt_RPlotData_0{*this, "txt_RPlotData_0", "A time; shows the reliability then"};
    TextBox txt_RPlotData_1{*this, "txt_RPlotData_1",
                            "A reliability in percent; shows the time it is reached"};
    TextBox txt_RPlotData_2{*this, "txt_RPlotData_2", "Time at the right end of the plot"};
    PushButton mnu_Exit_0{*this, "mnu_Exit_0", "&OK", "Keep the models"};
    PushButton mnu_Exit_1{*this, "mnu_Exit_1", "&Cancel", "Leave without changes"};

    /// Opens on the slot of Rel_ActiveSlot.
    explicit ReliabilityScreen(Session& session);

    void refresh() override;

  protected:
    bool mayClose(Way way) override;

  private:
    /// A box that stands for a number of the slot: what was typed counts once it is read.
    struct Entry {
        TextBox& box;
        std::optional<std::string> typed{};
    };
    enum Figure { Interval, Bop, Aop, Eop, A, B, C, figures };

    Session& session_;
    const Analysis opened_; // Cancel puts it back
    Reliability kept_;      // as loaded or last committed; what differs is a change
    bool committed_ = false;
    std::optional<NumberEntry> typedBop_; // waits for a model that may have it
    bool pctRefused_ = false;             // the coefficients give no percentages
    std::array<Entry, figures> entries_{
        {{CalibrationIntervalBox}, {BOPBox}, {AOPBox}, {EOPBox}, {theta1Box}, {theta2Box}, {theta3Box}}};
    // Of the plot; times are in units of the interval.
    Coefficients plotTheta_;
    double plotTime_ = 0;
    double plotReliability_ = 0; // a fraction
    double plotLimit_ = 0;

    void bind();
    int slotNumber() const;
    ReliabilitySlot slot() const { return {record(), slotNumber()}; }
    Analysis& record() const;

    void load(int slot);
    void switchTo(int slot);
    void chooseModel(int index);

    void takeInterval();
    void takePercentages();
    void takeCoefficients();
    void forgetTyped();
    bool hasTyped(Figure first, Figure last) const;
    bool changed() const;

    bool allThere(std::size_t checks);
    bool compute();
    bool computePct();
    bool computeWhatWasTyped();
    bool commit();

    void clearCurve();
    void startPlot();
    bool plotted() const;
    void redraw();
    FieldResult leavePlotBox(int box, const std::string& text);
    void showPlot();
    std::string figureText(Figure figure) const;
};

} // namespace metrisk
