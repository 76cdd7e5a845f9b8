#include "jobs/file_lock.h"

#include <cerrno>
#include <fstream>
#include <sstream>
#include <sys/file.h>
#include <sys/stat.h>

namespace tqx {
namespace {

/// The process that has the lock of a file, as the kernel lists it; 0 where it tells of none.
/// A line is "1: FLOCK ADVISORY WRITE 4711 08:01:1835012 0 EOF".
int HolderOf(ino_t inode) {
    std::ifstream locks("/proc/locks");
    const std::string ending = ":" + std::to_string(inode);
    for (std::string line; std::getline(locks, line);) {
        std::istringstream words(line);
        std::string number, kind, way, access, place;
        int process = 0;
        if (words >> number >> kind >> way >> access >> process >> place && kind == "FLOCK" &&
            place.ends_with(ending)) {
            return process;
        }
    }
    return 0;
}

} // namespace

std::string LockedBy(int file) {
    if (flock(file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) {
        return {};
    }

    struct stat facts {};

    const int process = fstat(file, &facts) == 0 ? HolderOf(facts.st_ino) : 0;
    if (process == 0) {
        return "another program";
    }
    std::string name;
    std::getline(std::ifstream("/proc/" + std::to_string(process) + "/comm"), name);
    return (name.empty() ? "a program" : name) + ", process " + std::to_string(process);
}

} // namespace tqx
