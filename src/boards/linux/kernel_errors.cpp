#include "kernel_errors.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace tqx {

namespace {

constexpr std::string_view Gone = "the device is gone";
constexpr std::string_view WhenGone =
    "Plug it in again or load its driver, and repeat the action; where that does not help, start "
    "the program again.";

constexpr std::array Texts{
    ErrorText{ENODEV, Gone, WhenGone},
    ErrorText{ENXIO, Gone, WhenGone},
    ErrorText{EBUSY, "another program keeps it to itself",
              "Close that program and repeat the action."},
    ErrorText{ETIMEDOUT, "no answer in time",
              "Check whether something holds the clock or data line low; switching the board's "
              "supply off and on frees it."},
    ErrorText{EIO, "no answer", "Check the wiring and the supply, and repeat the action."},
};

/// What "ls -l" shows, which group that is, and how to come in. Never root: a group is enough.
std::string PermissionAdvice(KernelFace& kernel, const std::string& node) {
    constexpr unsigned groupReadsAndWrites = 0060;
    const auto rights = kernel.RightsOf(node);
    if (!rights) {
        return "Check the permissions of " + node + ".";
    }
    char mode[8];
    std::snprintf(mode, sizeof mode, "%04o", rights->Mode & 0777U);
    const std::string& group = rights->Group;
    const std::string shown = node + " is " + rights->Owner + ":" + group + ", mode " + mode;
    if (group == "root" || (rights->Mode & groupReadsAndWrites) != groupReadsAndWrites) {
        return shown + ", which no group of users may use: add the udev rule of the handbook.";
    }
    return shown + ": join the group " + group + " (sudo adduser $USER " + group +
           ") and log in again.";
}

} // namespace

std::span<const ErrorText> ErrorTexts() {
    return Texts;
}

bool MeansGone(int error) {
    return error == ENODEV || error == ENXIO;
}

LinkError Failure(const std::string& what, int error) {
    const auto text = std::ranges::find(Texts, error, &ErrorText::Number);
    if (text == Texts.end()) {
        return {what, std::strerror(error), ""};
    }
    return {what, std::string(text->Why), std::string(text->Advice)};
}

LinkError CannotOpen(KernelFace& kernel, const std::string& node, const std::string& module,
                     int error) {
    const std::string what = "cannot open " + node;
    switch (error) {
    case EACCES:
    case EPERM:
        return {what, "permission denied", PermissionAdvice(kernel, node)};
    case ENOENT:
    case ENODEV:
    case ENXIO:
        return {what, "no driver serves it",
                "Load the driver: sudo modprobe " + module + ". To have it loaded at every start " +
                    "of the machine, add the line " + module + " to /etc/modules."};
    default:
        return Failure(what, error);
    }
}

} // namespace tqx
