// Screens used at random: what is not kept leaves no trace in the analysis, and what is kept makes it worth
// saving.
#include "desk/compute/ComputePipeline.h"
#include "desk/files/AnalysisFile.h"
#include "desk/kit/FileChooser.h"
#include "desk/kit/ScreenEntry.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/plots/PlotDesk.h"
#include "desk/reports/ReportDesk.h"
#include "desk/shell/MainCommands.h"
#include "record/AnalysisFields.h"
#include "tests/support/SilentSession.h"

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <random>
#include <set>

namespace metrisk::testing {
namespace {

/// Keeps nothing: every question whether to is answered by No.
struct KeepsNothing final : SilentInteraction {
    Answer show(const Box& box) override {
        const bool no = box.buttons == BoxButtons::YesNo || box.buttons == BoxButtons::YesNoCancel;
        return no ? Answer::No : box.unattended;
    }
};

/// Uses controls at random, as their screen lets a user.
class Hand : public ControlVisitor {
  public:
    Hand(Worksheet& screen, unsigned seed) : screen_(screen), random_(seed) {}

    template <class List>
    auto& any(const List& list) {
        return list[random_() % list.size()];
    }

    void use() {
        Control& control = *any(screen_.controls());
        if (control.visible && control.enabled) control.accept(*this);
    }

    void visit(Panel&) override {}
    void visit(Label&) override {}
    void visit(Meter&) override {}
    void visit(Swatch&) override {}
    void visit(PictureArea&) override {}
    void visit(Sheet& sheet) override {
        const int row = static_cast<int>(random_() % 6), column = static_cast<int>(random_() % 4);
        switch (random_() % 5) {
        case 0: screen_.leaveCell(sheet, row, column, "95"); break;
        case 1: screen_.putCells(sheet, row, column, {{"1", "0.5"}, {"2 V", "word"}, {}}); break;
        case 2: screen_.undo(sheet); break;
        case 3: screen_.pressHeading(sheet, column); break;
        case 4: screen_.select(sheet, {row, 0, row + 1, column}); break;
        }
        for (int at = 0; at < sheet.content.rowCount(); ++at)
            for (int each = 0; each < sheet.content.columnCount(); ++each) sheet.content.cell(at, each);
    }
    void visit(Hypertext&) override {}
    void visit(TextBox& box) override {
        if (box.isResult() || box.locked) return;
        static const std::vector<std::string> texts{"1", "0.2", "3", "95.5", "72", "", "0.003", "12", "word"};
        screen_.enter(box, box.text);
        const std::string typed = any(texts);
        screen_.edit(box, typed);
        screen_.leave(box, typed);
    }
    void visit(Button& button) override {
        if (!button.closes) screen_.click(button, button.kind != Button::Kind::Check || !button.checked);
    }
    void visit(Choice& choice) override {
        if (!choice.items.empty()) screen_.choose(choice, static_cast<int>(random_() % choice.items.size()));
    }
    void visit(ListBox& list) override { visit(static_cast<Choice&>(list)); }
    void visit(Slider& slider) override {
        screen_.slide(slider,
                      slider.from + (slider.to - slider.from) * 0.25 * static_cast<double>(random_() % 5));
    }
    void visit(Table& table) override {
        if (table.rows.empty() || table.headings.empty() || !table.cellLeft) return;
        screen_.leaveCell(table, static_cast<int>(random_() % table.rows.size()),
                          static_cast<int>(random_() % table.headings.size()), "1.25");
    }
    void visit(Memo& memo) override { screen_.edit(memo, "other words"); }

  private:
    Worksheet& screen_;
    std::mt19937 random_;
};

struct NoFiles final : FileChooser {
    std::optional<std::string> chooseToOpen(const FileRequest&) override { return {}; }
    std::optional<std::string> chooseToSave(const FileRequest&) override { return {}; }
};

struct Used {
    NoSettings settings;
    KeepsNothing ui;
    SystemClock clock;
    Session session{settings, ui, clock};
    NoFiles files;
    PlotDesk plots{session};
    ReportDesk reports{session};
    std::unique_ptr<Worksheet> screen;
    Analysis before;

    Used(const std::filesystem::path& file, const ScreenEntry& entry, unsigned seed, Way way) {
        EXPECT_EQ(ReadAnalysis(session, file.string()).fault, ReadFault::None) << file;
        ComputeResults_Click(session);
        session.record.FileChanged = false;
        before = session.record;
        screen = entry.make({session, &files, &reports, &plots});
        screen->begin();
        Hand hand(*screen, seed);
        for (int i = 0; i < 20 && !screen->closedBy(); ++i) hand.use();
        screen->close(way);
    }

