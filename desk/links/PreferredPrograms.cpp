#include "desk/links/PreferredPrograms.h"

#include "base/Text.h"
#include "desk/kit/Desktop.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/links/ProgramMessages.h"
#include "links/Programs.h"

#include <filesystem>

namespace metrisk {
namespace {

struct Kind {
    const char* name;
    TextSetting path;
    Question missing;
};

constexpr int longestPath = 255;
constexpr Kind spreadsheet{"Spreadsheet",
                           {"Preferred Spreadsheet", "Path", "", longestPath},
                           {"Unable to locate a spreadsheet application.  Do you want to set this up?",
                            "Missing Application", BoxButtons::YesNo, Answer::No}};
constexpr Kind calculator{"Calculator",
                          {"Preferred Calculator", "Path", "", longestPath},
                          {"Unable to locate the preferred calculator.  Do you want to find this yourself?",
                           "Missing Calculator", BoxButtons::YesNo, Answer::No}};

/// Calculators of the desktops, in the order in which they are looked for.
constexpr const char* knownCalculators[] = {"gnome-calculator", "kcalc", "galculator", "mate-calc", "xcalc"};

const Kind& kindOf(Preferred kind) {
    return kind == Preferred::Spreadsheet ? spreadsheet : calculator;
}

std::string pathOf(const Session& session, const Kind& kind) {
    return std::string(withoutOuterBlanks(session.settings.read(kind.path)));
}

bool launched(Session& session, const std::string& program) {
    const auto launch = launchOf(program);
    return launch && session.desktop->programs.start(*launch).empty();
}

bool launchedKnownCalculator(Session& session) {
    for (const char* name : knownCalculators)
        if (const std::string program = findProgram(name); !program.empty() && launched(session, program))
            return true;
    return false;
}

void run(Session& session, Preferred which) {
    if (!session.desktop) return;
    const Kind& kind = kindOf(which);
    const std::string path = pathOf(session, kind);
    if (!path.empty() && launched(session, path)) return;
    if (path.empty() && which == Preferred::Calculator && launchedKnownCalculator(session)) return;
    if (ask(session.ui, kind.missing) != Answer::Yes || !LocateApplication(session, which)) return;
    if (!launched(session, pathOf(session, kind))) tell(session.ui, notExecutable);
}

} // namespace

void RunSpreadsheet(Session& session) {
    run(session, Preferred::Spreadsheet);
}

void RunCalculator(Session& session) {
    run(session, Preferred::Calculator);
}

bool LocateApplication(Session& session, Preferred which) {
    if (!session.desktop) return false;
    const Kind& kind = kindOf(which);
    const auto chosen = session.desktop->files.chooseToOpen(
        {.title = std::string("Locate an Example ") + kind.name + " File",
         .filter = "All File Types (*.*)|*.*|Program Files (*.exe)|*.exe"});
    if (!chosen) return false;
    std::string program;
    if (isExecutable(*chosen))
        program = *chosen;
    else if (std::filesystem::path(*chosen).filename().string().find('.') != std::string::npos)
        program = programOfEntry(session.desktop->programs.associationOf(*chosen).entry);
    // A line of the settings cannot hold a line end, and a longer path would be read back cut.
    if (program.empty() || countCharacters(program) > static_cast<std::size_t>(longestPath) ||
        program.find_first_of("\r\n") != std::string::npos) {
        tell(session.ui, notExecutable);
        return false;
    }
    session.settings.write(kind.path, program);
    return true;
}

} // namespace metrisk
