#include "desk/mainscreen/WorstCaseLine.h"

#include "base/NumberFormat.h"
#include "desk/kit/Controls.h"
#include "desk/kit/Session.h"
#include "persistence/Fingerprint.h"
#include "persistence/SettingKeys.h"
#include "risk/decision/RecordDecision.h"
#include "risk/decision/ShownFigures.h"
#include "risk/decision/TestRatios.h"
#include "risk/decision/WorstCase.h"
#include "risk/evaluate/CurrentFigures.h"

#include <utility>

namespace metrisk {

namespace {

std::string percent(double fraction, const Regional& regional) {
    return shownPercent({fraction, 1 - fraction}, {}, regional);
}

struct Copied {
    Analysis record;
    Regional regional;
};

std::pair<std::string, std::string> computed(const Copied& copied) {
    const Regional& regional = copied.regional;
    const auto basis = decisionBasis(copied.record, regional);
    if (!basis) return {};
    const auto worst = worstCase(*basis, Convention::Producer, wholeRange(*basis));
    if (!worst) return {};
    const auto figure = [&](double value, int digits) { return GeneralText(value, regional, digits); };
    const std::string line = "At worst " + percent(worst->falseAccept, regional) + " joint (" +
                             figure(worst->pctInTol, 3) + " % in-tolerance)";
    std::string tip = "Worst joint false accept risk over an unknown % in-tolerance, with these test limits";
    if (basis->subject.pctInTol == 100) tip += "; the search is over normal parameters";
    if (const auto risks = risksOf(*basis))
        tip += ".\nAs entered: conditional (consumer's) " + percent(risks->consumer, regional) +
               ", joint (producer's) " + percent(risks->producer, regional);
    const TestRatios ratios = ratiosOf(*basis);
    const DecisionTexts texts = decisionTexts(copied.record, regional, basis->expanded());
    tip += ".\nTUR " + figure(ratios.tur, 3) + " : 1; U = " + texts.width(basis->expanded()) +
           " (k = " + figure(basis->coverage, 3) + "), tolerance to U " +
           figure(ratios.toleranceToUncertainty, 3) + " : 1.\nBy exact integration.";
    return {line, tip};
}

} // namespace

WorstCaseLine::WorstCaseLine(Session& session, std::function<void()> arrived)
    : session_(session), arrived_(std::move(arrived)),
      on_(session.settings.read(mainScreenSettings::worstCase) == "Yes"), background_(session.ui) {}

void WorstCaseLine::turn(bool on) {
    on_ = on;
    session_.settings.write(mainScreenSettings::worstCase, on ? "Yes" : "No");
}

void WorstCaseLine::show(Label& label) {
    label.text.clear();
    label.toolTip.clear();
    label.visible = false;
    const Analysis& r = session_.record;
    if (!on_ || r.Last_PctInTol == 0 || r.Computing || !risksAreCurrent(r)) return;
    const std::string entries = inputsFingerprint(r);
    if (entries == entries_) {
        if (!texts_) return;
        label.text = texts_->line;
        label.toolTip = texts_->tip;
        label.visible = !label.text.empty();
        return;
    }
    entries_ = entries;
    texts_.reset();
    background_.start(
        [this, copied = Copied{r, session_.regional}](const std::stop_token&) -> Background::Delivery {
            auto [line, tip] = computed(copied);
            return [this, texts = Texts{std::move(line), std::move(tip)}] {
                texts_ = texts;
                arrived_();
            };
        });
}

} // namespace metrisk
