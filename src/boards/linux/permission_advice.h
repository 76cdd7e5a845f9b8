#pragma once

#include "linuxboard/kernel_face.h"

#include <string>

namespace tqx {

/// Why the user is refused a device node, and what opens it. Never root: a group is enough.
enum class Refusal {
    /// The user's account is not in the node's group.
    NotInGroup,
    /// It is, but this session began before it was.
    SessionTooOld,
    /// The group is in force and the node lets it in: something else is in the way.
    DespiteGroup,
    /// The node is given to no group that users join.
    NodeHasNoGroup,
};

Refusal RefusalOf(const NodeRights& node, const UserRights& user);

/// The advice for whichever it is, in whole sentences.
std::string PermissionAdvice(KernelFace& kernel, const std::string& node);

} // namespace tqx
