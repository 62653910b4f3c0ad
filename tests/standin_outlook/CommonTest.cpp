// The late-bound base of both stand-ins, on a small class of its own.
#include <stdexcept>

#include "standin/common/ClassFactory.h"
#include "standin/common/Object.h"
#include "tests/standin_outlook/Fixture.h"

namespace standin {
namespace {

class Cell final : public Object {
  public:
    Cell(Server& server, std::shared_ptr<std::wstring> content)
        : Object(server), content_(std::move(content)) {}

  protected:
    const MemberTable& members() const override {
        static const MemberTable table(L"Cell", {property<&Cell::value, &Cell::setValue>(L"Value", 7)},
                                       L"Value");
        return table;
    }

  private:
    std::wstring value() const { return *content_; }
    void setValue(const std::wstring& text) { *content_ = text; }
    std::shared_ptr<std::wstring> content_;
};

class Cells final : public Object {
  public:
    Cells(Server& server, std::shared_ptr<std::wstring> content)
        : Object(server), content_(std::move(content)) {}

  protected:
    const MemberTable& members() const override {
        static const MemberTable table(L"Cells", {readOnly<&Cells::item>(L"Item", 1, 1)}, L"Item");
        return table;
    }

  private:
    Ref<Object> item(const Arguments& arguments) {
        if (arguments.text(0) != L"A")
            throw Error(static_cast<HRESULT>(0x800A0CC1), L"Item not found.", L"Cells");
        return makeObject<Cell>(server(), content_);
    }
    std::shared_ptr<std::wstring> content_;
};

class Sheet final : public Object {
  public:
    explicit Sheet(Server& server) : Object(server) {}

  protected:
    const MemberTable& members() const override {
        static const MemberTable table(L"Sheet",
                                       {
                                           readOnly<&Sheet::cells>(L"Cells", 1),
                                           method<&Sheet::add>(L"Add", 2, 1, 2),
                                           method<&Sheet::breakDown>(L"BreakDown", 3),
                                           method<&Sheet::run>(L"Run", 4),
                                           property<&Sheet::entry, &Sheet::setEntry>(L"Entry", 5, 1),
                                       });
        return table;
    }

