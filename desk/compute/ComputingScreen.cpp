#include "desk/compute/ComputingScreen.h"

#include "base/NumberText.h"

#include <cmath>

namespace metrisk {

double searchMeter(double error, double tolerance) {
    if (tolerance == 0) return error == 0 ? 100 : 0;
    const double orders = std::log10(std::trunc(std::fabs(error) / tolerance) + 1);
    const double whole = std::trunc(orders);
    if (!(whole < 5)) return 0;
    if (whole == 4) return 40 - 5 * orders;
    if (whole == 3) return 60 - 6.67 * orders;
    if (whole == 2) return 80 - 10 * orders;
    return 100 - 20 * orders;
}

void ComputingScreen::startSearch(const char* message) {
    progress_.reset();
    Lbl_Message2.text = std::string(message) + "\nInitializing Search";
    Meter.value = 0;
}

void ComputingScreen::refresh() {
    if (!progress_) return;
    const SearchProgress& p = *progress_;
    Lbl_Message2.text = std::string(p.message) + "\nIteration " + std::to_string(p.iteration) + " = " +
                        FormatNumber(p.ratio, "#0.00", session_.regional) + " : 1";
    Meter.value = searchMeter(p.error, p.tolerance);
}

} // namespace metrisk
