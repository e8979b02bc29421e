#include "files/DrawingLibraries.h"

#include <cairo.h>
#include <pango/pango.h>

namespace metrisk {

std::string drawingLibraries() {
    return std::string("Cairo ") + cairo_version_string() + ", Pango " + pango_version_string();
}

} // namespace metrisk
