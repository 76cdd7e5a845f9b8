#pragma once

#include "linuxboard/kernel_face.h"

#include <link/link_error.h>

#include <span>
#include <string>
#include <string_view>

namespace tqx {

/// What an error number of the kernel means to the user of a device, and what to do about it.
struct ErrorText {
    int Number;
    std::string_view Why;
    std::string_view Advice;
};

/// Errors of a transfer on an SMBus adapter, of a call on a printer port, and of opening either.
/// @{
std::span<const ErrorText> BusErrors();
std::span<const ErrorText> PortErrors();
std::span<const ErrorText> OpenErrors();
/// @}

/// True for the numbers that tell that a device has gone.
bool MeansGone(int error);

/// `what` failed with `error`, in the words of one of the lists above.
LinkError Failure(const std::string& what, std::span<const ErrorText> texts, int error);

/// A device node that could not be opened; `module` is the kernel module that makes such nodes.
LinkError CannotOpen(KernelFace& kernel, const std::string& node, const std::string& module,
                     int error);

} // namespace tqx
