// What the guardband worksheet's buttons do.
#include "desk/guardband/GuardbandScreen.h"

#include "base/DisplayRule.h"
#include "base/FlagGuard.h"
#include "base/NumberText.h"
#include "desk/compute/ComputeGuardbands.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/compute/ComputeSteps.h"
#include "desk/compute/KFactors.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/Notes.h"
#include "desk/kit/Message.h"
#include "desk/kit/ScreenEntry.h"
#include "desk/kit/Session.h"
#include "record/SubjectSide.h"
#include "risk/PublishRisks.h"
#include "risk/Snapshot.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace metrisk {

namespace {

constexpr Message noChanges{"No changes have been made to guardband limits.", "Compute Not Required",
                            BoxIcon::Information};
constexpr Message onlySymmetricPlot{"Only works for symmetric multipliers or k-Factors.",
                                    "Guardband Plot Function"};
constexpr double mostDigits = 15;
constexpr const char* ppmPicture = "#,##0.0";
constexpr const char* percentPicture = "#,##0.0000";
constexpr const char* ratioPicture = "#,##0.00";

/// Where the guardbands just solved miss their target by exact integration.
std::optional<MissedTarget> missedTargetOf(const Analysis& r, const std::optional<double>& risk) {
    const bool oneMultiplier = !r.OptTwoSided || r.GB_SymmetricMult;
    if (!oneMultiplier && !r.GB_SymmetricK) return std::nullopt;
    return missedTarget(r, oneMultiplier ? GuardbandForm::Multiplier : GuardbandForm::KFactor,
                        {r.GB_KeyOn == 2   ? GuardbandKey::Equalize
                         : r.GB_KeyOn == 1 ? GuardbandKey::FalseReject
                                           : GuardbandKey::FalseAccept,
                         risk.value_or(0)});
}

} // namespace

bool hasNoFalseAccepts(const Analysis& record) {
    return record.SU_Distribution == "Uniform";
}

bool GuardbandScreen::fitBoth() {
    Analysis& r = session_.record;
    r.ComputeNeeded = true;
    r.ComputeScope = "Both";
    ValidateAndFit(session_);
    return !r.AbortFlag;
}

void GuardbandScreen::computeGuardbands() {
    Analysis& r = session_.record;
    if (!fitBoth()) {
        r.AbortFlag = false;
        return;
    }
    const RiskBox& keyed = r.GB_KeyOn == 1 ? falseRejectBox : falseAcceptBox;
    const std::optional<double> risk = enteredRisk(textOf(keyed), r.*keyed.unitsName, session_.regional);
    std::optional<GuardbandPair> found;
    {
        const WaitPointer wait(session_.ui);
        resolution_.clear();
        found = guardbandsAsked(session_, risk);
    }
    if (found) {
        if (r.GB_KeyOn != 2) typed(keyed) = true; // whatever the box held, it was the target
        takeGuardbands(session_, *found);
        dropRisks();
        missed_ = missedTargetOf(r, risk);
    }
    r.SearchAbort = r.AbortFlag = false;
}

/// As if the guardband had been typed.
void GuardbandScreen::useExact() {
    if (!missed_ || !missed_->guardband) return;
    const std::string text = GeneralText(*missed_->guardband, session_.regional);
    const SubjectSide& side = presentSide(session_.record);
    missed_->form == GuardbandForm::KFactor ? leaveK(side, text) : leaveMultiplier(side, text);
}

/// True if the multipliers or the resolution differ from those of the last compute, which are then theirs.
bool GuardbandScreen::guardbandChanged() {
    const Analysis& r = session_.record;
    const int resolution = resolutionDigits();
    if (resolution != lastResolution_) {
        lastResolution_ = resolution;
        return true;
    }
    return (!r.OptSingleLower && r.GB_UpperMult != lastUpper_) ||
           (!r.OptSingleUpper && r.GB_LowerMult != lastLower_) || faTyped_ || frTyped_;
}

