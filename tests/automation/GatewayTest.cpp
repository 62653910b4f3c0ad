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
    StrictObject first({{L"Name", 5}}), second({{L"Name", 5}}), other({{L"Name", 7}});
    const Object a = object(first, 40), b = object(second, 40), c = object(other, 41);
    EXPECT_EQ(a.integer(kName), 5);
    EXPECT_EQ(a.integer(kName), 5);
    EXPECT_EQ(b.integer(kName), 5);
    EXPECT_EQ(c.integer(kName), 7) << "another class has numbers of its own";
    EXPECT_EQ(first.asked, (Asked{L"?Name", L"Name/3", L"Name/3"}));
    EXPECT_EQ(second.asked, (Asked{L"Name/3"}));
    EXPECT_EQ(other.asked, (Asked{L"?Name", L"Name/3"}));

    StrictObject elsewhere({{L"Name", 9}});
    EXPECT_EQ(Object(gateway, Server::Dao, elsewhere.reference(), 40).integer(kName), 9)
        << "and so has the same class number of another server";

    StrictObject target({{L"Name", 5}});
    const Object unknown = object(target, kUnknownClass);
    unknown.get(kName);
    unknown.get(kName);
    EXPECT_EQ(target.asked, (Asked{L"?Name", L"Name/3", L"?Name", L"Name/3"})) << "nothing to remember by";
}

TEST_F(GatewayTest, AnyObjectOfOutlookIsAskedForItsClassOnce) {
    StrictObject contact({{L"Class", 40}, {L"Name", 5}}), mail({{L"Class", 43}, {L"Name", 6}});
    const Object a = object(contact, kAskForClass), b = object(mail, kAskForClass);
    EXPECT_EQ(a.integer(kName), 5);
    EXPECT_EQ(a.integer(kName), 5);
    EXPECT_EQ(Object(a).objectClass(), 40);
    EXPECT_EQ(contact.asked, (Asked{L"?Class", L"Class/3", L"?Name", L"Name/3", L"Name/3"}));
    EXPECT_EQ(b.integer(kName), 6) << "a mail is no contact";
    // A server whose numbers are another's: `Class` itself is looked up anew, and so is the rest.
    EXPECT_EQ(mail.asked, (Asked{L"?Class", L"Class/3", L"?Name", L"Name/3"}));
}

TEST_F(GatewayTest, ANumberThatTheObjectDoesNotKnowIsLookedUpAnew) {
    StrictObject older({{L"Name", 5}}), newer({{L"Name", 6}}), poorer({{L"Size", 1}});
    const Object a = object(older, 40), b = object(newer, 40), c = object(poorer, 40);
    a.get(kName);
    EXPECT_EQ(b.integer(kName), 6);
    EXPECT_EQ(b.integer(kName), 6);
    EXPECT_EQ(newer.asked, (Asked{L"?Name", L"Name/3", L"Name/3"})) << "and then remembered";
    try {
        c.get(kName);
        FAIL() << "a member that is not there";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, 438);
        EXPECT_NE(fault.description.find(L"Name"), std::wstring::npos);
    }
    EXPECT_EQ(b.integer(kName), 6) << "a class is not spoilt by one odd object";
}

TEST_F(GatewayTest, EachUseHasItsKindOfInvocation) {
    struct Received {
        std::vector<std::wstring> values;
        UINT named = 0;
        DISPID name = 0;
    } received;
    StrictObject target({{L"Name", 5, DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT},
                         {L"Picture", 6, DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUTREF},
                         {L"Item", 7, DISPATCH_METHOD}},
                        [&](DISPID, DISPPARAMS& arguments, VARIANT*, EXCEPINFO*) {
                            received = {{}, arguments.cNamedArgs, 0};
                            if (arguments.cNamedArgs) received.name = arguments.rgdispidNamedArgs[0];
                            for (UINT i = arguments.cArgs; i-- > 0;)
                                received.values.push_back(arguments.rgvarg[i].vt == VT_ERROR
                                                              ? L"left out"
                                                              : Variant::copyOf(arguments.rgvarg[i]).text());
                            return S_OK;
                        });
    const Object item = object(target, 40);

    EXPECT_FALSE(item.object(kItem, L"id", 3, Variant::missing(), true)) << "Nothing came back";
    EXPECT_EQ(received.values, (Asked{L"id", L"3", L"left out", L"-1"}));
    EXPECT_EQ(received.named, 0u);

    item.put(kName, L"Ada");
    EXPECT_EQ(received.values, Asked{L"Ada"});
    EXPECT_EQ(received.named, 1u);
    EXPECT_EQ(received.name, DISPID_PROPERTYPUT);

    StrictObject picture({});
    EXPECT_THROW(item.put(kPicture, L"text"), Fault) << "by reference only";
    EXPECT_THROW(item.putReference(kName, object(picture, 5)), Fault) << "by value only";
    target.asked.clear();
    StrictObject quiet({{L"Picture", 6, DISPATCH_PROPERTYPUTREF}}, [](DISPID, DISPPARAMS& arguments, VARIANT*,
                                                                      EXCEPINFO*) {
        return arguments.rgvarg[0].vt == VT_DISPATCH && arguments.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT
                   ? S_OK
                   : DISP_E_TYPEMISMATCH;
    });
    object(quiet, 50).putReference(kPicture, object(picture, 5));
    EXPECT_EQ(quiet.asked, (Asked{L"?Picture", L"Picture/8"}));
    EXPECT_EQ(picture.references, 1) << "what is passed stays the caller's";
}

TEST_F(GatewayTest, ObjectsThatComeBackAreOwnedAndCarryTheirClass) {
    StrictObject contact({{L"Name", 5}});
    VARTYPE given = VT_DISPATCH;
    StrictObject folder({{L"Item", 1}}, [&](DISPID, DISPPARAMS&, VARIANT* result, EXCEPINFO*) {
        result->vt = given;
        result->punkVal = contact.reference().detach();
        return S_OK;
    });
    {
        const Object items = object(folder, outlook::kItems);
        const Object a = items.object(kItem, 1);
        given = VT_UNKNOWN;
        const Object b = items.object(kItem, 2);
        EXPECT_EQ(a.integer(kName) + b.integer(kName), 10);
        EXPECT_EQ(contact.references, 3);
        EXPECT_EQ(contact.asked, (Asked{L"?Name", L"Name/3", L"Name/3"}));
        EXPECT_THROW(items.text(kItem), Fault) << "an object without a value is no text";
    }
    EXPECT_EQ(contact.references, 1);
    EXPECT_EQ(folder.references, 1);
}

}  // namespace
}  // namespace zelbar
