#include "window/shell/SystemFacts.h"

#include "desk/kit/Interaction.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QLocale>
#include <QRawFont>
#include <QStandardPaths>
#include <algorithm>

namespace metrisk {

namespace {

constexpr const char* missingFontTitle = "Missing Font";
constexpr const char* missingFontText =
    "You need to install the TrueType Symbol font to report and view uncertainty analysis results.";
constexpr char32_t symbols[] = {U'\u221E', U'\u03C3', U'\u00B1'};

bool hasSymbols(const QFont& font) {
    const QRawFont raw = QRawFont::fromFont(font);
    return std::all_of(std::begin(symbols), std::end(symbols),
                       [&raw](char32_t symbol) { return raw.supportsCharacter(static_cast<uint>(symbol)); });
}

} // namespace

Regional systemRegional() {
    const QLocale locale = QLocale::system();
    Regional regional;
    regional.DecimalSymbol = locale.decimalPoint().toStdString();
    regional.ThousandSeparator = locale.groupSeparator().toStdString();
    regional.NegativeSign = locale.negativeSign().toStdString();
    regional.ListSeparator = regional.DecimalSymbol == "," ? ";" : ",";
    return regional;
}

std::string toolkitName() {
    return std::string("Qt ") + qVersion() + ", " + QGuiApplication::platformName().toStdString();
}

std::string dataFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString();
}

std::string SymbolFontName() {
    const QStringList families = QFontDatabase::families();
    const bool found = std::any_of(families.begin(), families.end(),
                                   [](const QString& family) { return family.toUpper() == "SYMBOL"; });
    return found ? std::string("Symbol") : std::string();
}

void warnOfMissingSymbols(Talk& ui) {
    if (!SymbolFontName().empty() || hasSymbols(QFont())) return;
    for (const QString& family : QFontDatabase::families())
        if (hasSymbols(QFont(family))) return;
    ui.show({.text = missingFontText, .title = missingFontTitle, .icon = BoxIcon::Exclamation});
}

} // namespace metrisk
