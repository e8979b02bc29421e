#include "persistence/AnalysisFile.h"

#include "model/AnalysisFields.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

using namespace metrisk;
using namespace metrisk::testing;

TEST(AnalysisFile, EveryFieldSurvivesARoundTrip) {
    // Not in a file: what a load derives, and what belongs to the session.
    std::set<std::string_view> unsaved = {"SU_UpperFixed_fmt",
                                          "SU_LowerFixed_fmt",
                                          "SU_UpperPctReading_fmt",
                                          "SU_LowerPctReading_fmt",
                                          "SU_PctInTol_fmt",
                                          "MTE_PctInTol_fmt",
                                          "MTE_PctReading_fmt",
                                          "ShowLimits",
                                          "SU_Sigma",
                                          "SU_Distribution",
                                          "SU_CaseCode",
                                          "SU_LogSigma",
                                          "SU_LogOmega",
                                          "SU_ExpExponent",
                                          "SU_ExpRate",
                                          "PhysLimitBelow",
                                          "PhysLimitAbove",
                                          "ZTailLow",
                                          "ZTailHigh",
                                          "ZTwoSided",
                                          "LimitRatioNear",
                                          "LimitRatioFar",
                                          "SubjectFitValid",
                                          "MTE_kFactor",
                                          "FalseAccept_fmt",
                                          "FalseReject_fmt",
                                          "Base_Accept_fmt",
                                          "Base_Reject_fmt",
                                          "GuardbandsChanged",
                                          "ProcessUncertainty_fmt",
                                          "Process_DegFreedom",
                                          "Total_DegFreedom",
                                          "ErrTableDisplay",
                                          "Remarks",
                                          "ErrorPlot_UnitsFactor",
                                          "Last_IncludeUncertainty",
                                          "GB_AsymmetricMult"};
    SessionState state;
    auto addUnsaved = [&](std::string_view name, auto&) { unsaved.insert(name); };
    visitSessionState(state, addUnsaved);

    TestSession one, two;
    int count = 0;
    visitFields(one.record, [&](std::string_view name, auto& member) {
        visitElements(std::string(name), member, [&]<class T>(const std::string&, T& element) {
            ++count;
            if constexpr (std::is_same_v<T, std::string>)
                element = "text " + std::to_string(count);
            else if constexpr (std::is_same_v<T, Flag> || std::is_same_v<T, bool>)
                element = !element;
            else
                element = static_cast<T>(count + 0.25);
        });
    });
    one.record.Stat_SampleSize.fill(maxSampleSize);
    one.record.ErrTableText.fill({}); // so that the sum of the table is the one that was read
    for (int i = 1; i <= 10; ++i)
        for (int j = 1; j <= i; ++j) one.record.CorrelationMatrix[i][j] = 0; // unused half
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

TEST(AnalysisFile, TheFieldListIsComplete) {
    std::set<std::string> listed;
    Analysis record;
    visitFields(record, [&](std::string_view name, auto&) { listed.emplace(name); });
    for (const char* header : {"ParameterGroups", "ResultGroups", "WorksheetGroups", "SessionState"}) {
        std::istringstream lines(fileContent(METRISK_SOURCE_DIR "/model/" + std::string(header) + ".h"));
        for (std::string line; std::getline(lines, line);) {
            const std::size_t end = line.find_first_of("={;/(");
            if (!line.starts_with("    ") || end == line.npos || line[end] == '(' || line[end] == '/')
                continue;
            std::string name = line.substr(0, line.find_last_not_of(' ', end - 1) + 1);
            name = name.substr(name.rfind(' ') + 1);
            if (!name.empty() && std::isupper(static_cast<unsigned char>(name[0]))) {
                EXPECT_TRUE(listed.contains(name)) << header << ": " << name;
            }
        }
    }
}
