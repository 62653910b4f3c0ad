#include <olectl.h>

#include "com/ClassFactory.h"
#include "com/Collection.h"
#include "com/DualObject.h"
#include "connector/cDataConnector.h"
#include "tests/automation/StrictObject.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {
namespace {

struct ObjectsTest : DriverTest {
    template <class Interface>
    Com<Interface> ask(IUnknown& object) {
        Com<Interface> result;
        EXPECT_EQ(object.QueryInterface(__uuidof(Interface), reinterpret_cast<void**>(result.put())), S_OK);
        return result;
    }
};

TEST_F(ObjectsTest, TheFactoryMakesObjectsOfTheirOwnAndCountsLocks) {
    const auto factory = makeClassFactory([] { return Com<IUnknown>(makeObject<cDataConnector>()); });
    Com<::DataConnector> driver;
    void** const out = reinterpret_cast<void**>(driver.put());
    EXPECT_EQ(factory->CreateInstance(factory.get(), __uuidof(IUnknown), out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IEnumVARIANT), out), E_NOINTERFACE);
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IUnknown), nullptr), E_POINTER);
    EXPECT_FALSE(driver);
    ASSERT_EQ(factory->CreateInstance(nullptr, __uuidof(::DataConnector), out), S_OK);
    driver.reset();
    const auto failing = makeClassFactory([]() -> Com<IUnknown> { throw std::bad_alloc(); });
    EXPECT_EQ(failing->CreateInstance(nullptr, __uuidof(IUnknown), out), E_OUTOFMEMORY);

    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(moduleState().locks, 1);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(moduleState().locks, 0);
}

TEST_F(ObjectsTest, TheEntryObjectTakesListeners) {
    const auto container = ask<IConnectionPointContainer>(connector());
    Com<IConnectionPoint> point;
    EXPECT_EQ(container->FindConnectionPoint(__uuidof(::Contact), point.put()), CONNECT_E_NOCONNECTION);
    ASSERT_EQ(container->FindConnectionPoint(DIID___cDataConnector, point.put()), S_OK);
    IID events{};
    EXPECT_EQ(point->GetConnectionInterface(&events), S_OK);
    EXPECT_EQ(events, DIID___cDataConnector);
    EXPECT_EQ(ask<IUnknown>(*container.get()).get(), ask<IUnknown>(connector()).get())
        << "one object, whichever face is asked";

    StrictObject listener({});
    DWORD first = 0, second = 0;
    EXPECT_EQ(point->Advise(nullptr, &first), E_POINTER);
    ASSERT_EQ(point->Advise(&listener, &first), S_OK);
    ASSERT_EQ(point->Advise(&listener, &second), S_OK);
    EXPECT_NE(first, second);
    EXPECT_EQ(listener.references, 3);
    EXPECT_EQ(point->Unadvise(first), S_OK);
    EXPECT_EQ(point->Unadvise(first), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(listener.references, 2);
    point.reset();
    Com<IConnectionPointContainer> last = container;
    finish();
    EXPECT_EQ(listener.references, 2) << "the container's reference keeps the whole object";
    EXPECT_TRUE(listener.asked.empty());
    const_cast<Com<IConnectionPointContainer>&>(container).reset();
    last.reset();
    EXPECT_EQ(listener.references, 1) << "a listener that forgot to leave is released with the object";
}

TEST_F(ObjectsTest, ACollectionIsCountedFromOneAndWalked) {
    const auto collection = makeObject<Collection>();
    for (const wchar_t* text : {L"one", L"two", L"three"}) collection->add(text);
    const struct {
        Variant index;
        const wchar_t* expected;
    } kCases[] = {{1, L"one"}, {short{3}, L"three"}, {L"2", L"two"},  {2.2, L"two"}, {0, L""}, {-1, L""},
                  {4, L""},    {L"x", L""},          {Variant(), L""}};
    for (const auto& c : kCases) {
        Variant item;
        EXPECT_EQ(collection->Item(c.index.raw(), item.put()), S_OK);
        EXPECT_EQ(item.text(), c.expected);
    }

    Com<IUnknown> unknown;
    ASSERT_EQ(collection->NewEnum(unknown.put()), S_OK);
    const auto walk = unknown.as<IEnumVARIANT>();
    collection->add(L"four");
    const auto next = [&](ULONG wanted) {
        VARIANT raw[2]{};
        ULONG given = 0;
        const HRESULT result = walk->Next(wanted, raw, &given);
        std::wstring texts;
        for (VARIANT& value : raw) {
            if (value.vt == VT_BSTR) texts += std::wstring(value.bstrVal) + L" ";
            VariantClear(&value);
        }
        return texts + std::to_wstring(given) + (result == S_OK ? L"" : L" and no more");
    };
    EXPECT_EQ(next(2), L"one two 2");
    Com<IEnumVARIANT> copy;
    ASSERT_EQ(walk->Clone(copy.put()), S_OK);
    EXPECT_EQ(next(2), L"three 1 and no more") << "what there was when the walk began";
    EXPECT_EQ(next(1), L"0 and no more");
    Variant third;
    EXPECT_EQ(copy->Next(1, third.put(), nullptr), S_OK);
    EXPECT_EQ(third.text(), L"three");
    EXPECT_EQ(walk->Reset(), S_OK);
    EXPECT_EQ(walk->Skip(2), S_OK);
    EXPECT_EQ(next(1), L"three 1");
    EXPECT_EQ(walk->Skip(1), S_FALSE);
    EXPECT_EQ(walk->Next(2, third.put(), nullptr), E_POINTER);
}

}  // namespace
}  // namespace zelbar
