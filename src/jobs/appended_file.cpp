#include "appended_file.h"

#include "jobs/file_lock.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tqx {
namespace {

using Facts = struct stat;

/// Why a file of this kind is not written to; empty for a plain file.
std::string Refusal(mode_t mode) {
    if (S_ISREG(mode)) {
        return {};
    }
    return S_ISDIR(mode)    ? "it is a folder"
           : S_ISFIFO(mode) ? "it is a pipe and not a file"
           : S_ISSOCK(mode) ? "it is a socket and not a file"
                            : "it is a device and not a file";
}

} // namespace

AppendedFile::AppendedFile(const std::string& place)
    : m_place(place) {
    if (!Open() && m_file >= 0) {
        close(m_file);
        m_file = -1;
    }
}

AppendedFile::~AppendedFile() {
    Close();
}

bool AppendedFile::Open() {
    Facts facts{};
    // Looked at first: some devices do something when they are opened.
    if (stat(m_place.c_str(), &facts) == 0 && !S_ISREG(facts.st_mode)) {
        return Fail(Refusal(facts.st_mode));
    }
    constexpr int rights = 0666; // what the user's mask leaves of them
    constexpr int how = O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK;
    m_file = open(m_place.c_str(), O_RDWR | how, rights);
    if (m_file < 0 && errno == EACCES) { // that it cannot be read hinders no dump
        m_file = open(m_place.c_str(), O_WRONLY | how, rights);
    }
    if (m_file < 0 || fstat(m_file, &facts) != 0) {
        return Fail(std::strerror(errno));
    }
    if (const std::string refusal = Refusal(facts.st_mode); !refusal.empty()) {
        return Fail(refusal);
    }
    if (const std::string holder = LockedBy(m_file); !holder.empty()) {
        return Fail("it is being written by " + holder);
    }
    m_size = lseek(m_file, 0, SEEK_END); // what another wrote before it let the lock go counts
    return true;
}

bool AppendedFile::Fail(std::string reason) {
    if (m_reason.empty()) {
        m_reason = std::move(reason);
    }
    return false;
}

/// A write that ends early has met an end (of the disk, of a limit) whose name only the next one
/// tells.
void AppendedFile::Write(std::string_view text) {
    if (Failed()) {
        return;
    }
    std::string_view rest = text;
    while (!rest.empty()) {
        const ssize_t written = write(m_file, rest.data(), rest.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            Fail(written < 0 ? std::strerror(errno) : "the system took nothing");
            [[maybe_unused]] const int cut = ftruncate(m_file, m_size);
            return;
        }
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
    m_size += static_cast<off_t>(text.size());
    m_reached = true;
}

void AppendedFile::Flush() {
    if (m_file >= 0 && fdatasync(m_file) != 0 && errno != EINVAL) {
        Fail(std::strerror(errno));
    }
    CheckPlace();
}

/// A file that was removed or moved away still takes what is written, and nobody finds it.
void AppendedFile::CheckPlace() {
    Facts here{};
    Facts there{};
    if (m_file < 0 || fstat(m_file, &here) != 0) {
        return;
    }
    if (stat(m_place.c_str(), &there) != 0 || here.st_ino != there.st_ino ||
        here.st_dev != there.st_dev) {
        m_reached = false;
        Fail("it was removed or moved away meanwhile");
    }
}

void AppendedFile::Close() {
    if (m_file < 0) {
        return;
    }
    CheckPlace();
    if (close(m_file) != 0 && errno != EINTR) {
        Fail(std::strerror(errno));
    }
    m_file = -1;
}

std::string AppendedFile::Beginning(std::size_t most) const {
    std::string text(most, '\0');
    const ssize_t got = m_file < 0 ? 0 : pread(m_file, text.data(), most, 0);
    text.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return text;
}

void AppendedFile::DropHalfLine() {
    off_t end = m_size;
    char last = '\0';
    while (end > 0 && pread(m_file, &last, 1, end - 1) == 1 && last != '\n') {
        --end;
    }
    if (end != m_size && ftruncate(m_file, end) == 0) {
        m_size = end;
    }
}

} // namespace tqx
