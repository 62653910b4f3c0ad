#include <cstring>
#include <deque>

#include "automation/Bstr.h"
#include "com/Collection.h"
#include "com/ModuleState.h"
#include "core/DriverState.h"
#include "tests/automation/StrictObject.h"
#include "tests/com/Description.h"
#include "tests/com/LateClient.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {
namespace {

constexpr int kRounds = 9;
/// In these rounds a variant is a reference that leads nowhere.
constexpr int kFirstNowhere = 3, kLastNowhere = 7;

/// One argument of a declared type, odd in another way each round, with all that it refers to.
struct OddArgument {
    VARIANT value{}, inner{};
    Bstr text;
    long number = 0;
    IDispatch* object = nullptr;  ///< Owned: who passes a variable owns what is in it.
    SAFEARRAY* noArray = nullptr;

    OddArgument(const ParameterDescription& declared, int round, IDispatch& foreign) {
        const std::wstring kTexts[kRounds] = {
            L"",          L"0",           std::wstring(40000, L'7'), L"\"O'Brien\" | [#?*",
            {L"a\0b", 3}, L"\xD800 half", L"isFolderConfigured"};
        constexpr long kNumbers[kRounds] = {0, 1, -1, 4097, 4101, 32767, -32768, 2147483647, 77};
        if (!kTexts[round].empty()) text = Bstr(kTexts[round]);
        number = kNumbers[round];
        if (round % 3 == 1) object = Com<IDispatch>::share(&foreign).detach();
        inner = round == 5 ? nowhere<BSTR>() : referenceTo(inner);
        const VARIANT kVariants[kRounds] = {lent(text.get()),      lent(number),       lent(object),
                                            nowhere<long>(),       nowhere<VARIANT>(), referenceTo(inner),
                                            nowhere<SAFEARRAY*>(), referenceTo(inner), referenceTo(noArray)};
        if (declared.type == VT_BSTR)
            value = lent(text.get());
        else if (declared.type == VT_VARIANT)
            value = kVariants[round];
        else if (declared.type == VT_USERDEFINED)
            value = declared.isReference ? referenceTo(object) : lent(object);
        else if (declared.type == VT_I4)
            value = declared.isReference ? referenceTo(number) : lent(number);
        else
            value = lent(static_cast<short>(number));
    }
    ~OddArgument() {
        if (object) object->Release();
    }
    OddArgument(const OddArgument&) = delete;
    OddArgument& operator=(const OddArgument&) = delete;
};

bool isNeutral(const VARIANT& value) {
    if (value.vt == VT_BSTR) return SysStringLen(value.bstrVal) == 0;
    return value.vt == VT_EMPTY || (value.vt == VT_I2 || value.vt == VT_BOOL ? value.iVal == 0 : !value.lVal);
}

struct SilentWindow final : MessageWindow {
    bool isOpen() const noexcept override { return false; }
    void ShowMessage(const std::wstring&, int, const std::wstring&) override {}
    void Show() override {}
};

std::vector<std::string> trapped;

/// The driver with a contact found and a search open, and then an Outlook and a DAO that refuse every call.
struct BorderSweepTest : DriverTest {
    StrictObject foreign{{}};
    SilentWindow window;
    std::vector<Com<IUnknown>> objects;

    void SetUp() override {
        writeCache({addListed(L"Ada", L"Byron", L"+44 20 1"), addListed(L"Ben", L"Byron", L"+44 20 2")});
        const auto search = openCursor();
        const auto contact = findFirst(*search.get(), 1, L"Byron*");
        ASSERT_FALSE(notInPim(contact.get()));
        Com<::PIMActions> actions;
        ASSERT_EQ(connector().get_Actions(actions.put()), S_OK);
        Com<IDispatch> phones;
        ASSERT_EQ(contact->get_PhoneNumbers(phones.put()), S_OK);
        objects = {contact,
                   search,
                   phones,
                   actions,
                   findFirst(*openCursor().get(), 0, L"unknown"),
                   Com<::DataConnector>::share(&connector())};
        for (long id = 4097; id <= 4101; ++id) {
            const auto action = late(*actions.get(), L"Item", {lent(id)}).value.object();
            const auto settings = late(*action.get(), L"ActionProp").value.object();
            const long count = late(*settings.get(), L"Count").value.integer();
            for (long i = 1; i <= count; ++i)
                objects.push_back(late(*settings.get(), L"Item", {lent(i)}).value.object());
            objects.insert(objects.end(), {action, action.as<::PIMAction>(), settings});
        }
        for (standin::Server* server : {&outlook.server(), &dao.server()})
            server->faults().failAll({static_cast<HRESULT>(0x80010001)});
        driver().user.messageWindow = &window;
        trapped.clear();
        moduleState().traceTrapped = [](const wchar_t* prefix, const Fault&) noexcept {
            trapped.emplace_back(prefix, prefix + std::wcslen(prefix));
        };
    }
    void TearDown() override {
        objects.clear();
        DriverTest::TearDown();
        EXPECT_EQ(foreign.references, 1);
    }