    /// The names of the fields of that kind that differ.
    template <class Kind>
    std::string changed(Kind kind) const {
        std::string names;
        eachField([&](const Field& field, auto member) {
            if (kind(field.source) && before.*member != session.record.*member)
                names.append(" ").append(field.name);
        });
        return names;
    }
};

/// Those that need no printer, no programs and no database of units.
bool usable(const ScreenEntry& entry) {
    static const std::set<std::string_view> others{"PrintDialog", "Print_SS", "form_RunExternal",
                                                   screens::units};
    return !others.contains(entry.name);
}

template <class Look>
void withEachScreen(Way way, Look look) {
    for (const auto& file : std::filesystem::directory_iterator(METRISK_SOURCE_DIR "/examples"))
        for (const ScreenEntry& entry : allScreens())
            for (unsigned seed = 0; file.path().extension() == ".mrk" && usable(entry) && seed < 2; ++seed) {
                SCOPED_TRACE(::testing::Message() << file.path() << ", " << entry.name << ", seed " << seed);
                look(entry, Used(file.path(), entry, seed, way));
            }
}

TEST(UsedScreen, LeavesNothingBehindWhenItIsCancelled) {
    withEachScreen(Way::Cancel, [](const ScreenEntry& entry, const Used& used) {
        if (entry.name == "MTEPlot") return; // writes the title that it shows
        EXPECT_EQ(used.changed([](Source of) { return isInput(of) || of == Source::Option; }), "");
    });
}

TEST(UsedScreen, MarksTheAnalysisAsChangedWhereItHasKeptAnEntry) {
    int kept = 0;
    withEachScreen(Way::Ok, [&](const ScreenEntry& entry, const Used& used) {
        // Samples count with the worksheet that they are part of; the observing unit follows the measuring
        // parameter by opening alone.
        if (entry.name.starts_with("DataEntry") || entry.name == screens::observed) return;
        if (!used.screen->closedBy() || used.changed([](Source of) { return of == Source::Entered; }).empty())
            return;
        ++kept;
        EXPECT_TRUE(used.session.record.FileChanged) << used.changed(isInput);
    });
    EXPECT_GT(kept, 50);
}

/// The letter behind the single "&" of a caption, in capitals; 0 if there is none.
char letterOf(const std::string& caption) {
    for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
        if (caption[at] != '&') continue;
        if (caption[at + 1] != '&') return static_cast<char>(std::toupper(caption[at + 1]));
        ++at;
    }
    return 0;
}

void expectOwnLetters(const std::vector<MenuItem>& menu) {
    // These have always shared theirs: the key goes from one to the other.
    static const std::set<std::pair<std::string, std::string>> shared{
        {"&New Analysis", "&Notes"}, {"Ru&n", "&Notes"}, {"Measurement &Units", "&Uncertainty"}};
    std::map<char, std::string> taken;
    for (const MenuItem& item : menu) {
        const char letter = letterOf(item.caption);
        const auto [first, free] = taken.emplace(letter, item.caption);
        EXPECT_TRUE(free || letter == 0 || shared.contains({first->second, item.caption}))
            << first->second << " and " << item.caption;
        expectOwnLetters(item.items);
    }
}

TEST(Menus, NoLetterStandsForTwoEntries) {
    SilentSession silent;
    Session& session = silent.session;
    NoFiles files;
    PlotDesk plots(session);
    ReportDesk reports(session);
    MainScreen main(session);
    const MainCommands commands(session, main, files);
    expectOwnLetters(main.menus);
    ASSERT_EQ(ReadAnalysis(session, METRISK_SOURCE_DIR "/examples/multimeter-dc-volts.mrk").fault,
              ReadFault::None);
    ComputeResults_Click(session);
    for (const ScreenEntry& entry : allScreens()) {
        SCOPED_TRACE(entry.name);
        if (entry.name == "PrintDialog") continue; // asks for the printer
        const auto screen = entry.make({session, &files, &reports, &plots});
        expectOwnLetters(screen->menus);
        for (Control* control : screen->controls())
            if (const auto* table = dynamic_cast<Table*>(control)) expectOwnLetters(table->menu);
    }
}

} // namespace
} // namespace metrisk::testing
