// The small print of a report: where its figures come from.
#include "persistence/Fingerprint.h"
#include "reports/Compose.h"

namespace metrisk {

void ComposeOrigin(Composition& c) {
    const Analysis& r = c.record;
    c.document.IndentLeft = 0;
    c.document.CurrentY += 180;
    c.style(7, false);
    const std::string fingerprint = inputsFingerprint(r);
    c.document.SmallPrint("Metrisk " METRISK_VERSION ", False Accept Risk " +
                          std::string(r.FalseAcceptOption == 0 ? "Option 1 (Consumer's Perspective)"
                                                               : "Option 2 (Producer's Perspective)") +
                          ", " + longDate(c.now) +
                          (fingerprint.empty() ? "" : "\nSHA-256 of the inputs: " + fingerprint));
}

} // namespace metrisk
