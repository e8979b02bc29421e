#include "base/Digest.h"

#include <glib.h>
#include <memory>

namespace metrisk {

namespace {

std::string taken(char* made) {
    const std::unique_ptr<char, decltype(&g_free)> text(made, g_free);
    return text.get();
}

} // namespace

std::string sha256(std::string_view bytes) {
    return taken(g_compute_checksum_for_data(G_CHECKSUM_SHA256, reinterpret_cast<const guchar*>(bytes.data()),
                                             bytes.size()));
}

std::string base64(std::string_view bytes) {
    return taken(g_base64_encode(reinterpret_cast<const guchar*>(bytes.data()), bytes.size()));
}

} // namespace metrisk
