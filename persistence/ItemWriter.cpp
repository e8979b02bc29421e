#include "persistence/ItemWriter.h"

#include "base/DecimalForm.h"
#include "base/Real.h"
#include "base/Text.h"
#include "record/WorksheetGroups.h"

namespace metrisk {
namespace {

constexpr int doubleDigits = 15;
constexpr int singleDigits = 7;

std::string quoted(std::string_view text) {
    return '"' + withoutQuotes(std::string(text)) + '"';
}

} // namespace

void ItemWriter::add(std::string_view item) {
    if (lineStarted_) text_ += ',';
    text_ += item;
    lineStarted_ = true;
}

void ItemWriter::endLine() {
    text_ += "\r\n";
    lineStarted_ = false;
}

void ItemWriter::item(double value) {
    add(shortestText(checked(value), doubleDigits, false));
}

void ItemWriter::item(float value) {
    add(shortestText(checked(static_cast<double>(value)), singleDigits, false));
}

void ItemWriter::item(int value) {
    if (value < -32768 || value > 32767) throw RuntimeFault{};
    add(std::to_string(value));
}

void ItemWriter::item(bool value) {
    add(value ? "#TRUE#" : "#FALSE#");
}

void ItemWriter::item(const Flag& value) {
    add(std::to_string(value.stored()));
}

void ItemWriter::item(const std::string& value) {
    add(quoted(value));
}

void ItemWriter::item(AsLong<const Flag> value) {
    item(value.flag);
}

void ItemWriter::item(AsFixed<const std::string> value) {
    std::string text(firstCharacters(value.text, fixedTextLength));
    text.append(fixedTextLength - countCharacters(text), ' ');
    add(quoted(text));
}

void ItemWriter::item(AsSampleSize<const int> value) {
    if (value.size < 0 || value.size > maxSampleSize) throw RuntimeFault{};
    item(value.size);
}

void ItemWriter::item(AsMagnitude<const int> value) {
    item(value.number);
}

void ItemWriter::item(UnusedItem) {
    item(false);
}

} // namespace metrisk
