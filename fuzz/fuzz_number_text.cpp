// Any text as a number, any picture, any regional setting: no crash, and shown numbers read back.
#include "base/DecimalForm.h"
#include "base/NumberText.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace metrisk;

void require(bool holds, const char* what, const std::string& text) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s: %s\n", what, text.c_str());
    std::abort();
}

const Regional usual[] = {
    {",", ".", ",", "-"},           {";", ",", ".", "-"},      {";", ",", "\u202F", "-"},
    {";", ",", "\u00A0", "\u2212"}, {",", ".", "\u2019", "-"}, {";", "\u066B", "\u066C", "\u200E-"},
    {";", ",", " ", "-"},           {",", ".", "", "-"},
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const bool usualSettings = input.ConsumeBool();
    Regional regional = usual[input.ConsumeIntegralInRange<std::size_t>(0, std::size(usual) - 1)];
    if (!usualSettings)
        regional = {input.ConsumeRandomLengthString(4), input.ConsumeRandomLengthString(4),
                    input.ConsumeRandomLengthString(4), input.ConsumeRandomLengthString(4)};
    const int decimals = input.ConsumeIntegralInRange(-5, 30);
    const double value = input.ConsumeFloatingPoint<double>();
    const std::string picture = input.ConsumeRandomLengthString(40);
    const std::string text = input.ConsumeRemainingBytesAsString();

    const double parsed = ParseValue(text, regional);
    require(std::isfinite(parsed), "a number that is none", text);
    require(CountSignificantDecimals(text, regional) <= CountDecimals(text, regional), "significant decimals",
            text);
    CleanNumberText(text, regional);
    NormalizeBoxText(text, regional);
    DigitsForEntry(text, regional);

    FormatNumber(value, picture, regional);
    WidenPicture(value, picture);
    RatioPicture(value, 0.001);
    if (!std::isfinite(value)) return 0;
    require(DecimalsOfValue(value, decimals) >= 0, "decimals", picture);
    if (!usualSettings) return 0;
    for (const double number : {value, parsed}) {
        const std::string shown = FormatNumber(number, PictureForDecimals(decimals), regional);
        require(ParseValue(shown, regional) == roundedToDecimals(number, decimals), "shown number", shown);
        const std::string general = GeneralText(number, regional);
        require(ParseValue(general, regional) == DecimalForm::of(number).value(), "general number", general);
    }
    return 0;
}
