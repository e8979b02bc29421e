#include "cli/Figures.h"

#include "base/RiskText.h"
#include "base/Text.h"

#include <cmath>

namespace metrisk::cli {

std::string riskCell(double fraction, std::string (*picture)(std::string_view units)) {
    if (std::isnan(fraction)) return "not computed";
    const ShownRisk shown = shownRisk(fraction);
    const std::string number = riskText(shown, picture(shown.units), {});
    return std::string(withoutOuterBlanks(number)) + " " + shown.units;
}

std::string exactRow(const std::optional<VerifiedFigure>& figure, RiskPicture picture) {
    const std::string text = exactRemark(figure, picture, {});
    return text.empty() ? "" : tableRow("", text);
}

std::string tableRow(const char* label, const std::string& value) {
    constexpr std::size_t width = 28;
    const std::size_t size = countCharacters(label);
    const std::string row = "  " + std::string(label) + std::string(size < width ? width - size : 1, ' ');
    return row + value + "\n";
}

} // namespace metrisk::cli
