#include "persistence/DefaultBaseline.h"

#include "model/Analysis.h"
#include "model/NumberText.h"
#include "persistence/Settings.h"
#include "risk/DisplayRule.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace metrisk {

namespace {

constexpr const char* baselineSection = "BaselineDefaults";
constexpr const char* optionSection = "RiskOption";
constexpr const char* optionKey = "FalseAcceptConvention";
constexpr const char* consumerWord = "Consumer";
constexpr const char* producerWord = "Producer";
constexpr const char* pctPicture = "##0.0000";
constexpr const char* riskFigurePicture = "#,##0.0000";
constexpr int textLength = 60;

const Regional neutral{};

/// No number here is large enough for grouping marks alone, so a lone comma is a decimal mark.
double figure(std::string text) {
    if (text.find('.') == std::string::npos) std::replace(text.begin(), text.end(), ',', '.');
    return ParseValue(text, neutral);
}

int optionOfWord(std::string word) {
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return word == "CONSUMER" ? 0 : 1;
}

const char* wordOfOption(int option) { return option == 0 ? consumerWord : producerWord; }

} // namespace

DefaultBaseline ReadDefaultBaseline(const Settings& settings) {
    const auto read = [&](const char* key, const char* defaultText) {
        return settings.ReadSetting(baselineSection, key, defaultText, textLength);
    };
    DefaultBaseline b;
    const std::string ratio = read("Metrisk", "4:1");
    const std::size_t colon = ratio.find(':');
    b.AccRatNum = figure(ratio.substr(0, colon));
    b.AccRatDen = colon == std::string::npos ? 0 : figure(ratio.substr(colon + 1));
    b.MTEPctInTol = figure(read("MTEPctInTol", "85"));
    b.SUPctInTol = figure(read("SUPctInTol", "72"));
    b.FalseAccept = figure(read("FalseAcceptRisk", "4.1"));
    b.AcceptUnits = read("FalseAcceptUnits", "%");
    b.FalseAcceptOption = optionOfWord(read("FalseAcceptCriterion", consumerWord));
    b.FalseReject = figure(read("FalseRejectRisk", "3.75"));
    b.RejectUnits = read("FalseRejectUnits", "%");
    b.UserOption = read("UserOption", "User");
    if (b.RejectUnits != percentUnits && b.RejectUnits != ppmUnits) b.UserOption = "User";
    return b;
}

void WriteDefaultBaseline(Settings& settings, const DefaultBaseline& b) {
    const auto write = [&](const char* key, std::string_view value) {
        settings.WriteSetting(baselineSection, key, value);
    };
    write("Metrisk", GeneralText(b.AccRatNum, neutral) + ":" + GeneralText(b.AccRatDen, neutral));
    write("MTEPctInTol", FormatNumber(b.MTEPctInTol, pctPicture, neutral));
    write("SUPctInTol", FormatNumber(b.SUPctInTol, pctPicture, neutral));
    write("FalseAcceptRisk", FormatNumber(b.FalseAccept, riskFigurePicture, neutral));
    write("FalseAcceptUnits", b.AcceptUnits);
    write("FalseAcceptCriterion", wordOfOption(b.FalseAcceptOption));
    write("FalseRejectRisk", FormatNumber(b.FalseReject, riskFigurePicture, neutral));
    write("FalseRejectUnits", b.RejectUnits);
    write("UserOption", b.UserOption);
}

int ReadDefaultOption(const Settings& settings) {
    return optionOfWord(settings.ReadSetting(optionSection, optionKey, consumerWord, textLength));
}

void WriteDefaultOption(Settings& settings, int falseAcceptOption) {
    settings.WriteSetting(optionSection, optionKey, wordOfOption(falseAcceptOption));
}

void useDefaultBaseline(Analysis& r, const DefaultBaseline& b) {
    r.Base_AccRatNum = b.AccRatNum;
    r.Base_AccRatDen = b.AccRatDen;
    r.Base_EqRatioTarget = b.AccRatDen == 0 ? 0 : b.AccRatNum / b.AccRatDen;
    r.Base_MTEPctInTol = b.MTEPctInTol;
    r.Base_SUPctInTol = b.SUPctInTol;
    r.Base_FalseAccept = b.FalseAccept;
    r.Base_AcceptUnits = b.AcceptUnits;
    r.Base_Accept_fmt = baselinePicture(b.AcceptUnits);
    r.Base_FalseReject = b.FalseReject;
    r.Base_RejectUnits = b.RejectUnits;
    r.Base_Reject_fmt = baselinePicture(b.RejectUnits);
    r.UserOption = b.UserOption;
}

} // namespace metrisk
