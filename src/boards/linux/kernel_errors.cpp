#include "kernel_errors.h"

#include "permission_advice.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace tqx {

namespace {

constexpr std::string_view AdapterGone = "Plug the adapter in again or load its driver, and repeat "
                                         "the action; for another adapter start "
                                         "the program again.";
constexpr std::string_view PortGone =
    "Plug the port in again or load its driver, and start the program again.";
constexpr std::string_view Repeat = "Nothing is wrong with the board; repeat the action.";

constexpr std::array BusTexts{
    ErrorText{EAGAIN, "another master took the bus in mid-transfer (arbitration lost)",
              "Repeat the action. If this comes often, something else keeps using the bus."},
    ErrorText{ETIMEDOUT, "the bus did not come free in time",
              "Look whether something holds the clock or the data line low; switching the board's "
              "supply off and on frees it."},
    ErrorText{EBUSY, "the bus is busy", "Wait for the other program on this bus to finish."},
    ErrorText{EINTR, "a signal interrupted the call", Repeat},
    ErrorText{EIO, "the adapter could not complete the transfer",
              "Check the wiring and the supply of the bus, and repeat the action."},
    ErrorText{EPROTO, "the other side broke the bus protocol",
              "Check the wiring and the supply of the bus, and repeat the action."},
    ErrorText{EBADMSG, "the packet error code of the answer is wrong",
              "Check the wiring of the bus, and repeat the action."},
    ErrorText{EOPNOTSUPP, "the adapter cannot do SMBus byte transfers",
              "Connect the chip to another adapter."},
    ErrorText{ESHUTDOWN, "the adapter is suspended",
              "Wait until the machine is fully awake, and repeat the action."},
    ErrorText{ENODEV, "the adapter is gone", AdapterGone},
    ErrorText{ENXIO, "the adapter is gone", AdapterGone},
};

constexpr std::array PortTexts{
    ErrorText{EINTR, "a signal interrupted the call", Repeat},
    ErrorText{EAGAIN, "the port is busy", "Wait for the other program on this port to finish."},
    ErrorText{EIO, "the port does not react", "Check the port and its cable."},
    ErrorText{EINVAL, "the port is not this program's to use",
              "Close other programs that use the port, and repeat the action."},
    ErrorText{ENOTTY, "the node does not belong to a printer port",
              "Remove the node and load the module again: sudo modprobe -r ppdev, then sudo "
              "modprobe ppdev."},
    ErrorText{ENODEV, "the port is gone", PortGone},
    ErrorText{ENXIO, "the port is gone", PortGone},
};

constexpr std::array OpenTexts{
    ErrorText{EBUSY, "another program keeps it to itself", "Close that program."},
    ErrorText{EINTR, "a signal interrupted the call", Repeat},
    ErrorText{EMFILE, "too many files open in this program", "Start the program again."},
    ErrorText{ENFILE, "too many files open in the system", "Close other programs."},
};

} // namespace

std::span<const ErrorText> BusErrors() {
    return BusTexts;
}

std::span<const ErrorText> PortErrors() {
    return PortTexts;
}

std::span<const ErrorText> OpenErrors() {
    return OpenTexts;
}

bool MeansGone(int error) {
    return error == ENODEV || error == ENXIO;
}

LinkError Failure(const std::string& what, std::span<const ErrorText> texts, int error) {
    const auto text = std::ranges::find(texts, error, &ErrorText::Number);
    if (text == texts.end()) {
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
        return Failure(what, OpenErrors(), error);
    }
}

} // namespace tqx
