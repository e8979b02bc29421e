#include "cli/RowColumns.h"

#include "rows/Entries.h"
#include "rows/SettableFields.h"
#include "rows/Want.h"
#include "unattended/Json.h"

namespace metrisk::cli {

namespace {

std::string padded(std::string_view text, std::size_t width) {
    std::string all(text);
    all.resize(std::max(width, all.size() + 1), ' ');
    return all;
}

const char* nameOf(FieldKind kind) {
    switch (kind) {
    case FieldKind::Number: return "number";
    case FieldKind::Whole: return "whole number";
    case FieldKind::Flag: return "flag";
    case FieldKind::Text: break;
    }
    return "text";
}

} // namespace

std::string columnsText() {
    std::string text = "Columns of the input:\n";
    for (const EntryInfo& info : entryTable()) {
        text += "  " + padded(info.name, 14) + padded(info.field, 20) + padded(nameOf(info.kind), 9) +
                padded(info.range, 20) + std::string(info.about);
        if (!info.otherwise.empty()) text += " (default " + std::string(info.otherwise) + ")";
        text += "\n";
    }
    text += "\nWords of --want and their columns:\n";
    for (const WantInfo& info : wantTable())
        for (const FigureColumn& column : info.columns)
            text += "  " + padded(info.name, 13) + padded(column.name, 24) +
                    padded(column.isLength() ? "length" : "", 8) + std::string(column.about) + "\n";
    text += "\nFurther fields, for set and new --set:\n";
    for (const NamedField* field : plainFields())
        text += "  " + padded(field->shape(), 32) + nameOf(field->kind) + "\n";
    return text;
}

std::string columnsJson() {
    std::string lines;
    for (const EntryInfo& info : entryTable())
        lines += jsonLine({{"name", info.name},
                           {"field", info.field},
                           {"kind", nameOf(info.kind)},
                           {"range", info.range},
                           {"default", info.otherwise},
                           {"about", info.about}});
    for (const WantInfo& info : wantTable())
        for (const FigureColumn& column : info.columns)
            lines += jsonLine({{"want", info.name},
                               {"name", column.name},
                               {"length", column.isLength()},
                               {"about", column.about}});
    for (const NamedField* field : plainFields())
        lines +=
            jsonLine({{"set", field->field.name}, {"shape", field->shape()}, {"kind", nameOf(field->kind)}});
    for (const std::string_view text : readingTexts()) lines += jsonLine({{"reading", text}});
    return lines;
}

} // namespace metrisk::cli
