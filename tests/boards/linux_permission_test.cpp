#include "permission_advice.h"
#include "support/fake_kernel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tqx {
namespace {

using testing::HasSubstr;

struct RefusedNode {
    NodeRights Node;
    UserRights User;
    Refusal Why;
    const char* Read;
};

class PermissionAdviceTest : public testing::TestWithParam<RefusedNode> {};

TEST_P(PermissionAdviceTest, TellsTheCasesApart) {
    const RefusedNode& refused = GetParam();
    EXPECT_EQ(RefusalOf(refused.Node, refused.User), refused.Why);
    test::FakeKernel kernel;
    kernel.Rights["/dev/i2c-0"] = refused.Node;
    kernel.TheUser = refused.User;
    EXPECT_THAT(PermissionAdvice(kernel, "/dev/i2c-0"), HasSubstr(refused.Read));
}

const NodeRights OfI2C{.Owner = "root", .Group = 114, .GroupName = "i2c", .Mode = 0660};
const UserRights Outside{.Name = "eva", .Session = {1000}, .Account = {1000}};
const UserRights Joined{.Name = "eva", .Session = {1000}, .Account = {1000, 114}};
const UserRights Inside{.Name = "eva", .Session = {1000, 114}, .Account = {1000, 114}};

INSTANTIATE_TEST_SUITE_P(
    All, PermissionAdviceTest,
    testing::Values(RefusedNode{OfI2C, Outside, Refusal::NotInGroup, "sudo adduser eva i2c"},
                    RefusedNode{OfI2C, Joined, Refusal::SessionTooOld, "log out and in again"},
                    RefusedNode{OfI2C, Inside, Refusal::DespiteGroup, "(root:i2c, mode 0660)"},
                    RefusedNode{{.Owner = "root", .Group = 0, .GroupName = "root", .Mode = 0600},
                                Inside,
                                Refusal::NodeHasNoGroup,
                                "udev rule"},
                    RefusedNode{{.Owner = "root", .Group = 114, .GroupName = "i2c", .Mode = 0640},
                                Inside,
                                Refusal::NodeHasNoGroup,
                                "root:i2c, mode 0640"},
                    RefusedNode{{.Owner = "root", .Group = 4711, .GroupName = "", .Mode = 0660},
                                Outside,
                                Refusal::NodeHasNoGroup,
                                "root:4711"}));

} // namespace
} // namespace tqx
