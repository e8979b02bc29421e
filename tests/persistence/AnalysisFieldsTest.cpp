#include "desk/files/AnalysisFile.h"

#include "record/AnalysisFields.h"
#include "tests/persistence/GoldenFile.h"
#include "tests/support/Change.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <set>
#include <sstream>

using namespace metrisk;
using namespace metrisk::testing;

namespace {

std::vector<std::string> itemsOf(const std::string& line) {
    std::vector<std::string> items(1);
    bool quoted = false;
    for (char c : line) {
        if (c == '"') quoted = !quoted;
        if (c == ',' && !quoted)
            items.emplace_back();
        else
            items.back() += c;
    }
    return items;
}

} // namespace

TEST(AnalysisFile, EveryItemStandsInItsPlace) {
    // Names of the items, one line of the file a line; "-" is no field. Two and one sample.
    std::istringstream places(fileContent(METRISK_SOURCE_DIR "/tests/persistence/data/golden.names"));
    std::map<std::string, std::set<std::pair<std::size_t, std::size_t>>> placesOf;
    std::string line;
    for (std::size_t n = 0; std::getline(places, line); ++n) {
        std::istringstream names(line);
        std::string name;
        for (std::size_t k = 0; names >> name; ++k) placesOf[name].insert({n, k});
    }
    placesOf.erase("-");
    placesOf.erase("Stat_SampleSize[1]"); // changes the number of lines
    placesOf.erase("Stat_SampleSize[2]");

    Analysis base;
    base.Stat_SampleSize[1] = 2;
    base.Stat_SampleSize[2] = 1;
    const Lines before = linesOf(AnalysisText(base));
    ASSERT_EQ(before.size(), 260u);
    std::vector<std::vector<std::string>> itemsBefore;
    for (const std::string& text : before) itemsBefore.push_back(itemsOf(text));
    std::size_t checked = 0;
    Analysis changed = base;
    visitFields(changed, [&](std::string_view field, auto& member) {
        visitElements(std::string(field), member, [&](const std::string& name, auto& element) {
            const auto found = placesOf.find(name);
            if (found == placesOf.end()) return;
            const auto old = element;
            Change{}(element);
            const Lines after = linesOf(AnalysisText(changed));
            element = old;
            std::set<std::pair<std::size_t, std::size_t>> differ;
            for (std::size_t n = 0; n < before.size(); ++n) {
                if (before[n] == after[n]) continue;
                const auto &was = itemsBefore[n], is = itemsOf(after[n]);
                for (std::size_t k = 0; k < was.size(); ++k)
                    if (was[k] != is[k]) differ.insert({n, k});
            }
            EXPECT_EQ(differ, found->second) << name;
            ++checked;
        });
    });
    EXPECT_EQ(checked, placesOf.size());
}

TEST(AnalysisFile, EveryFieldSurvivesARoundTrip) {
    // Not in a file: what a load derives, and what belongs to the session.
    std::istringstream others(
        "SU_UpperFixed_fmt SU_LowerFixed_fmt SU_UpperPctReading_fmt SU_LowerPctReading_fmt "
        "SU_PctInTol_fmt MTE_PctInTol_fmt MTE_PctReading_fmt ShowLimits MTE_kFactor FalseAccept_fmt "
        "FalseReject_fmt Base_Accept_fmt Base_Reject_fmt ProcessUncertainty_fmt Remarks "
        "ErrorPlot_UnitsFactor MTEPlot_Title SUPlot_Zoom MTEPlot_Zoom ErrorPlot_Zoom SUPlot_UseMTETols "
        "MTEPlot_UseSUTols Last_IncludeUncertainty GB_AsymmetricMult ");
    std::set<std::string, std::less<>> unsaved{std::istream_iterator<std::string>(others), {}};
    eachField([&](const Field& field, auto) {
        const bool saved = field.source != Source::Session && field.source != Source::Derived;
        if (!saved && field.name != "MTE_Sigma") unsaved.emplace(field.name);
    });

    TestSession one, two;
    int count = 0;
    visitFields(one.record, [&](std::string_view name, auto& member) {
        visitElements(std::string(name), member,
                      [&](const std::string&, auto& element) { Change{++count}(element); });
    });
    one.record.OptSingleLower = false; // the load leaves one kind
    one.record.FalseAcceptOption = 1;
    one.record.Stat_SampleSize.fill(maxSampleSize);
    one.record.ErrTableText.fill({}); // so that the sum of the table is the one that was read
    for (int i = 1; i <= 10; ++i)
        for (int j = 1; j <= 10; ++j) // half is unused
            one.record.CorrelationMatrix[i][j] = i < j ? one.record.CorrelationMatrix[i][j] / 1024 : 0;
    // What the load would settle.
    one.record.SU_UpperOffset = one.record.SU_UpperLimit - one.record.SU_Mode;
    one.record.SU_LowerOffset = one.record.SU_Mode - one.record.SU_LowerLimit;
    one.record.MTE_UpperLimit = one.record.MTE_Mode + one.record.MTE_Offset;
    one.record.MTE_LowerLimit = one.record.MTE_Mode - one.record.MTE_Offset;
    EXPECT_GT(count, 1000);

    ReadAnalysisText(two.session, AnalysisText(one.record), "round.mrk");
    ASSERT_FALSE(two.record.AbortFlag);
    std::map<std::string, std::string> shown;
    const auto text = []<class T>(const T& element) {
        if constexpr (std::is_same_v<T, std::string>)
            return element;
        else
            return std::to_string(element);
    };
    const auto saved = [&](std::string_view name) { return !unsaved.contains(name); };
    visitFields(one.record, [&](std::string_view name, auto& member) {
        if (!saved(name)) return;
        visitElements(std::string(name), member,
                      [&](const std::string& id, auto& e) { shown[id] = text(e); });
    });
    visitFields(two.record, [&](std::string_view name, auto& member) {
        if (!saved(name)) return;
        visitElements(std::string(name), member,
                      [&](const std::string& id, auto& e) { EXPECT_EQ(text(e), shown[id]) << id; });
    });
}
