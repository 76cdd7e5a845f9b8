#include "kernel_files.h"

#include <array>
#include <cerrno>
#include <charconv>

namespace tqx {

std::optional<std::string> ReadSmallFile(KernelFace& kernel, const std::string& path) {
    const KernelAnswer opened = kernel.OpenText(path);
    if (opened.Error != 0) {
        return std::nullopt;
    }
    const OpenFile file(kernel, static_cast<int>(opened.Value));
    std::array<char, 4096> buffer{};
    std::size_t length = 0;
    while (length < buffer.size()) {
        const KernelAnswer read = kernel.Read(file.File(), std::span(buffer).subspan(length));
        if (read.Error == EINTR) {
            continue;
        }
        if (read.Error != 0) {
            return std::nullopt;
        }
        if (read.Value == 0) {
            break;
        }
        length += read.Value;
    }
    std::string text(buffer.data(), length);
    text.erase(text.find_last_not_of(" \t\n") + 1);
    return text;
}

std::optional<int> NumberAfter(std::string_view prefix, std::string_view name) {
    if (!name.starts_with(prefix)) {
        return std::nullopt;
    }
    name.remove_prefix(prefix.size());
    int number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    if (error != std::errc() || end != name.data() + name.size() || number < 0) {
        return std::nullopt;
    }
    return number;
}

} // namespace tqx
