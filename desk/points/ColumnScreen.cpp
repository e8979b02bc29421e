#include "desk/points/ColumnScreen.h"

#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "rows/Cell.h"
#include "rows/Entries.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr Message noName{"A column needs a name.", "Column Name"};

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? char(c | 0x20) : c; });
    return lower;
}

/// Without the unit in brackets, in small letters.
std::string searched(const std::string& typed) {
    return lowerCase(trimmedCell(typed.substr(0, typed.find('['))));
}

bool holds(std::string_view text, const std::string& wanted) {
    return lowerCase(text).find(wanted) != std::string::npos;
}

} // namespace

ColumnScreen::ColumnScreen(Session& session, std::string columnCaption, std::string present)
    : Worksheet("PointColumn", std::move(columnCaption), "test-points"), session_(session),
      typed_(std::move(present)) {
    txt_Name.edited = [this](const std::string& text) {
        typed_ = text;
        session_.ui.refresh(*this);
    };
    txt_Name.left = [this](const std::string& text) -> FieldResult {
        typed_ = text;
        return {false, text};
    };
    lst_Entries.chosen = [this](int index) {
        if (index < 0 || static_cast<std::size_t>(index) >= found_.size()) return;
        const auto unit = typed_.find('[');
        const EntryInfo& entry = infoOf(*entryNamed(found_[static_cast<std::size_t>(index)]));
        const bool keepsUnit = unit != typed_.npos && entry.isLength();
        typed_ = std::string(entry.name) + (keepsUnit ? typed_.substr(unit) : "");
    };
    cmd_OK.closes = Way::Ok;
    cmd_OK.isDefault = cmd_OK.isPrimary = true;
    cmd_Cancel.closes = Way::Cancel;
    refresh();
}

void ColumnScreen::refresh() {
    txt_Name.text = typed_;
    const std::string wanted = searched(typed_);
    const auto exact = entryNamed(wanted);
    found_.clear();
    lst_Entries.items.clear();
    lst_Entries.index = -1;
    // Once an entry is named, the others can still be chosen.
    for (const EntryInfo& entry : entryTable())
        if (exact || holds(entry.name, wanted) || holds(entry.about, wanted)) {
            if (exact == entry.entry) lst_Entries.index = static_cast<int>(found_.size());
            found_.push_back(entry.name);
            lst_Entries.items.push_back(std::string(entry.name) + "  –  " + std::string(entry.about));
        }
    if (exact) {
        const EntryInfo& entry = infoOf(*exact);
        Lbl_About.text =
            std::string(nameOf(entry.kind)) + (entry.range.empty() ? "" : ", ") + std::string(entry.range) +
            (entry.otherwise.empty() ? "" : "; else " + std::string(entry.otherwise)) +
            (entry.isLength()
                 ? "; a unit may stand behind the name, as in " + std::string(entry.name) + "[mV]"
                 : "");
    } else {
        Lbl_About.text = wanted.empty() ? "Type to find an entry" : "No entry: the column is passed through";
    }
}

bool ColumnScreen::mayClose(Way way) {
    if (way == Way::Cancel || !trimmedCell(typed_).empty()) return true;
    tell(session_.ui, noName);
    return false;
}

} // namespace metrisk