    /// Calls `visit(face, member, odd arguments, round)` for every member of every interface that any of the
    /// objects has, by slot or by name.
    template <class Visit>
    void forEachMember(bool byName, Visit&& visit) {
        size_t members = 0;
        for (const IID* id :
             {&IID_Contact, &IID_ContactRecord, &IID_ValueCollection, &IID_PIMActions, &IID_CallAction,
              &IID_PIMAction, &IID_ActionProperties, &IID_ActionProperty, &IID_DataConnector}) {
            const InterfaceDescription description = describe(typeInfoOf(*id));
            for (const auto& object : std::vector<Com<IUnknown>>(objects)) {
                Com<IDispatch> face;
                Com<ITypeInfo> info;
                if (FAILED(object->QueryInterface(*id, reinterpret_cast<void**>(face.put())))) continue;
                ASSERT_EQ(face->GetTypeInfo(0, 0, info.put()), S_OK);
                // By name, actions answer as `CallAction` only.
                if (byName && describe(info).id != *id) continue;
                for (const MemberDescription& member : description.members)
                    for (int round = 0; round < kRounds; ++round, ++members) {
                        SCOPED_TRACE(description.name + "." + member.text + " " + std::to_string(round));
                        std::deque<OddArgument> owners;
                        std::vector<VARIANT> arguments;
                        for (const auto& parameter : member.parameters)
                            arguments.push_back(owners.emplace_back(parameter, round, foreign).value);
                        visit(*face.get(), member, arguments, round);
                    }
            }
        }
        EXPECT_GT(members, 1500u);
    }
    /// What was trapped is reported under the name of the member that was called, which answers neutrally.
    static void expectNeutralWhenTrapped(const MemberDescription& member, const VARIANT& answer) {
        for (const std::string& prefix : trapped)
            if (member.name != "FillContactCollection" && member.name != "MoveLast") {
                EXPECT_NE(prefix.find(member.name), std::string::npos) << prefix;
                EXPECT_TRUE(isNeutral(answer)) << "type " << answer.vt;
            }
        trapped.clear();
    }
};

/// A call through the slot. `result` is where the member puts its result; it holds rubbish before.
HRESULT callSlot(IDispatch& face, const MemberDescription& member, std::vector<VARIANT> arguments,
                 void* result) {
    std::vector<VARTYPE> types;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const ParameterDescription& declared = member.parameters[i];
        // An early-bound caller's contact is one: the compiler saw to it.
        if (declared.type == VT_USERDEFINED && !declared.isReference) arguments[i].pdispVal = nullptr;
        types.push_back(static_cast<VARTYPE>(declared.type == VT_VARIANT ? VT_VARIANT : VT_I4));
    }
    if (member.result) {
        types.push_back(VT_I4);
        arguments.push_back(lent(reinterpret_cast<long>(result)));
    }
    std::vector<VARIANTARG*> places;
    for (VARIANT& argument : arguments) places.push_back(&argument);
    VARIANT answer{};
    EXPECT_EQ(DispCallFunc(&face, static_cast<ULONG_PTR>(member.slot) * sizeof(void*), CC_STDCALL, VT_I4,
                           static_cast<UINT>(places.size()), types.data(), places.data(), &answer),
              S_OK);
    return answer.lVal;
}

TEST_F(BorderSweepTest, EarlyCallersGetOkAndAWholeValue) {
    const auto visit = [](IDispatch& face, const MemberDescription& member, std::vector<VARIANT> arguments,
                          int) {
        VARIANT result;
        std::memset(&result, 0xCC, sizeof result);
        const VARTYPE type = member.result ? member.result->type : VARTYPE{VT_EMPTY};
        void* const place = type == VT_VARIANT ? static_cast<void*>(&result) : &result.byref;
        EXPECT_EQ(callSlot(face, member, arguments, place), S_OK);
        if (type != VT_VARIANT) result.vt = type == VT_USERDEFINED ? VARTYPE{VT_DISPATCH} : type;
        expectNeutralWhenTrapped(member, result);
        EXPECT_EQ(VariantClear(&result), S_OK);
        if (!member.result) return;
        EXPECT_EQ(callSlot(face, member, arguments, nullptr), E_POINTER);
        for (size_t i = 0; i < arguments.size(); ++i)
            if (member.parameters[i].isReference) {
                arguments[i].byref = nullptr;
                EXPECT_EQ(callSlot(face, member, arguments, place), E_POINTER);
            }
    };
    forEachMember(false, visit);
}

TEST_F(BorderSweepTest, LateCallersGetTheSame) {
    const auto visit = [this](IDispatch& face, const MemberDescription& member,
                              const std::vector<VARIANT>& arguments, int round) {
        const std::wstring name(member.name.begin(), member.name.end());
        const WORD kind = member.kind == INVOKE_PROPERTYPUT ? WORD{DISPATCH_PROPERTYPUT} : kRead;
        const LateAnswer answer = late(face, name.c_str(), arguments, kind);
        bool isForeign = false, isNowhere = false;
        for (size_t i = 0; i < arguments.size(); ++i) {
            const ParameterDescription& declared = member.parameters[i];
            isForeign |= declared.type == VT_USERDEFINED && !declared.isReference && arguments[i].pdispVal;
            isNowhere |= declared.type == VT_VARIANT && round >= kFirstNowhere && round <= kLastNowhere;
        }
        if (isForeign)
            EXPECT_TRUE(FAILED(answer.result)) << "a foreign object is no contact";
        else
            EXPECT_EQ(answer.result, isNowhere ? E_POINTER : S_OK);
        expectNeutralWhenTrapped(member, answer.value.raw());
        for (VARIANT wrong :
             {lent(VT_NULL), lent(VT_ERROR), lent(1e300), lent(static_cast<IDispatch*>(&foreign))}) {
            const auto refused =
                late(face, name.c_str(), std::vector<VARIANT>(arguments.size(), wrong), kind);
            EXPECT_TRUE(SUCCEEDED(refused.result) || refused.value.type() == VT_EMPTY);
        }
        trapped.clear();
    };
    forEachMember(true, visit);
}

}  // namespace
}  // namespace zelbar
