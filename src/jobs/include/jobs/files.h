#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace tqx {

/// A file that could not be used: "cannot write image.bin: No space left on device".
class FileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The whole content of a file. What is larger than any file of the program raises FileError too.
std::string ReadFile(const std::string& place);

/// Puts a file of this content at `place`, whole or not at all: on FileError what was there before
/// is still there.
void ReplaceFile(const std::string& place, std::string_view content);

} // namespace tqx
