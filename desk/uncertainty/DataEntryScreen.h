// The sample worksheet, screen DataEntryWorksheet: values or deviations of one parameter and their
// statistics.
#pragma once

#include "desk/kit/Worksheet.h"
#include "desk/uncertainty/SampleGrid.h"
#include "record/Analysis.h"

namespace metrisk {

struct Session;

class DataEntryScreen final : public Worksheet {
  public:
    Table ss{*this, "ss", "Measured Values: up to 200, a row each"};
    Label Lbl_Taken{*this, "Lbl_Taken"};
    Label Lbl_NominalValue{*this, "Lbl_NominalValue", "Mode or Nominal Value"};
    TextBox NominalValueBox{*this, "NominalValueBox", "The mode of the subject parameter"};
    RadioButton measOption_0{*this, "measOption_0", "&Deviations",
                             "Deviations from the mode, in tolerance units", 0};
    RadioButton measOption_1{*this, "measOption_1", "&Measured Values", "Measured values, in nominal units",
                             0};
    PictureArea pic_Samples{*this, "pic_Samples", "", "How the samples spread, with their mean and limits"};
    Label Lbl_Range{*this, "Lbl_Range"};
    Label Lbl_MostSamples{*this, "Lbl_MostSamples"};
    Label Lbl_MeanValue{*this, "Lbl_MeanValue"};
    TextBox MeanValuePanel{*this, "MeanValuePanel", "Mean of the samples"};
    Label Lbl_SampleSize{*this, "Lbl_SampleSize", "Sample Size"};
    TextBox SampleSizePanel{*this, "SampleSizePanel", "Number of samples"};
    Label Lbl_StdDeviation{*this, "Lbl_StdDeviation", "Standard Deviation"};
    TextBox StdDeviationPanel{*this, "StdDeviationPanel", "Standard deviation of the samples"};
    CheckBox chk_SamplingDistribution{*this, "chk_SamplingDistribution", "Use &Std Deviation in the Mean",
                                      "The error source is the deviation of the mean, not of one sample"};
    Label Lbl_MeanSigma{*this, "Lbl_MeanSigma", "Std Deviation in the Mean"};
    TextBox pnl_MeanSigma{*this, "pnl_MeanSigma", "Standard deviation of the mean of the samples"};
    PushButton mnu_Exit_0{*this, "mnu_Exit_0", "&OK", "Fill the error source from these samples"};
    PushButton mnu_Exit_1{*this, "mnu_Exit_1", "&Cancel", "Leave the samples as they were"};

    /// Slot 1 is the measuring, 2 the subject parameter.
    DataEntryScreen(Session& session, int slot);

    void refresh() override;

  protected:
    bool mayClose(Way way) override;

  private:
    void bindGrid();
    std::vector<MenuItem> editItems();
    /// A change of the grid whose statistics have no finite figures is taken back and told.
    template <class Change>
    void change(Change change);
    bool rowHasEntries() const;
    void showStatistics();
    void drawPicture(double scale);

    Session& session_;
    const int slot_;
    Analysis draft_; // the record as OK would leave it, but for the samples themselves
    SampleGrid grid_;
    double deviation_ = 0; // of the samples, in tolerance units
    std::string notice_;
};

} // namespace metrisk
