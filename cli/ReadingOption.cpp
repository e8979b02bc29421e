#include "cli/ReadingOption.h"

#include "cli/Readers.h"

namespace metrisk::cli {

Argument ReadingOption::addTo(const Arguments& command, const char* about) {
    return command.text("--reading", reading, about).shownAs("VALUE");
}

std::string ReadingOption::readingFault() const {
    return !reading || quantityOf(*reading) ? "" : "--reading: " + isNumber(*reading);
}

} // namespace metrisk::cli
