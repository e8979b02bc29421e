#include "desk/sweeps/RiskMapScreen.h"

#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"

#include <algorithm>
#include <utility>

namespace metrisk {

namespace {

constexpr std::size_t coarseSide = 50; // while a slider moves
constexpr std::size_t fineSide = 200;
constexpr const char* valuePicture = "#,##0.00##";
constexpr const char* riskFigure = "#,##0.0000";
constexpr Message badRange{"The range must be rising, of positive values and of percentages below 100.",
                           "Risk Map"};
constexpr Message notPrinted{"The map could not be printed.", "Print Map"};

struct Range {
    double from, to;
};

/// Where an axis begins and ends at first, and a slider always: wide enough for the analysis.
Range rangeOf(MapQuantity quantity, double present) {
    switch (quantity) {
    case MapQuantity::Ratio: return {std::min(1.0, present / 2), std::max(20.0, 2 * present)};
    case MapQuantity::SubjectPct:
    case MapQuantity::MeasuringPct: return {std::min(50.0, present / 2), 99.9};
    case MapQuantity::Multiplier: break;
    }
    return {std::min(0.5, present / 2), std::max(1.2, 1.2 * present)};
}

constexpr std::array<MapQuantity, mapQuantities> allQuantities{
    MapQuantity::Ratio, MapQuantity::SubjectPct, MapQuantity::MeasuringPct, MapQuantity::Multiplier};

} // namespace

const std::array<RiskMapScreen::Knob, mapQuantities> RiskMapScreen::knobs{
    {{&RiskMapScreen::sld_Ratio, &RiskMapScreen::Lbl_Ratio},
     {&RiskMapScreen::sld_SUPct, &RiskMapScreen::Lbl_SUPct},
     {&RiskMapScreen::sld_MTEPct, &RiskMapScreen::Lbl_MTEPct},
     {&RiskMapScreen::sld_Multiplier, &RiskMapScreen::Lbl_Multiplier}}};

RiskMapScreen::RiskMapScreen(Session& session)
    : Worksheet("RiskMap", "Risk Map", "risk-plots"), session_(session),
      map_(session.record, session.regional), place_(map_.present()), background_(session.ui) {
    const auto axis = [this](MapQuantity quantity) {
        const Range range = rangeOf(quantity, place_[quantity]);
        return MapAxis{quantity, range.from, range.to};
    };
    x_ = axis(MapQuantity::Ratio);
    y_ = axis(MapQuantity::SubjectPct);
    bindAxis(x_, y_, cbo_X, XFromBox, XToBox);
    bindAxis(y_, x_, cbo_Y, YFromBox, YToBox);
    for (std::size_t i = 0; i < mapQuantities; ++i) {
        Slider& slider = this->*knobs[i].slider;
        const Range range = rangeOf(allQuantities[i], place_.values[i]);
        slider.from = range.from;
        slider.to = range.to;
        slider.moved = [this, i](double value) {
            place_.values[i] = value;
            compute();
        };
    }
    cmd_Present.clicked = [this](bool) {
        place_ = map_.present();
        compute();
    };
    const auto show = [this](MappedRisk risk) {
        return [this, risk](bool) {
            risk_ = risk;
            draw();
        };
    };
    Opt_FalseAccept.clicked = show(MappedRisk::FalseAccept);
    Opt_FalseReject.clicked = show(MappedRisk::FalseReject);
    pic_Map.clicked = [this](double x, double y) {
        const auto at = placeOnMap(*frame_, x, y);
        if (!at) return;
        clicked_ = place_;
        (*clicked_)[x_.quantity] = x_.valueAt(at->x);
        (*clicked_)[y_.quantity] = y_.valueAt(at->y);
    };
    menus = {
        {.control = "mnu_Exit", .caption = "&Close", .run = [this] { close(Way::Cancel); }},
        {.control = "mnu_CopyMap",
         .caption = "Copy &Map",
         .run = [this] { session_.ui.copyPicture(pic_Map); },
         .shortcut = "Ctrl+C"},
        {.control = "mnu_PrintMap",
         .caption = "&Print Map",
         .run =
             [this] {
                 if (!session_.ui.print(pic_Map, caption)) tell(session_.ui, notPrinted);
             },
         .shortcut = "Ctrl+P"},
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
    compute();
    refresh();
}

/// A quantity that the other axis has changes places with it.
void RiskMapScreen::bindAxis(MapAxis& axis, MapAxis& other, Choice& choice, TextBox& from, TextBox& to) {
    for (const MapQuantity quantity : allQuantities) choice.items.emplace_back(nameOf(quantity));
    choice.chosen = [this, &axis, &other](int index) {
        const MapQuantity quantity = allQuantities[static_cast<std::size_t>(index)];
        if (quantity == other.quantity) {
            std::swap(axis, other);
        } else {
            const Range range = rangeOf(quantity, map_.present()[quantity]);
            axis = {quantity, range.from, range.to};
        }
        clicked_.reset();
        compute();
    };
    const auto enter = [this, &axis](TextBox& box, double MapAxis::*end) {
        box.left = [this, &axis, end](const std::string& text) -> FieldResult {
            MapAxis changed = axis;
            changed.*end = ParseValue(text, session_.regional);
            const bool valid =
                isMapValue(axis.quantity, changed.from) && isMapValue(axis.quantity, changed.to);
            if (!valid || !(changed.from < changed.to))
                return refuseEntry(session_.ui, badRange, valueText(axis.quantity, axis.*end));
            axis = changed;
            clicked_.reset();
            compute();
            return {false, text};
        };
    };
    enter(from, &MapAxis::from);
    enter(to, &MapAxis::to);
}

std::string RiskMapScreen::valueText(MapQuantity, double value) const {
    return FormatNumber(value, WidenPicture(value, valuePicture), session_.regional);
}

void RiskMapScreen::refresh() {
    Opt_FalseAccept.checked = risk_ == MappedRisk::FalseAccept;
    Opt_FalseReject.checked = risk_ == MappedRisk::FalseReject;
    cbo_X.index = static_cast<int>(x_.quantity);
    cbo_Y.index = static_cast<int>(y_.quantity);
    XFromBox.text = valueText(x_.quantity, x_.from);
    XToBox.text = valueText(x_.quantity, x_.to);
    YFromBox.text = valueText(y_.quantity, y_.from);
    YToBox.text = valueText(y_.quantity, y_.to);
    for (std::size_t i = 0; i < mapQuantities; ++i) {
        const MapQuantity quantity = allQuantities[i];
        Slider& slider = this->*knobs[i].slider;
        Label& label = this->*knobs[i].label;
        // What an axis shows needs no slider.
        slider.enabled = label.enabled = quantity != x_.quantity && quantity != y_.quantity;
        slider.value = place_.values[i];
        slider.text = label.text =
            std::string(nameOf(quantity)) + ": " + valueText(quantity, place_.values[i]);
    }
    cmd_Present.allow(!(place_ == map_.present()), "The sliders stand at the analysis");
    Lbl_Here.text = hereText();
}

std::string RiskMapScreen::hereText() const {
    const MapPlace& place = clicked_ ? *clicked_ : map_.present();
    std::string text = clicked_ ? "Clicked: " : "Present analysis: ";
    if (!clicked_ && map_.isLopsided()) return text + "its two guardbands differ, so it stands on no map";
    for (const MapQuantity quantity : {x_.quantity, y_.quantity})
        text += std::string(nameOf(quantity)) + " " + valueText(quantity, place[quantity]) + ", ";
    const auto risks = map_.at(place);
    if (!risks) return text + "no risks";
    const auto figure = [&](double fraction) {
        const ShownRisk risk = shownRisk(fraction);
        return FormatNumber(risk.value, WidenPicture(risk.value, riskFigure), session_.regional) + " " +
               risk.units;
    };
    return text + "False Accept Risk " + figure(risks->falseAccept) + ", False Reject Risk " +
           figure(risks->falseReject);
}

/// The coarse map is there at once, the fine one takes its place. The grids before it are shown meanwhile.
void RiskMapScreen::compute() {
    computeGrid(coarseSide);
}

void RiskMapScreen::computeGrid(std::size_t side) {
    background_.start(
        [this, map = &map_, request = request(side)](const std::stop_token& stop) -> Background::Delivery {
            RiskGrid grid = map->grid(request, stop);
            return [this, request, grid = std::move(grid)]() mutable {
                grid_ = std::move(grid);
                drawn_ = request;
                draw();
                if (request.columns < fineSide) computeGrid(fineSide);
                session_.ui.refresh(*this);
            };
        });
}

void RiskMapScreen::draw() {
    if (!drawn_) return;
    const auto here = map_.isLopsided() ? std::nullopt : std::optional(map_.present());
    const ContourMap map = riskMapPicture(grid_, *drawn_, risk_, session_.record.FalseAcceptOption, here);
    pic_Map.text = map.title + " over " + map.x.title + " and " + map.y.title;
    pic_Map.draw([map, regional = session_.regional, frame = frame_](DrawingSurface& surface) {
        *frame = DrawContourMap(surface, map, regional);
    });
}

bool RiskMapScreen::mayClose(Way) {
    background_.stop();
    return true;
}

} // namespace metrisk
