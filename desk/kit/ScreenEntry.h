// The table of all screens: menus, other screens, tests and pictures open them by their names.
#pragma once

#include "desk/kit/Menu.h"
#include "desk/kit/Worksheet.h"

#include <functional>
#include <memory>
#include <span>
#include <string_view>

namespace metrisk {

class FileChooser;
class PlotDesk;
class ReportDesk;
struct Analysis;
struct PointDesk;
struct ReadingHistory;
struct Session;

/// What screens are made from beside the session; null where a program has none of it.
struct DeskParts {
    Session& session;
    FileChooser* files = nullptr;
    ReportDesk* reports = nullptr;
    PlotDesk* plots = nullptr;
    ReadingHistory* readings = nullptr;
    std::function<void()>
        openTolerances{}; // from the uncertainty worksheet: shows the main screen what changed
    PointDesk* points = nullptr;
    /// Takes an analysis that has been made elsewhere onto the main screen; false if the user thinks better.
    std::function<bool(const Analysis&)> openAnalysis{};
};

/// One row a screen; one that comes with an argument, as a parameter or a swept quantity, has a row for each.
struct ScreenEntry {
    std::string_view name;    // that of the worksheet, and behind a point its argument
    std::string_view caption; // as a menu names it; empty where no menu opens it
    Needs needs = Needs::Nothing;
    /// Shows no box and reads no file: what a screen needs to find, it finds when it begins.
    std::unique_ptr<Worksheet> (*make)(const DeskParts& parts) = nullptr;
};

std::span<const ScreenEntry> allScreens();

namespace screens {
inline constexpr std::string_view baseline = "BaselineAnalysis";
inline constexpr std::string_view biasReference[] = {"BiasCalcOption.Subject", "BiasCalcOption.Measuring"};
inline constexpr std::string_view colours = "ColorScheme";
inline constexpr std::string_view falseAccept = "FAFORM";
inline constexpr std::string_view guardbands = "GuardbandAnalysis";
inline constexpr std::string_view observed = "ObservedPctWorksheet";
inline constexpr std::string_view offsets = "OffsetCalc";
inline constexpr std::string_view ratio = "EqRatio";
inline constexpr std::string_view reading = "Reading";
inline constexpr std::string_view reliability[] = {"ReliabilityModelCoefficients.Subject",
                                                   "ReliabilityModelCoefficients.Measuring"};
inline constexpr std::string_view riskByK = "GuardPlot.KFactor";
inline constexpr std::string_view riskByMeasuringPct = "GuardPlot.MeasuringPct";
inline constexpr std::string_view riskByMultiplier = "GuardPlot.Multiplier";
inline constexpr std::string_view riskBySubjectPct = "GuardPlot.SubjectPct";
inline constexpr std::string_view riskMap = "RiskMap";
inline constexpr std::string_view selfCheck = "SelfCheck";
inline constexpr std::string_view strategies = "Strategies";
inline constexpr std::string_view systemInformation = "SystemInformation";
inline constexpr std::string_view testPoints = "TestPoints";
inline constexpr std::string_view uncertainty = "MTEError";
inline constexpr std::string_view units = "UnitsRevision";
} // namespace screens

/// Makes the screen, has it begin and shows it until it is left; `prepare` comes before it is seen. A name
/// that is none raises std::logic_error.
void runScreen(std::string_view name, const DeskParts& parts,
               const std::function<void(Worksheet&)>& prepare = {});

/// The menu item that does so, in the words of the table and with what it needs.
MenuItem screenItem(const char* control, std::string_view name, const DeskParts& parts);

} // namespace metrisk
