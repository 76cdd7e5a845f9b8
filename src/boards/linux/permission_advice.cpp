#include "permission_advice.h"

#include <algorithm>
#include <cstdio>

namespace tqx {

namespace {

constexpr unsigned RootGroup = 0;
constexpr unsigned GroupReadsAndWrites = 0060;

/// "root:i2c, mode 0660"
std::string Described(const NodeRights& rights) {
    char mode[8];
    std::snprintf(mode, sizeof mode, "%04o", rights.Mode & 0777U);
    const std::string group =
        rights.GroupName.empty() ? std::to_string(rights.Group) : rights.GroupName;
    return rights.Owner + ":" + group + ", mode " + mode;
}

} // namespace

Refusal RefusalOf(const NodeRights& node, const UserRights& user) {
    const bool groupIsLetIn = (node.Mode & GroupReadsAndWrites) == GroupReadsAndWrites;
    if (node.Group == RootGroup || node.GroupName.empty() || !groupIsLetIn) {
        return Refusal::NodeHasNoGroup;
    }
    if (std::ranges::count(user.Session, node.Group) != 0) {
        return Refusal::DespiteGroup;
    }
    if (std::ranges::count(user.Account, node.Group) != 0) {
        return Refusal::SessionTooOld;
    }
    return Refusal::NotInGroup;
}

std::string PermissionAdvice(KernelFace& kernel, const std::string& node) {
    const auto rights = kernel.RightsOf(node);
    if (!rights) {
        return "Look at the rights of " + node + ".";
    }
    const UserRights user = kernel.User();
    const std::string& group = rights->GroupName;
    switch (RefusalOf(*rights, user)) {
    case Refusal::NotInGroup:
        return "Join the group " + group + ": sudo adduser " + user.Name + " " + group +
               ". Then log out and in again.";
    case Refusal::SessionTooOld:
        return user.Name + " is in the group " + group +
               ", but this session is older than that: log out and in again.";
    case Refusal::DespiteGroup:
        return "The group " + group + " is in force here and " + node + " (" + Described(*rights) +
               ") lets it in, so a container, an access list or a security policy is in the way.";
    case Refusal::NodeHasNoGroup:
        break;
    }
    return node + " (" + Described(*rights) +
           ") is given to no group of users. A udev rule has to do that; the handbook has one.";
}

} // namespace tqx
