#include "desk/mainscreen/OffsetPictures.h"

#include "base/NumberText.h"
#include "record/Analysis.h"

#include <algorithm>
#include <string>

namespace metrisk {

namespace {

void movePicture(double value, std::string& picture, int decimals) {
    const int held = PictureDecimals(picture);
    const int needed = std::min(held, DecimalsOfValue(value, 0));
    picture = PictureForDecimals(std::max(held + decimals, needed));
}

} // namespace

void moveOffsetPictures(Analysis& r, int decimals) {
    if (decimals == 0) return;
    movePicture(r.SU_UpperOffset, r.SU_UpperOffset_fmt, decimals);
    movePicture(r.SU_LowerOffset, r.SU_LowerOffset_fmt, decimals);
    movePicture(r.MTE_Offset, r.MTE_Offset_fmt, decimals);
    movePicture(r.MTE_FixedOffset, r.MTE_FixedOffset_fmt, decimals);
    movePicture(r.MTE_StdUncertainty, r.MTE_StdUncertainty_fmt, decimals);
}

} // namespace metrisk
