// How the pictures of offsets follow what is entered.
#pragma once

namespace metrisk {

struct Analysis;

/// Each offset picture changes by so many decimals, but none below what its value needs.
void moveOffsetPictures(Analysis& record, int decimals);

} // namespace metrisk
