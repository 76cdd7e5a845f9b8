#pragma once

#include "linuxboard/kernel_face.h"

#include <link/link_error.h>

#include <span>
#include <string>
#include <string_view>

namespace tqx {

/// An error number of the kernel about which the user of a device can do something.
struct ErrorText {
    int Number;
    std::string_view Why;
    std::string_view Advice;
};

/// All such errors of a transfer and of opening a node.
std::span<const ErrorText> ErrorTexts();

/// True for the numbers that tell that a device has gone.
bool MeansGone(int error);

/// `what` failed with `error`: one of the texts above, or the system's word for it.
LinkError Failure(const std::string& what, int error);

/// A device node that could not be opened; `module` is the kernel module that makes such nodes.
LinkError CannotOpen(KernelFace& kernel, const std::string& node, const std::string& module,
                     int error);

} // namespace tqx
