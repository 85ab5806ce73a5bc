#include "helpers/page-renderer/AddressRule.h"

#include <map>

namespace ovrin {
namespace {

TEST(AddressRule, KnowsThePublicInternet)
{
    for (const char* address :
         {"1.1.1.1", "9.255.255.255", "11.0.0.0", "100.63.255.255", "100.128.0.0", "172.15.255.255",
          "172.32.0.0", "192.167.1.1", "192.169.0.0", "198.20.0.0", "223.255.255.255", "2606:4700::1",
          "2a00::1", "::ffff:1.1.1.1", "64:ff9b::101:101", "2002:101:101::1", "2001:200::1"})
        EXPECT_TRUE(isPublicAddress(address)) << address;
    for (const char* address : {"0.0.0.0",
                                "10.0.0.1",
                                "100.64.0.1",
                                "100.127.255.255",
                                "127.0.0.1",
                                "127.255.255.254",
                                "169.254.169.254",
                                "172.16.0.1",
                                "172.31.255.255",
                                "192.0.0.8",
                                "192.168.0.1",
                                "198.19.0.1",
                                "224.0.0.251",
                                "255.255.255.255",
                                "::",
                                "::1",
                                "::7f00:1",
                                "fe80::1",
                                "fe80::1%eth0",
                                "fc00::1",
                                "fdff::1",
                                "fec0::1",
                                "ff02::1",
                                "::ffff:127.0.0.1",
                                "::ffff:10.0.0.1",
                                "64:ff9b::a00:1",
                                "64:ff9b:1::1",
                                "2002:7f00:1::1",
                                "2001::1",
                                "2001:db8::1",
                                "100::1",
                                "4000::1",
                                "",
                                "localhost",
                                "1.1.1",
                                "0x7f.1",
                                "2130706433"})
        EXPECT_FALSE(isPublicAddress(address)) << address;
}

class AddressRuleFor : public testing::Test
{
protected:
    AddressRule ruleFor(const char* namedHost, bool publicOnly = false)
    {
        return {namedHost, publicOnly, [this](const std::string& host) { return names[host]; }};
    }

    std::map<std::string, std::vector<std::string>> names{{"recipes.example", {"1.1.1.1"}},
                                                          {"cdn.example", {"2.2.2.2", "10.0.0.2"}},
                                                          {"router.example", {"192.168.0.1"}},
                                                          {"nas.local", {"192.168.0.7", "fe80::7"}},
                                                          {"localhost", {"127.0.0.1", "::1"}}};
};

TEST_F(AddressRuleFor, APublicPageReachesThePublicInternetOnly)
{
    AddressRule rule = ruleFor("recipes.example");
    EXPECT_THAT(rule.addresses("router.example").addresses, testing::IsEmpty());
    EXPECT_TRUE(rule.addresses("router.example").refused);
    EXPECT_TRUE(rule.addresses("localhost").refused);
    EXPECT_THAT(rule.addresses("recipes.example").addresses, testing::ElementsAre("1.1.1.1"));
    EXPECT_THAT(rule.addresses("cdn.example").addresses, testing::ElementsAre("2.2.2.2"));
    EXPECT_FALSE(rule.addresses("unknown.example").refused);
}

TEST_F(AddressRuleFor, APageNamedByAPrivateAddressReachesPrivateOnes)
{
    AddressRule rule = ruleFor("nas.local");
    EXPECT_THAT(rule.addresses("nas.local").addresses, testing::ElementsAre("192.168.0.7", "fe80::7"));
    EXPECT_THAT(rule.addresses("router.example").addresses, testing::ElementsAre("192.168.0.1"));
    EXPECT_TRUE(ruleFor("nas.local", true).addresses("nas.local").refused);
}

TEST_F(AddressRuleFor, ANameServerCannotMakeAPublicHostPrivateLater)
{
    AddressRule rule = ruleFor("recipes.example");
    EXPECT_THAT(rule.addresses("recipes.example").addresses, testing::ElementsAre("1.1.1.1"));
    names["recipes.example"] = {"127.0.0.1"};
    EXPECT_THAT(rule.addresses("recipes.example").addresses, testing::ElementsAre("1.1.1.1"));
    EXPECT_TRUE(rule.addresses("router.example").refused);
}

} // namespace
} // namespace ovrin