  private:
    Ref<Object> cells() { return makeObject<Cells>(server(), content_); }
    long add(const Arguments& arguments) { return arguments.number(0) + arguments.number(1, 100); }
    void breakDown() { throw std::runtime_error("broken"); }
    void run() { throw Error::plain(RPC_E_DISCONNECTED); }
    std::wstring entry(const Arguments& arguments) { return arguments.text(0) + *content_; }
    void setEntry(const Arguments& arguments) {
        *content_ = arguments.text(0) + toText(arguments.assigned());
    }
    std::shared_ptr<std::wstring> content_ = std::make_shared<std::wstring>(L"empty");
};

class Common : public testing::Test {
  protected:
    Server server{L"Test server"};
    late::Object sheet{Ref<IDispatch>(makeObject<Sheet>(server))};
};

TEST_F(Common, ArgumentsGoOnToTheReturnedCollection) {
    EXPECT_EQ(late::Object(toObject(sheet.get(L"Cells", {L"A"}))).text(L"Value"), L"empty");
    EXPECT_EQ(sheet.invoke(L"Cells", DISPATCH_PROPERTYPUT, {L"A", L"full"}).result, S_OK);
    EXPECT_EQ(sheet.object(L"Cells", {L"A"}).text(L"Value"), L"full");
    const late::Outcome missing = sheet.attempt(L"Cells", {L"B"});
    EXPECT_EQ(missing.number, static_cast<HRESULT>(0x800A0CC1));
    EXPECT_EQ(missing.source, L"Cells");
    EXPECT_EQ(sheet.attempt(L"Cells", {L"A", 1L}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(server.calls().invocations(L"Cells.Item"), 0) << "passing on is the server's own business";
}

TEST_F(Common, IndexedPropertiesAndOptionalArguments) {
    EXPECT_EQ(sheet.invoke(L"Entry", DISPATCH_PROPERTYPUT, {L"x", 5L}).result, S_OK);
    EXPECT_EQ(sheet.text(L"Entry", {L"y"}), L"yx5");
    EXPECT_EQ(sheet.number(L"Add", {1L}), 101);
    EXPECT_EQ(sheet.number(L"Add", {L"1", 2.0}), 3) << "automation converts";
    EXPECT_EQ(sheet.attempt(L"Add", {Value(), 1L}).result, S_OK) << "Empty is 0";
    EXPECT_EQ(sheet.attempt(L"Add", {L"one"}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(sheet.attempt(L"Add", {1e12}).result, DISP_E_OVERFLOW);
}

TEST_F(Common, FailuresReachTheClientInTheirForm) {
    const late::Outcome thrown = sheet.attempt(L"BreakDown");
    EXPECT_EQ(thrown.result, DISP_E_EXCEPTION);
    EXPECT_EQ(thrown.number, E_FAIL);
    EXPECT_EQ(thrown.description, L"broken");
    EXPECT_EQ(thrown.source, L"Test server");
    EXPECT_EQ(sheet.attempt(L"Run").result, RPC_E_DISCONNECTED);
    DISPPARAMS none{};
    EXPECT_EQ(sheet.raw()->Invoke(3, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_EXCEPTION)
        << "also for a client that asks for no details";
    EXPECT_EQ(sheet.raw()->Invoke(3, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              E_INVALIDARG);
    DISPID named = 9;
    Value argument(1L);
    DISPPARAMS byName{&argument, &named, 1, 1};
    EXPECT_EQ(sheet.raw()->Invoke(2, IID_NULL, 0, DISPATCH_METHOD, &byName, nullptr, nullptr, nullptr),
              DISP_E_NONAMEDARGS);
}

TEST_F(Common, AScriptOfSeveralFaults) {
    server.faults().failCall(1, {RPC_E_CALL_REJECTED});
    server.faults().failCall(3, {E_FAIL, L"third"});
    server.faults().quitAtCall(4);
    EXPECT_EQ(sheet.attempt(L"Add", {1L}).result, RPC_E_CALL_REJECTED);
    EXPECT_EQ(sheet.attempt(L"Add", {1L}).result, S_OK);
    EXPECT_EQ(sheet.attempt(L"Add", {1L}).description, L"third");
    EXPECT_EQ(sheet.attempt(L"Add", {1L}).result, HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE));
    EXPECT_EQ(late::Object(Ref<IDispatch>(makeObject<Sheet>(server))).attempt(L"Add", {1L}).result, S_OK);
}

TEST_F(Common, TheLastReleaseIsTold) {
    int told = 0;
    server.onLastRelease([&] { ++told; });
    { const late::Object cells = sheet.object(L"Cells"); }
    EXPECT_EQ(told, 0);
    sheet = {};
    EXPECT_EQ(told, 1);
    EXPECT_EQ(server.liveObjects(), 0);
}

TEST_F(Common, StrangersAreNotTakenForOurOwn) {
    EXPECT_EQ(Object::from(sheet.raw()).Get(), sheet.raw());
    const Ref<IClassFactory> stranger = makeFactory(server, [&] { return makeObject<Sheet>(server); });
    EXPECT_EQ(Object::from(stranger.Get()).Get(), nullptr);
    EXPECT_EQ(Object::from(nullptr).Get(), nullptr);
}

TEST(MemberTables, RefuseDoubleNamesAndNumbers) {
    const Member one{.name = L"One", .id = 1};
    const Member sameName{.name = L"ONE", .id = 2};
    const Member sameNumber{.name = L"Two", .id = 1};
    EXPECT_THROW(MemberTable(L"T", {one, sameName}), std::logic_error);
    EXPECT_THROW(MemberTable(L"T", {one, sameNumber}), std::logic_error);
}

}  // namespace
}  // namespace standin
