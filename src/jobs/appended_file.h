#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>

namespace tqx {

/// A file that grows at its end: dumps and recordings. It raises no error: what could not be opened
/// or written is remembered, and whatever comes after the first failure is dropped, so that the
/// file never gets a gap. A text reaches the file whole or not at all.
///
/// Only a plain file is opened, since a pipe would hold the program up and a device would take the
/// text as orders. It is locked against other programs that write in this way.
class AppendedFile {
public:
    /// Opens `place` for appending and makes it if need be.
    explicit AppendedFile(const std::string& place);
    ~AppendedFile();

    AppendedFile(const AppendedFile&) = delete;
    AppendedFile& operator=(const AppendedFile&) = delete;

    void Write(std::string_view text);
    /// Sees to it that what was written outlives a power cut, and that it still stands where it was
    /// put.
    void Flush();
    void Close();

    /// What stood in the file when it was opened, up to `most` bytes from its beginning.
    std::string Beginning(std::size_t most) const;
    /// Drops what stands behind the last line end: the line that a power cut has left half.
    void DropHalfLine();

    /// Something was not written; `Reason` tells why, in the system's words.
    bool Failed() const { return !m_reason.empty(); }

    const std::string& Reason() const { return m_reason; }

    /// Something was written, and is still there as far as is known.
    bool Reached() const { return m_reached; }

    /// Length of the file, in bytes.
    off_t Size() const { return m_size; }

private:
    bool Open();
    bool Fail(std::string reason);
    void CheckPlace();

    std::string m_place;
    std::string m_reason;
    int m_file = -1;
    off_t m_size = 0;
    bool m_reached = false;
};

} // namespace tqx
