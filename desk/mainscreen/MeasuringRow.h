// The row of the measuring parameter, entered by tolerance or by uncertainty.
#pragma once

namespace metrisk {

class MainScreen;
struct Analysis;
struct AnalysisTexts;

/// The four labels, their boxes, and the signs between them.
void showMeasuringRow(MainScreen& screen, const Analysis& record, const AnalysisTexts& texts);

} // namespace metrisk
