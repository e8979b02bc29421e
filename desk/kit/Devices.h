// Where a picture or a text goes that leaves the program: clipboard and printer.
#pragma once

#include <string_view>

namespace metrisk {

struct PictureArea;

class Devices {
  public:
    virtual ~Devices() = default;

    /// Puts the text on the clipboard.
    virtual void copyText(std::string_view text) = 0;

    /// Puts the picture, in the size in which it is seen, on the clipboard.
    virtual void copyPicture(const PictureArea& picture) = 0;

    /// Prints the picture on a page, where and how the user says. False if it could not be printed; a user
    /// who thinks better of it is no failure.
    virtual bool print(const PictureArea& picture, std::string_view title) = 0;
};

} // namespace metrisk
