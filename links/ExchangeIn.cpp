#include "links/ExchangeFile.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "persistence/ItemReader.h"
#include "record/WorksheetGroups.h"

#include <algorithm>

namespace metrisk {
namespace {

/// Texts of other programs may hold anything.
std::string plain(std::string text) {
    std::ranges::replace_if(
        text, [](unsigned char c) { return c < 0x20 || c == 0x7f; }, ' ');
    return text;
}

/// 0 for what is no number.
double numberOf(const std::string& text) {
    return isNumeric(text, {}) ? checked(ParseValue(text, {})) : 0;
}

class Reader {
  public:
    explicit Reader(std::string_view text) : items_(text) {}

    double number() { return get<double>(); }
    int integer() { return get<int>(); }
    bool flag() { return get<bool>(); }
    std::string text() { return plain(get<std::string>()); }
    /// An item that may be a number or a text of one; without either it is 0.
    double value() { return numberOf(text()); }
    template <std::size_t count>
    std::array<std::string, count> texts() {
        std::array<std::string, count> all;
        for (std::string& each : all) each = text();
        return all;
    }

  private:
    template <class T>
    T get() {
        T item{};
        items_.item(item);
        return item;
    }

    ItemReader items_;
};

void readErrors(Reader& in, Exchange& read) {
    for (Exchange::ErrorRow& row : read.rows) {
        row.limit = in.text();
        row.confidence = in.text();
        row.degFreedom = in.text();
        row.uncertainty = in.text();
    }
    for (Exchange::ErrorRow& row : read.rows) {
        row.include = in.text();
        row.type = in.text();
        row.name = in.text();
    }
    for (auto& samples : read.samples) {
        const int size = in.integer();
        if (size < 0 || size > maxSampleSize) throw RuntimeFault{};
        for (int i = 0; i < size; ++i) {
            std::string value = in.text();
            samples.push_back({std::move(value), in.text()});
        }
    }
    read.MeasurementArea = in.text();
    // Mean, deviation and t value of both blocks follow from their samples.
    for (int i = 0; i < 6; ++i) in.number();
}

void readUnits(Reader& in, Exchange& read) {
    read.SU_Mode = in.number();
    in.text(); // its picture: pictures follow from the numbers
    read.NominalUnits = in.text();
    read.MTE_ToleranceUnits = in.text();
    read.MTE_TolUnitsFactor = in.number();
    read.SU_ToleranceUnits = in.text();
    read.SU_TolUnitsFactor = in.number();
}

/// Three numbers with their pictures. Some are written by older programs as texts.
Exchange::Tolerance readTolerance(Reader& in, bool firstIsNumber, bool lastIsNumber) {
    Exchange::Tolerance read;
    read.offset = firstIsNumber ? in.number() : in.value();
    in.text();
    read.fixed = in.number();
    in.text();
    read.pctReading = lastIsNumber ? in.number() : in.value();
    in.text();
    return read;
}

void readTolerances(Reader& in, Exchange& read) {
    read.subject = in.texts<6>();
    read.measuring = in.texts<6>();
    read.SU_UpperLimit = in.text();
    read.SU_LowerLimit = in.text();
    read.SU_PctInTol = in.text();
    in.text(); // the physical limit as it was typed
    read.PhysicalLimit = in.number();
    read.MTE_UpperLimit = in.text();
    read.MTE_LowerLimit = in.text();
    read.MTE_PctInTol = in.text();
    for (int& option : read.options) option = in.integer();
    in.integer(); // the decimal shift follows from the units
    read.upper = readTolerance(in, true, false);
    read.lower = readTolerance(in, true, false);
    for (int row = 0; row < 2; ++row) readTolerance(in, true, false);
    read.MTE_Offset = readTolerance(in, false, true);
    for (int row = 0; row < 3; ++row) readTolerance(in, false, true);
    // Limits of 0 stand for none, unless they are the limits of something.
    const auto settle = [](std::string& one, std::string& other) {
        const bool none = numberOf(one) == 0 && numberOf(other) == 0;
        if (none) one = other = "";
        return !none;
    };
    const bool subject = settle(read.SU_UpperLimit, read.SU_LowerLimit);
    const bool measuring = settle(read.MTE_UpperLimit, read.MTE_LowerLimit);
    read.hasTolerances = subject || measuring || read.upper.offset != 0 || read.lower.offset != 0 ||
                         read.MTE_Offset.offset != 0;
}

/// Rows of the partner's own that have no place here, but have to be there.
void readRest(Reader& in, Exchange& read) {
    for (int block = 0; block < 2; ++block) {
        in.integer();
        for (int i = 0; i < 6; ++i) {
            in.number();
            in.text();
        }
    }
    in.integer();
    in.integer();
    read.MTE_EntryByUncertainty = in.integer();
    read.MTE_DegFreedom = in.number();
    in.flag();
    in.flag();
    in.texts<8>();
    in.number();
    for (int i = 0; i < 10; ++i) in.integer();
}

} // namespace

Exchange readExchange(std::string_view text) {
    Reader in(text);
    Exchange read;
    read.hasData = in.flag();
    const double version = in.value();
    if (!read.hasData) return read;
    read.isObsolete = static_cast<float>(version) < exchangeVersion;
    read.SymmetricTolerances = in.flag();
    readErrors(in, read);
    try {
        readUnits(in, read);
        readTolerances(in, read);
        readRest(in, read);
    } catch (const RuntimeFault&) {
        if (!read.isObsolete) throw;
        read.hasTolerances = false;
    }
    return read;
}

} // namespace metrisk
