// A picture of a worksheet on a printed page.
#pragma once

class QPrinter;

namespace metrisk {

struct PictureArea;

/// As large as the page allows, no larger than pictures are made to be seen. False if the printer took none.
bool printPicture(QPrinter& printer, const PictureArea& picture);

} // namespace metrisk
