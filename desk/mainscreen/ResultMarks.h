// What is said beside the results: whether they are current, and how they stand to the baseline.
#pragma once

namespace metrisk {

class MainScreen;
struct Analysis;
struct ExactRemarks;

/// The state in words, a sign with words at each risk, and whether exact integration agrees. Figures of other
/// entries are compared with nothing.
void showResultMarks(MainScreen& screen, const Analysis& record, const ExactRemarks& remarks);

} // namespace metrisk
