// The one table of what a row of a table can name: columns, options, and what each of them is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace metrisk {

/// In the order in which they are put into a test point.
enum class Entry : std::uint8_t {
    Area,
    Unit,
    Sided,
    Nominal,
    Tol,
    TolUpper,
    TolLower,
    TolPct,
    Upper,
    Lower,
    Phys,
    SubjectPct,
    Passed,
    Tested,
    MteTol,
    MteTolPct,
    MtePct,
    MteU,
    MteExpanded,
    MteK,
    MteConf,
    MteDof,
    Tur,
    MteRatio,
    ProcessU,
    Gb,
    GbUpper,
    GbLower,
    GbK,
    GbKUpper,
    GbKLower,
    AcceptUpper,
    AcceptLower,
    Convention,
    BaseRatio,
    BaseMtePct,
    BaseSubjectPct,
    EqOn,
    Reading,
    Rule
};
inline constexpr std::size_t entryCount = static_cast<std::size_t>(Entry::Rule) + 1;

enum class EntryKind : std::uint8_t {
    Text,
    Word,    // one of a list
    Length,  // with a unit, or that of the nominal
    Limit,   // a length, or "none"
    Offset,  // a length, or a part of the nominal in ppm or %
    Percent, // with or without its sign
    Ratio,   // "4" or "4:1"
    Number
};

struct EntryInfo {
    Entry entry;
    std::string_view name;
    std::string_view field; // of the record, in nominal units; empty if there is none
    EntryKind kind;
    std::string_view range;
    std::string_view otherwise; // what stands where nothing is named
    std::string_view about;

    bool isLength() const {
        return kind == EntryKind::Length || kind == EntryKind::Limit || kind == EntryKind::Offset;
    }
};

/// By Entry.
std::span<const EntryInfo> entryTable();
const EntryInfo& infoOf(Entry entry);
std::string_view nameOf(EntryKind kind);

/// What is said of cells and rows that cannot be read; words in capitals stand for what was found.
std::span<const std::string_view> readingTexts();

/// By name or field, in letters of any case.
std::optional<Entry> entryNamed(std::string_view name);
/// One that differs from the name by blanks, "-" or "_" alone.
std::optional<Entry> entryNearly(std::string_view name);

} // namespace metrisk
