// Map of a risk over two quantities, with sliders for all four, screen RiskMap.
#pragma once

#include "desk/kit/Background.h"
#include "desk/kit/Worksheet.h"
#include "drawing/PlotFrame.h"
#include "plots/RiskMapPicture.h"

#include <memory>
#include <optional>

namespace metrisk {

struct Session;

class RiskMapScreen final : public Worksheet {
  public:
    PictureArea pic_Map{*this, "pic_Map", "No map", "Click for the risks at a place"};
    Label Lbl_Here{*this, "Lbl_Here"};

    RadioButton Opt_FalseAccept{*this, "Opt_FalseAccept", "False Accept Risk", "Map the false accept risk",
                                0};
    RadioButton Opt_FalseReject{*this, "Opt_FalseReject", "False Reject Risk", "Map the false reject risk",
                                0};
    Label Lbl_X{*this, "Lbl_X", "Across:"};
    Choice cbo_X{*this, "cbo_X", "Quantity of the horizontal axis"};
    TextBox XFromBox{*this, "XFromBox", "Least value across"};
    TextBox XToBox{*this, "XToBox", "Greatest value across"};
    Label Lbl_Y{*this, "Lbl_Y", "Up:"};
    Choice cbo_Y{*this, "cbo_Y", "Quantity of the vertical axis"};
    TextBox YFromBox{*this, "YFromBox", "Least value up"};
    TextBox YToBox{*this, "YToBox", "Greatest value up"};

    Label Lbl_Ratio{*this, "Lbl_Ratio"};
    Slider sld_Ratio{*this, "sld_Ratio", "Accuracy ratio"};
    Label Lbl_SUPct{*this, "Lbl_SUPct"};
    Slider sld_SUPct{*this, "sld_SUPct", "% in-tolerance of the subject parameter"};
    Label Lbl_MTEPct{*this, "Lbl_MTEPct"};
    Slider sld_MTEPct{*this, "sld_MTEPct", "% in-tolerance of the measuring parameter"};
    Label Lbl_Multiplier{*this, "Lbl_Multiplier"};
    Slider sld_Multiplier{*this, "sld_Multiplier", "Multiplier of the guardbands"};
    PushButton cmd_Present{*this, "cmd_Present", "Pr&esent Analysis", "Put all sliders back to the analysis"};

    /// Both parameters have been fitted.
    explicit RiskMapScreen(Session& session);

    void refresh() override;

    /// A finer map is still being computed.
    bool isComputing() const { return background_.isBusy(); }

  protected:
    bool mayClose(Way way) override;

  private:
    struct Knob {
        Slider RiskMapScreen::*slider;
        Label RiskMapScreen::*label;
    };
    static const std::array<Knob, mapQuantities> knobs;

    /// What is mapped, the grid aside.
    MapRequest request(std::size_t side) const { return {x_, y_, side, side, place_}; }
    void bindAxis(MapAxis& axis, MapAxis& other, Choice& choice, TextBox& from, TextBox& to);
    void compute();
    void computeGrid(std::size_t side);
    void draw();
    std::string valueText(MapQuantity quantity, double value) const;
    std::string hereText() const;

    Session& session_;
    const RiskMap map_;
    MapPlace place_; // of the sliders
    MapAxis x_, y_;
    MappedRisk risk_ = MappedRisk::FalseAccept;
    std::optional<MapPlace> clicked_;
    RiskGrid grid_;
    std::optional<MapRequest> drawn_;                                  // of the grid
    std::shared_ptr<PlotFrame> frame_ = std::make_shared<PlotFrame>(); // of the picture as it is seen
    Background background_;
};

} // namespace metrisk
