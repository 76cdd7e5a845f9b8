#pragma once

#include <string>

namespace tqx {

/// Takes the advisory lock of an open file, which lasts until the file is closed. Empty when it was
/// taken, or cannot be had on this file system at all; else who holds it: "tqx7716, process 4711".
std::string LockedBy(int file);

} // namespace tqx
