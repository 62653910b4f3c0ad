#include "automation/Gateway.h"

#include <gtest/gtest.h>

#include "automation/Fault.h"
#include "automation/Object.h"
#include "tests/automation/StrictObject.h"

namespace zelbar {
namespace {

using Asked = std::vector<std::wstring>;

constexpr Member kName{L"Name"};

TEST(GatewayTest, ANameIsAskedOncePerClassAndNotPerCall) {
    const Gateway gateway;
    const auto object = [&gateway](StrictObject& target, ObjectClass objectClass) {
        return Object(gateway, Server::Outlook, target.reference(), objectClass);
    };
    StrictObject first({{L"Name", 5}}), second({{L"Name", 5}}), other({{L"Name", 7}}), odd({{L"Size", 1}});
    const Object a = object(first, 40), b = object(second, 40), c = object(other, 41);
    EXPECT_EQ(a.integer(kName) + a.integer(kName) + b.integer(kName), 15);
    EXPECT_EQ(c.integer(kName), 7) << "another class has numbers of its own";
    EXPECT_EQ(first.asked, (Asked{L"?Name", L"Name/3", L"Name/3"}));
    EXPECT_EQ(second.asked, (Asked{L"Name/3"}));
    EXPECT_EQ(Object(gateway, Server::Dao, other.reference(), 40).integer(kName), 7) << "so has a server";

    StrictObject newer({{L"Name", 6}});
    const Object d = object(newer, 40);
    EXPECT_EQ(d.integer(kName) + d.integer(kName), 12) << "a number that it does not know is looked up anew";
    EXPECT_EQ(newer.asked, (Asked{L"?Name", L"Name/3", L"Name/3"}));
    EXPECT_THROW(object(odd, 40).get(kName), Fault);
    EXPECT_EQ(d.integer(kName), 6) << "a class is not spoilt by one odd object";

    first.asked.clear();
    const Object unknown = object(first, kUnknownClass);
    EXPECT_EQ(unknown.integer(kName) + unknown.integer(kName), 10);
    EXPECT_EQ(first.asked, (Asked{L"?Name", L"Name/3", L"?Name", L"Name/3"})) << "nothing to remember by";
}

}  // namespace
}  // namespace zelbar
