#include "desk/kit/FileChooser.h"

#include "desk/kit/Message.h"

#include <filesystem>

namespace metrisk {

bool mayReplace(Talk& ui, const std::string& path, std::string_view title) {
    std::error_code none;
    if (!std::filesystem::exists(path, none)) return true;
    const std::string text = path + " already exists.\nDo you want to replace it?";
    return ask(ui, {text, title, BoxButtons::YesNo, Answer::No}) == Answer::Yes;
}

bool mayReplaceChanged(Talk& ui, const std::optional<FileStamp>& stamp, const std::string& path,
                       std::string_view title) {
    return !changedSince(stamp, path) ||
           ask(ui, {"The file was changed by another program since it was opened. Replace it?", title,
                    BoxButtons::YesNo, Answer::No}) == Answer::Yes;
}

} // namespace metrisk
