#pragma once

#include "linuxboard/kernel_face.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tqx {

/// A file of the kernel that is open for as long as this lives.
class OpenFile {
public:
    OpenFile(KernelFace& kernel, int file)
        : m_kernel(kernel)
        , m_file(file) {}

    ~OpenFile() { m_kernel.Close(m_file); }

    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int File() const { return m_file; }

private:
    KernelFace& m_kernel;
    int m_file;
};

/// A small file, such as those in which the kernel tells of its devices, without the blanks at its
/// end. Nothing where it cannot be read; at most 4 KiB.
std::optional<std::string> ReadSmallFile(KernelFace& kernel, const std::string& path);

/// The number that a name ends in after `prefix`: 3 of "parport3". Nothing for any other name.
std::optional<int> NumberAfter(std::string_view prefix, std::string_view name);

/// The number that a text is, in base 10, or in base 16 with or without a leading 0x. Nothing for
/// any other text, a sign or a number beyond 32 bits among them.
std::optional<std::uint32_t> WholeNumber(std::string_view text, int base);

} // namespace tqx
