#include "desk/guardband/Procedure.h"

namespace metrisk {

namespace {

constexpr const char* equalize = "  1. Select either the \\JEqualize Risks\\j option or ";
constexpr const char* enterRisk =
    "  2. Select the \\JFalse Accept\\j or \\JFalse Reject\\j option and enter a risk "
    "(false accept or false reject) and a risk unit (% or ppm) in the \\BRisks\\b panel.";

constexpr const char* lines[] = {
    "\\H\\BTo Compute Guardbands...\\b\\h",
    equalize,
    enterRisk,
    "  3. Select \\JSymmetric Multipliers\\j and click \\JCompute Guardbands\\j in the \\BGuardbands\\b "
    "panel.",
    "\\H\\BTo Compute k-Factors...\\b\\h",
    equalize,
    enterRisk,
    "  3. Select \\JSymmetric k-Factors\\j and click \\JCompute Guardbands\\j in the \\BGuardbands\\b panel.",
    "\\H\\BTo Round Off Multipliers and k-Factors\\b\\h",
    "  1. Enter the desired number of digits of resolution in the \\JDisplayed Resolution\\j box "
    "next to the \\BRound Off\\b button.",
    "  2. Click the \\JRound Off\\j button.  The multipliers and k-factors will be rounded off and "
    "risks will be recalculated.",
    "\\H\\BTo Compute Risks...\\b\\h",
    "Enter Guardbands or k-factors and click the \\JCompute Risks\\j button in the "
    "\\BRisks\\b panel.",
    "\\H\\BTo View the Plot...\\b\\h",
    "Risks vs. guardbands or k-Factors may be plotted by clicking \\JView Plot\\j.",
};

} // namespace

std::string guardbandProcedure() {
    std::string text;
    for (const char* line : lines) text += std::string(line) + "\r\n\r\n";
    return text;
}

} // namespace metrisk
