#include "jobs/files.h"

#include "appended_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace tqx {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t MostBytes = 64U << 20U; // a log of 800 dumps

/// Where a link leads, so that the file that it names is replaced and not the link.
fs::path Target(const std::string& place) {
    std::error_code ignored;
    const fs::path target = fs::canonical(place, ignored);
    return ignored ? fs::path(place) : target;
}

} // namespace

std::string ReadFile(const std::string& place) {
    std::ifstream file(place, std::ios::binary);
    std::string content;
    char byte = '\0';
    while (file && content.size() <= MostBytes && file.get(byte)) {
        content += byte;
    }
    if (fs::is_directory(place)) {
        throw FileError("cannot read " + place + ": it is a folder");
    }
    if (!file.eof()) {
        throw FileError("cannot read " + place + ": " +
                        (content.size() > MostBytes ? "it is too large" : std::strerror(errno)));
    }
    return content;
}

void ReplaceFile(const std::string& place, std::string_view content) {
    const fs::path target = Target(place);
    std::error_code ignored;
    if (fs::exists(target, ignored) && !fs::is_regular_file(target, ignored)) {
        throw FileError("cannot write " + place + ": it is no plain file");
    }
    const std::string part = target.string() + "." + std::to_string(getpid()) + ".part";
    AppendedFile file(part);
    file.Write(content);
    file.Flush();
    file.Close();
    if (file.Failed() || std::rename(part.c_str(), target.c_str()) != 0) {
        const std::string reason = file.Failed() ? file.Reason() : std::strerror(errno);
        std::remove(part.c_str());
        throw FileError("cannot write " + place + ": " + reason);
    }
}

} // namespace tqx
