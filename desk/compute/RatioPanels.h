// The two accuracy ratios that the main screen shows beside the risks.
#pragma once

#include <string>

namespace metrisk {

struct Session;

/// Texts such as "4.00 : 1", empty when not computable.
struct RatioPanels {
    std::string pnl_UncRatio; // the entries' SU_Sigma over MTE_Sigma
    std::string pnlTUR;       // test uncertainty ratio: tolerance over the 95 % measuring uncertainty
};

RatioPanels ratioPanels(const Session& session);

/// Tells the main screen that the ratios may differ now.
void UpdateRatioPanels(Session& session);

} // namespace metrisk