void GuardbandScreen::computeRisks() {
    Analysis& r = session_.record;
    if (!fitBoth()) {
        r.AbortFlag = false;
        return;
    }
    CompareWithSnapshot(session_.record);
    const bool inputsStand =
        r.NothingChanged && r.GuardbandsUnchanged && !r.GB_RisksStale && !r.RisksNeedCompute;
    const bool changed = guardbandChanged();
    if (changed || !inputsStand) ratioCurrent_ = ratioCurrent_ && !changed && inputsStand;
    const WaitPointer wait(session_.ui);
    if (inputsStand && !changed && computed_) {
        if (!r.GB_IncludeEqAccRat || ratioCurrent_) {
            tell(session_.ui, noChanges);
            return;
        }
    } else if (!computeAtGuardbands()) {
        return;
    }
    searchRatio();
    r.GB_RisksStale = false;
}

bool GuardbandScreen::computeAtGuardbands() {
    Analysis& r = session_.record;
    Risks risks{};
    if (!risksAtLimits(session_, true, risks)) {
        r.AbortFlag = r.SearchAbort = false;
        faText_.clear();
        frText_.clear();
        computed_.reset();
        r.GB_RisksStale = true;
        return false;
    }
    computed_ = Risks{std::max(risks.falseAccept, 0.0), std::max(risks.falseReject, 0.0)};
    ratioCurrent_ = false;
    lastUpper_ = r.GB_UpperMult;
    lastLower_ = r.GB_LowerMult;
    faTyped_ = frTyped_ = false;
    missed_.reset();
    holdWorksheetRisks(r, *computed_);
    showRisks(true);
    return true;
}

/// Texts of the record's risks.
void GuardbandScreen::showRisks(bool known) {
    const Analysis& r = session_.record;
    const auto text = [&](double value, const std::string& units) -> std::string {
        if (!known) return "";
        const char* picture = units == ppmUnits ? ppmPicture : percentPicture;
        return FormatNumber(value, units == ppmUnits ? picture : WidenPicture(value, picture),
                            session_.regional);
    };
    faText_ = hasNoFalseAccepts(r) ? "" : text(r.GB_FARisk, r.GB_FARiskUnits);
    frText_ = text(r.GB_FRRisk, r.GB_FRRiskUnits);
    ratioText_ = r.GB_EqAccRatValid ? FormatNumber(r.GB_EqAccRat, ratioPicture, session_.regional) : "";
}

/// The ratio of the computed risks, behind the progress screen.
void GuardbandScreen::searchRatio() {
    Analysis& r = session_.record;
    if (!r.GB_IncludeEqAccRat) {
        r.GB_EqAccRat = 0;
        ratioText_.clear();
        return;
    }
    if (ratioCurrent_ || !computed_) return;
    using Shown = KeptFields<&Analysis::GB_FARisk, &Analysis::GB_FRRisk>;
    const Shown shown(r);
    r.GB_FARisk = computed_->falseAccept;
    r.GB_FRRisk = computed_->falseReject;
    r.AbortFlag = false;
    r.RisksComputed = true;
    {
        const FlagGuard request(r.GB_RatioRequest);
        requestCompute(session_);
    }
    shown.restore(r);
    if (r.AbortFlag) {
        r.AbortFlag = false;
        r.GB_EqAccRat = 0;
    } else {
        ratioCurrent_ = true;
    }
    ratioText_ = FormatNumber(r.GB_EqAccRat, ratioPicture, session_.regional);
}

int GuardbandScreen::resolutionDigits() const {
    const double digits = std::trunc(ParseValue(resolution_, session_.regional));
    return static_cast<int>(std::clamp(digits, 0.0, mostDigits));
}

void GuardbandScreen::roundOff() {
    Analysis& r = session_.record;
    const std::string picture = PictureForDecimals(resolutionDigits());
    const bool byK =
        r.OptTwoSided ? r.GB_UpperKEntered || r.GB_LowerKEntered : bool(r.*presentSide(r).kEntered);
    const auto rounded = [&](double value) {
        return ParseValue(FormatNumber(value, picture, session_.regional), session_.regional);
    };
    const auto eachSide = [&](auto&& round) {
        for (const SubjectSide* side : {&upperSide, &lowerSide})
            if (!(r.*side->absent)) round(*side, side == &upperSide);
    };
    const auto roundK = [&](const SubjectSide& side) {
        r.*side.kFactor = rounded(r.*side.kFactor);
        if (!(r.*side.kPicture).empty()) r.*side.kPicture = picture;
    };
    if (byK) {
        // The multiplier follows unrounded: rounded as well, it would move the limit away from the k.
        eachSide([&](const SubjectSide& side, bool upper) {
            r.*side.kPicture = picture;
            roundK(side);
            upper ? UpperMultiplierFromKFactor(r, session_.regional)
                  : LowerMultiplierFromKFactor(r, session_.regional);
        });
        settleSymmetry(r, session_.regional);
    } else {
        eachSide([&](const SubjectSide& side, bool upper) {
            r.*side.multiplier = rounded(r.*side.multiplier);
            r.*side.multiplierPicture = picture;
            upper ? ShowUpperKFactor(r, session_.regional) : ShowLowerKFactor(r, session_.regional);
        });
        settleSymmetry(r, session_.regional);
        eachSide([&](const SubjectSide& side, bool) { roundK(side); });
    }
    guardbandsTyped();
    computeRisks();
}

