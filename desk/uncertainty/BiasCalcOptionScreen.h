// Which in-tolerance probability of the reliability model a parameter has when it is used, screen
// BiasCalcOption.
#pragma once

#include "desk/kit/Worksheet.h"

#include <optional>
#include <string>

namespace metrisk {

struct Session;

class BiasCalcOptionScreen final : public Worksheet {
  public:
    Label Lbl_Interval{*this, "Lbl_Interval", "Current Cal / Test Interval"};
    TextBox IntervalPanel{*this, "IntervalPanel", "Interval of the reliability model"};
    TextBox IntervalUnitsBox{*this, "IntervalUnitsBox", "Cal Interval Units", Holds::Words};
    RadioButton BiasOption_0{*this, "BiasOption_0", "&End of Period (EOP)",
                             "The parameter is used at the end of its interval", 0};
    RadioButton BiasOption_1{*this, "BiasOption_1", "&Average Over Period (AOP)",
                             "The parameter is used at any time of its interval", 0};
    RadioButton BiasOption_2{*this, "BiasOption_2", "&Specific time elapsed since calibration",
                             "The parameter is used at this time", 0};
    TextBox TimeBox{*this, "TimeBox", "Time since calibration"};
    Choice TimeUnitsBox{*this, "TimeUnitsBox", "Units of the time since calibration"};
    Label Lbl_InTol{*this, "Lbl_InTol", "In-Tolerance Probability"};
    TextBox InTolPanel{*this, "InTolPanel", "Percent in-tolerance at that time"};
    Label Lbl_NoModel{*this, "Lbl_NoModel", "There is no reliability model of this parameter yet."};
    PushButton cmd_DefineModel{*this, "cmd_DefineModel", "Define a Reliability &Model...",
                               "Open the reliability worksheet of this parameter"};
    PushButton mnu_Exit_0{*this, "mnu_Exit_0", "&OK", "Take this % in-tolerance"};
    PushButton mnu_Exit_1{*this, "mnu_Exit_1", "&Cancel", "Leave the % in-tolerance as it is"};

    /// Reliability slot 0 is the subject, 1 the measuring parameter.
    BiasCalcOptionScreen(Session& session, std::size_t slot);

    void refresh() override;

  protected:
    bool mayClose(Way way) override;

  private:
    enum Option { EndOfPeriod, AverageOverPeriod, UserTime };

    void chooseOption(Option option);
    /// A fraction; none without a model or a time.
    std::optional<double> probability() const;
    bool store(double fraction);

    Session& session_;
    const std::size_t slot_;
    Option option_ = EndOfPeriod;
    double time_ = 0; // in units_
    std::string timeText_;
    std::string units_;
    std::optional<double> probability_;
};

} // namespace metrisk
