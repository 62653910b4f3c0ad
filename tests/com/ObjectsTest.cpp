#include <olectl.h>

#include "com/ClassFactory.h"
#include "com/Collection.h"
#include "connector/cDataConnector.h"
#include "tests/automation/StrictObject.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {
namespace {

using ObjectsTest = DriverTest;

template <class Interface>
Com<Interface> ask(IUnknown& object) {
    Com<Interface> result;
    object.QueryInterface(__uuidof(Interface), reinterpret_cast<void**>(result.put()));
    return result;
}

TEST_F(ObjectsTest, TheFactoryMakesObjectsOfTheirOwnAndCountsLocks) {
    const auto factory = makeClassFactory([] { return Com<IUnknown>(makeObject<cDataConnector>()); });
    Com<::DataConnector> driver;
    void** const out = reinterpret_cast<void**>(driver.put());
    EXPECT_EQ(factory->CreateInstance(factory.get(), __uuidof(IUnknown), out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IEnumVARIANT), out), E_NOINTERFACE);
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IUnknown), nullptr), E_POINTER);
    EXPECT_FALSE(driver);
    ASSERT_EQ(factory->CreateInstance(nullptr, __uuidof(::DataConnector), out), S_OK);
    const auto failing = makeClassFactory([]() -> Com<IUnknown> { throw std::bad_alloc(); });
    driver.reset();
    EXPECT_EQ(failing->CreateInstance(nullptr, __uuidof(IUnknown), out), E_OUTOFMEMORY);
    for (const BOOL lock : {TRUE, FALSE}) {
        EXPECT_EQ(factory->LockServer(lock), S_OK);
        EXPECT_EQ(moduleState().locks, lock);
    }
}

TEST_F(ObjectsTest, TheEntryObjectTakesListenersAndGivesNothingNowhere) {
    auto container = ask<IConnectionPointContainer>(connector());
    auto identity = ask<IUnknown>(connector());
    EXPECT_EQ(ask<IUnknown>(*container.get()).get(), identity.get()) << "one object, whichever face is asked";
    Com<IConnectionPoint> point;
    ASSERT_EQ(container->FindConnectionPoint(DIID___cDataConnector, point.put()), S_OK);
    EXPECT_NE(ask<IUnknown>(*point.get()).get(), identity.get());

    StrictObject listener({});
    DWORD first = 0, second = 0;
    ASSERT_EQ(point->Advise(&listener, &first), S_OK);
    ASSERT_EQ(point->Advise(&listener, &second), S_OK);
    EXPECT_EQ(point->Unadvise(first), S_OK);
    EXPECT_EQ(point->Unadvise(first), CONNECT_E_NOCONNECTION);
    EXPECT_TRUE(listener.asked.empty());
    Com<::ContactRecord> cursor;
    connector().OpenContactRecord(cursor.put());
    const IID none{};
    const HRESULT toNowhere[] = {
        identity->QueryInterface(none, nullptr),
        connector().GetTypeInfoCount(nullptr),
        connector().GetTypeInfo(0, 0, nullptr),
        connector().GetIDsOfNames(none, nullptr, 0, 0, nullptr),
        connector().Invoke(0, none, 0, 0, nullptr, nullptr, nullptr, nullptr),
        cursor->FindFirst(nullptr, nullptr, nullptr),
        cursor->FindFirstForUnified(nullptr, nullptr, nullptr),
        cursor->FillContactCollection(nullptr, nullptr, nullptr),
        container->EnumConnectionPoints(nullptr),
        container->FindConnectionPoint(none, nullptr),
        point->QueryInterface(none, nullptr),
        point->GetConnectionInterface(nullptr),
        point->GetConnectionPointContainer(nullptr),
        point->Advise(nullptr, &first),
        point->Advise(&listener, nullptr),
        point->EnumConnections(nullptr),
    };
    for (const HRESULT answer : toNowhere) EXPECT_EQ(answer, E_POINTER) << &answer - toNowhere;
    Com<ITypeInfo> description;
    EXPECT_EQ(connector().GetTypeInfo(1, 0, description.put()), DISP_E_BADINDEX);
    EXPECT_EQ(connector().GetTypeInfo(0, 0, description.put()), S_OK);
    description.reset();
    IID events{};
    EXPECT_EQ(container->FindConnectionPoint(events, point.put()), CONNECT_E_NOCONNECTION);
    container->FindConnectionPoint(DIID___cDataConnector, point.put());
    EXPECT_TRUE(point->GetConnectionInterface(&events) == S_OK && events == DIID___cDataConnector);
    EXPECT_EQ(point->Advise(point.get(), &first), CONNECT_E_CANNOTCONNECT) << "it takes no events itself";
    cursor.reset();
    point.reset();
    identity.reset();
    finish();
    EXPECT_EQ(listener.references, 2) << "the container's reference keeps the whole object";
    container.reset();
    EXPECT_EQ(listener.references, 1) << "a listener that forgot to leave is released with the object";
}

TEST_F(ObjectsTest, ACollectionIsCountedFromOneAndWalked) {
    const auto collection = makeObject<Collection>();
    for (const wchar_t* text : {L"one", L"two", L"three"}) collection->add(text);
    const struct {
        Variant index;
        const wchar_t* expected;
    } kCases[] = {{1, L"one"}, {short{3}, L"three"}, {L"2", L"two"}, {2.2, L"two"}, {0, L""}, {4, L""}};
    for (const auto& c : kCases) {
        Variant item;
        EXPECT_EQ(collection->Item(c.index.raw(), item.put()), S_OK);
        EXPECT_EQ(item.text(), c.expected);
    }
    Com<IUnknown> unknown;
    ASSERT_EQ(collection->NewEnum(unknown.put()), S_OK);
    const auto walk = unknown.as<IEnumVARIANT>();
    collection->add(L"four");
    Variant last, copied, first;
    ULONG given = 0;
    EXPECT_EQ(walk->Skip(2), S_OK);
    Com<IEnumVARIANT> copy;
    ASSERT_EQ(walk->Clone(copy.put()), S_OK);
    EXPECT_EQ(walk->Next(2, last.put(), &given), S_FALSE) << "what there was when the walk began";
    EXPECT_EQ(given, 1u);
    EXPECT_EQ(copy->Next(1, copied.put(), nullptr), S_OK);
    EXPECT_EQ(walk->Skip(9), S_FALSE);
    EXPECT_EQ(walk->Clone(nullptr), E_POINTER);
    EXPECT_EQ(walk->Reset(), S_OK);
    EXPECT_EQ(walk->Next(1, first.put(), nullptr), S_OK);
    EXPECT_EQ(last.text() + copied.text() + first.text(), L"threethreeone");
}

}  // namespace
}  // namespace zelbar
