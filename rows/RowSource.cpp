#include "rows/RowSource.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <unistd.h>

namespace metrisk {

namespace {

constexpr std::size_t chunk = std::size_t{1} << 18;
constexpr int patience = 100; // ms

} // namespace

bool RowInput::readMore() {
    if (atEnd_) return false;
    const std::size_t before = bytes_.size();
    bytes_.resize(before + chunk);
    ssize_t count = 0;
    do count = ::read(descriptor_, bytes_.data() + before, chunk);
    while (count < 0 && errno == EINTR);
    bytes_.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count < 0) throw ReadFailure(std::strerror(errno));
    atEnd_ = count == 0;
    return !atEnd_;
}

bool RowInput::waits() const {
    pollfd asked{descriptor_, POLLIN, 0};
    return ::poll(&asked, 1, patience) == 0;
}

void RowSource::skipLine() {
    for (;;) {
        const auto end = input_.bytes().find('\n');
        if (end != std::string_view::npos) return input_.drop(end + 1);
        input_.drop(input_.bytes().size());
        if (!input_.readMore()) return;
    }
}

bool RowSource::next(std::string& block, std::size_t mostRows) {
    block.clear();
    std::size_t size = 0, rows = 0;
    bool cut = false;
    while (rows < mostRows && size < bytesOfBlock && !cut) {
        const std::string_view rest = input_.bytes().substr(size);
        const std::size_t record = rest.empty() ? 0 : table_.recordSize(rest, input_.atEnd());
        if (record == 0) {
            if (input_.atEnd() || (rows > 0 && input_.waits())) break;
            input_.readMore();
            continue;
        }
        cut = rest[record - 1] != '\n' && !(input_.atEnd() && record == rest.size());
        size += record;
        ++rows;
    }
    block.assign(input_.bytes().substr(0, size));
    input_.drop(size);
    if (cut) {
        block += '\n';
        skipLine();
    }
    return rows > 0;
}

} // namespace metrisk
