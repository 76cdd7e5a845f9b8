#include "kernel_files.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <utility>

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
    const auto number = WholeNumber(name.substr(prefix.size()), 10);
    if (!number || !std::in_range<int>(*number)) {
        return std::nullopt;
    }
    return static_cast<int>(*number);
}

std::optional<std::uint32_t> WholeNumber(std::string_view text, int base) {
    constexpr std::string_view hexMark = "0x";
    if (base == 16 && text.starts_with(hexMark)) {
        text.remove_prefix(hexMark.size());
    }
    std::uint32_t number = 0;
    const char* const textEnd = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), textEnd, number, base);
    if (error != std::errc() || end != textEnd) {
        return std::nullopt;
    }
    return number;
}

} // namespace tqx
