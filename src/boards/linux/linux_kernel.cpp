#include "linux_kernel.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <grp.h>
#include <linux/i2c-dev.h>
#include <linux/parport.h>
#include <linux/ppdev.h>
#include <pwd.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

// libi2c's header is for C alone in some versions.
extern "C" {
#include <i2c/smbus.h>
}

namespace tqx {

namespace {

/// What a call that gives -1 and errno came back with.
KernelAnswer Answer(long result) {
    if (result < 0) {
        return {.Error = errno};
    }
    return {.Value = static_cast<unsigned long>(result)};
}

/// The calls of libi2c give the error as a negative number.
KernelAnswer LibraryAnswer(int result) {
    if (result < 0) {
        return {.Error = -result};
    }
    return {.Value = static_cast<unsigned long>(result)};
}

/// The name of a user or group, or its number where it has none.
/// @{
std::string UserName(uid_t user) {
    std::array<char, 16384> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    getpwuid_r(user, &entry, buffer.data(), buffer.size(), &found);
    return found != nullptr ? found->pw_name : std::to_string(user);
}

std::string GroupName(gid_t group) {
    std::array<char, 16384> buffer{};
    ::group entry{};
    ::group* found = nullptr;
    getgrgid_r(group, &entry, buffer.data(), buffer.size(), &found);
    return found != nullptr ? found->gr_name : std::to_string(group);
}

/// @}

} // namespace

KernelAnswer LinuxKernel::OpenNode(const std::string& path) {
    return Answer(open(path.c_str(), O_RDWR | O_CLOEXEC));
}

KernelAnswer LinuxKernel::OpenText(const std::string& path) {
    return Answer(open(path.c_str(), O_RDONLY | O_CLOEXEC));
}

void LinuxKernel::Close(int file) {
    close(file);
}

KernelAnswer LinuxKernel::Read(int file, std::span<char> buffer) {
    return Answer(read(file, buffer.data(), buffer.size()));
}

std::vector<std::string> LinuxKernel::List(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        names.push_back(entry->path().filename());
    }
    return names;
}

std::string LinuxKernel::RealPath(const std::string& path) {
    std::error_code error;
    return std::filesystem::canonical(path, error);
}

KernelAnswer LinuxKernel::I2CFunctions(int file) {
    unsigned long functions = 0;
    const KernelAnswer answer = Answer(ioctl(file, I2C_FUNCS, &functions));
    return {.Error = answer.Error, .Value = functions};
}

KernelAnswer LinuxKernel::I2CAddress(int file, std::uint8_t address) {
    return Answer(ioctl(file, I2C_SLAVE, static_cast<unsigned long>(address)));
}

KernelAnswer LinuxKernel::SMBusReadByte(int file, std::uint8_t reg) {
    return LibraryAnswer(i2c_smbus_read_byte_data(file, reg));
}

KernelAnswer LinuxKernel::SMBusWriteByte(int file, std::uint8_t reg, std::uint8_t value) {
    return LibraryAnswer(i2c_smbus_write_byte_data(file, reg, value));
}

KernelAnswer LinuxKernel::PortClaim(int file) {
    return Answer(ioctl(file, PPCLAIM));
}

KernelAnswer LinuxKernel::PortRelease(int file) {
    return Answer(ioctl(file, PPRELEASE));
}

KernelAnswer LinuxKernel::PortCompatible(int file) {
    int mode = IEEE1284_MODE_COMPAT;
    return Answer(ioctl(file, PPSETMODE, &mode));
}

KernelAnswer LinuxKernel::PortForward(int file) {
    int reverse = 0;
    return Answer(ioctl(file, PPDATADIR, &reverse));
}

KernelAnswer LinuxKernel::PortWriteData(int file, std::uint8_t value) {
    return Answer(ioctl(file, PPWDATA, &value));
}

KernelAnswer LinuxKernel::PortReadStatus(int file) {
    std::uint8_t status = 0;
    const KernelAnswer answer = Answer(ioctl(file, PPRSTATUS, &status));
    return {.Error = answer.Error, .Value = status};
}

std::string LinuxKernel::Release() {
    utsname names{};
    uname(&names);
    return names.release;
}

std::optional<NodeRights> LinuxKernel::RightsOf(const std::string& path) {
    struct stat facts {};

    if (stat(path.c_str(), &facts) != 0) {
        return std::nullopt;
    }
    return NodeRights{.Owner = UserName(facts.st_uid),
                      .Group = GroupName(facts.st_gid),
                      .Mode = facts.st_mode & 0777U};
}

std::chrono::nanoseconds LinuxKernel::Now() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

void LinuxKernel::Sleep(std::chrono::nanoseconds time) {
    const auto end = Now() + time;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(end);
    const timespec until{.tv_sec = seconds.count(), .tv_nsec = (end - seconds).count()};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) == EINTR) {
    }
}

} // namespace tqx