void GuardbandScreen::plot() {
    Analysis& r = session_.record;
    if (!fitBoth()) {
        r.AbortFlag = false;
        return;
    }
    if (r.OptTwoSided && !r.GB_SymmetricMult && !r.GB_SymmetricK) {
        tell(session_.ui, onlySymmetricPlot);
        return;
    }
    const bool byK = r.OptTwoSided && r.GB_SymmetricK && !r.GB_SymmetricMult;
    runScreen(byK ? screens::riskByK : screens::riskByMultiplier, {session_});
}

void GuardbandScreen::jumpTo(const std::string& word) {
    const std::pair<const char*, Button&> buttons[] = {{"False Accept", opt_FARisk},
                                                       {"False Reject", opt_FRRisk},
                                                       {"Equalize Risks", opt_EqualizeRisks},
                                                       {"Compute Guardbands", cmdComputeGuardbands},
                                                       {"Compute k-Factors", cmdComputeGuardbands},
                                                       {"Compute Risks", CmdCompute},
                                                       {"Update", CmdCompute},
                                                       {"View Plot", CmdPlot},
                                                       {"Round Off", cmd_RoundOff},
                                                       {"Symmetric Multipliers", SymmetryCheckBox},
                                                       {"Symmetric k-Factors", chk_SymmetricK}};
    if (word == "Displayed Resolution") session_.ui.focus({name, txt_DisplayedResolution.name});
    for (const auto& [jumpWord, button] : buttons)
        if (word == jumpWord && button.enabled && !(button.kind == Button::Kind::Check && button.checked))
            button.clicked(true);
}

bool GuardbandScreen::mayClose(Way way) {
    Analysis& r = session_.record;
    const bool changed = loaded_.differ(r);
    const Answer retain = way == Way::Ok ? Answer::Yes
                          : !changed     ? Answer::No
                                         : ask(session_.ui, retainChanges);
    if (retain == Answer::Yes) {
        store(changed);
        return true;
    }
    if (retain != Answer::No) return false;
    const Analysis left = std::exchange(r, opened_);
    keepName(r, left);
    return true;
}

void GuardbandScreen::store(bool changed) {
    Analysis& r = session_.record;
    r.GB_AsymmetricMult = !r.GB_SymmetricMult;
    r.GB_EqAccRatValid = r.GB_IncludeEqAccRat && ratioCurrent_;
    if (changed) r.FileChanged = true;
    if (r.ObservedWorksheetOpen || !r.IncludeGuardbands) return;
    if (computed_ && r.NothingChanged) {
        publishRisks(r, computed_->falseAccept, computed_->falseReject);
        r.RisksNeedCompute = false;
        r.ResultsStale = false;
        // Without a ratio of these risks the main screen has one to search yet.
        if (ratioCurrent_ || !r.ComputeEqRatio) {
            r.Last_GBUpper = r.GB_UpperMult;
            r.Last_GBLower = r.GB_LowerMult;
            r.Last_IncludeGuardbands = r.IncludeGuardbands;
            r.GuardbandsChanged = false;
            r.GuardbandsUnchanged = true;
        }
        if (ratioCurrent_) {
            r.EqAccRat = r.GB_EqAccRat;
            r.EqAccRatDen = "1.00";
            TakeBaselineSnapshot(r);
        }
    } else if (changed) {
        r.RisksNeedCompute = true;
    }
}

} // namespace metrisk
