#include "automation/Gateway.h"

#include <gtest/gtest.h>

#include "automation/Fault.h"
#include "automation/Object.h"
#include "automation/OutlookNames.h"
#include "tests/automation/StrictObject.h"

namespace zelbar {
namespace {

using Asked = std::vector<std::wstring>;

constexpr Member kName{L"Name"};
constexpr Member kPicture{L"Picture"};
constexpr Member kItem{L"Item", outlook::kContact};

struct GatewayTest : testing::Test {
    Gateway gateway;

    Object object(StrictObject& target, ObjectClass objectClass) {
        return Object(gateway, Server::Outlook, target.reference(), objectClass);
    }
};

TEST_F(GatewayTest, ANameIsAskedOncePerClassAndNotPerCall) {
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

TEST_F(GatewayTest, EachUseHasItsKindOfInvocation) {
    Asked received;
    StrictObject target(
        {{L"Name", 5, DISPATCH_PROPERTYPUT},
         {L"Picture", 6, DISPATCH_PROPERTYPUTREF},
         {L"Item", 7, DISPATCH_METHOD}},
        [&](DISPID, DISPPARAMS& arguments, VARIANT*, EXCEPINFO*) {
            received = {std::to_wstring(arguments.cNamedArgs ? *arguments.rgdispidNamedArgs : 0)};
            for (UINT i = arguments.cArgs; i-- > 0;) {
                const VARIANT& value = arguments.rgvarg[i];
                received.push_back(value.vt == VT_BSTR || value.vt == VT_I4 ? Variant::copyOf(value).text()
                                   : value.vt == VT_ERROR                   ? L"left out"
                                                                            : L"object");
            }
            return S_OK;
        });
    const Object item = object(target, 40);
    EXPECT_FALSE(item.object(kItem, L"id", 3, Variant::missing())) << "Nothing came back";
    EXPECT_EQ(received, (Asked{L"0", L"id", L"3", L"left out"}));
    item.put(kName, L"Ada");
    EXPECT_EQ(received, (Asked{L"-3", L"Ada"}));
    item.putReference(kPicture, item);
    EXPECT_EQ(received, (Asked{L"-3", L"object"}));
    EXPECT_THROW(item.put(kPicture, L"text"), Fault) << "by reference only";
    EXPECT_THROW(item.putReference(kName, item), Fault) << "by value only";
}

}  // namespace
}  // namespace zelbar
