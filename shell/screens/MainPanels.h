// The panels of the main screen. Every widget bears its control's name; texts and states come later,
// from the model.
#pragma once

class QWidget;

namespace metrisk {

QWidget* makeIdentificationPanel();
QWidget* makeSubjectPanel();
QWidget* makeMeasuringPanel();
QWidget* makeComputedRisksPanel();
QWidget* makeBaselineRisksPanel();
QWidget* makeOptionsPanel();

} // namespace metrisk
