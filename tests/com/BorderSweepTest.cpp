#include <array>
#include <cstring>
#include <deque>
#include <map>

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

/// What the driver answers from what it holds itself, Outlook or no Outlook. Everything else must be neutral
/// while every call out of the driver fails.
const std::map<std::string, std::string> kAnswersOfItsOwn{
    {"DataConnector",
     " PIMInstalled ExecuteCommand PIMName Actions OpenContactRecord GetContactByContactID "},
    {"ContactRecord",
     " EOF BOF NoMatch RecordCount FillContactCollection FindFirst FindFirstForUnified Contact "},
    {"Contact",
     " FirstName LastName FullName ContactId StoreId MainPhoneNumber NotInPIM Emails PhoneNumbers MainEmail "
     "MainHomeNumber PhotoURL PersonalData "},
    {"PIMActions", " Count Item NewAction NewEnum "},
    {"PIMAction", " ActionName PassiveAction ActionID ActionProp "},
    {"CallAction", " ActionName PassiveAction ActionID ActionProp CopyAction "},
    {"ActionProperties", " Count NewEnum Item "},
    {"ActionProperty", " Key PropertyName Values Value ValueIndex PropertyType "},
    {"ValueCollection", " Count NewEnum Item "},
};

/// Texts that nobody expects.
const std::array<std::wstring, 7>& oddTexts() {
    static const std::array<std::wstring, 7> texts{L"",
                                                   L"0",
                                                   std::wstring(40000, L'7'),
                                                   L"\"O'Brien\" | [#?*",
                                                   std::wstring(L"a\0b", 3),
                                                   L"\xD800 half",
                                                   L"isFolderConfigured"};
    return texts;
}

constexpr int kRounds = 9;

/// One argument of a declared type, odd in another way each round, with all that it refers to.
struct OddArgument {
    VARIANT value{};
    Bstr text;
    long number = 0;
    IDispatch* object = nullptr;  ///< Owned: who passes a variable owns what is in it.

    OddArgument(const ParameterDescription& declared, int round, IDispatch& foreign) {
        const auto index = static_cast<size_t>(round);
        if (index < oddTexts().size()) text = Bstr(oddTexts()[index]);
        constexpr long kNumbers[kRounds] = {0, 1, -1, 4097, 4101, 32767, -32768, 2147483647, 77};
        number = kNumbers[index];
        if (round % 3 == 1) object = Com<IDispatch>::share(&foreign).detach();
        switch (declared.type) {
            case VT_BSTR:
                value = lent(text.get());
                break;
            case VT_VARIANT:
                value = round % 2 ? lent(text.get()) : round % 4 ? lent(number) : lent(object);
                break;
            case VT_USERDEFINED:
                value = declared.isReference ? referenceTo(object) : lent(object);
                break;
            case VT_I4:
                value = declared.isReference ? referenceTo(number) : lent(number);
                break;
            default:
                value = lent(static_cast<short>(number));
        }
    }
    ~OddArgument() {
        if (object) object->Release();
    }
    OddArgument(const OddArgument&) = delete;
    OddArgument& operator=(const OddArgument&) = delete;
};

/// All arguments of one call.
struct OddCall {
    std::deque<OddArgument> owners;
    std::vector<VARIANT> arguments;

    OddCall(const MemberDescription& member, int round, IDispatch& foreign) {
        for (const auto& parameter : member.parameters)
            arguments.push_back(owners.emplace_back(parameter, round, foreign).value);
    }
};

bool isNeutral(const VARIANT& value) {
    switch (value.vt) {
        case VT_EMPTY:
            return true;
        case VT_BSTR:
            return SysStringLen(value.bstrVal) == 0;
        case VT_I2:
        case VT_BOOL:
            return value.iVal == 0;
        default:
            return (value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN || value.vt == VT_I4) && !value.lVal;
    }
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
        objects = {contact, findFirst(*openCursor().get(), 0, L"unknown"), search, openCursor(), phones,
                   actions};
        for (long id = 4097; id <= 4101; ++id) addAction(*actions.get(), id);
        objects.push_back(Com<::DataConnector>::share(&connector()));
        for (standin::Server* server : {&outlook.server(), &dao.server()})
            server->faults().failAll({static_cast<HRESULT>(0x80010001)});
        driver().user.messageWindow = &window;
        trapped.clear();
        moduleState().traceTrapped = [](const wchar_t* prefix, const Fault&) noexcept {
            std::string text;
            for (; *prefix; ++prefix) text += static_cast<char>(*prefix);
            trapped.push_back(text);
        };
    }
    void addAction(::PIMActions& actions, long id) {
        Com<IDispatch> item;
        ASSERT_EQ(actions.Item(id, item.put()), S_OK);
        const auto action = item.as<::CallAction>();
        Com<::ActionProperties> settings;
        ASSERT_EQ(action->get_ActionProp(settings.put()), S_OK);
        long count = 0;
        ASSERT_EQ(settings->get_Count(&count), S_OK);
        for (long i = 1; i <= count; ++i) {
            Com<::ActionProperty> setting;
            ASSERT_EQ(settings->Item(lent(i), setting.put()), S_OK);
            objects.push_back(setting);
        }
        objects.push_back(item);
        objects.push_back(item.as<::PIMAction>());
        objects.push_back(settings);
    }
    void TearDown() override {
        objects.clear();
        DriverTest::TearDown();
        EXPECT_EQ(foreign.references, 1);
    }

    enum class Binding { Early, Late };

    /// Calls `visit(face, member, has an answer of its own)` for every member of every interface that any of
    /// the objects has, by slot or by name.
    template <class Visit>
    void forEachMember(Binding binding, Visit&& visit) {
        size_t members = 0;
        for (const IID* id :
             {&IID_Contact, &IID_ContactRecord, &IID_ValueCollection, &IID_PIMActions, &IID_CallAction,
              &IID_PIMAction, &IID_ActionProperties, &IID_ActionProperty, &IID_DataConnector}) {
            const InterfaceDescription description = describe(typeInfoOf(*id));
            const std::string& own = kAnswersOfItsOwn.at(description.name);
            size_t found = 0;
            for (const auto& object : std::vector<Com<IUnknown>>(objects)) {
                Com<IDispatch> face;
                if (FAILED(object->QueryInterface(*id, reinterpret_cast<void**>(face.put())))) continue;
                if (binding == Binding::Late && idByName(*face.get()) != *id) continue;
                ++found;
                for (const MemberDescription& member : description.members) {
                    SCOPED_TRACE(description.name + "." + member.text);
                    visit(*face.get(), member, own.find(" " + member.name + " ") != std::string::npos);
                    ++members;
                }
            }
            // By name, actions answer as `CallAction` only.
            EXPECT_TRUE(found > 0 || *id == IID_PIMAction) << description.name;
        }
        EXPECT_GT(members, 150u);
    }
    /// The interface whose members an object answers to by name.
    static IID idByName(IDispatch& object) {
        Com<ITypeInfo> info;
        EXPECT_EQ(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()), S_OK);
        return describe(info).id;
    }
    /// What was trapped on the way is reported under the name of the member that was called.
    static void expectPrefixes(const MemberDescription& member) {
        for (const std::string& prefix : trapped)
            if (member.name != "FillContactCollection" && member.name != "MoveLast") {
                EXPECT_NE(prefix.find(member.name), std::string::npos) << prefix;
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

LateAnswer callName(IDispatch& face, const MemberDescription& member, std::vector<VARIANT> arguments) {
    const std::wstring name(member.name.begin(), member.name.end());
    const WORD kind = member.kind == INVOKE_PROPERTYPUT ? WORD{DISPATCH_PROPERTYPUT} : kRead;
    return late(face, name.c_str(), std::move(arguments), kind);
}

TEST_F(BorderSweepTest, EarlyCallersGetOkAndTheNeutralValue) {
    forEachMember(Binding::Early, [&](IDispatch& face, const MemberDescription& member, bool answersItself) {
        for (int round = 0; round < kRounds; ++round) {
            const OddCall odd(member, round, foreign);
            VARIANT result;
            std::memset(&result, 0xCC, sizeof result);
            const VARTYPE type = member.result ? member.result->type : VARTYPE{VT_EMPTY};
            void* const place = type == VT_VARIANT ? static_cast<void*>(&result) : &result.byref;
            EXPECT_EQ(callSlot(face, member, odd.arguments, place), S_OK) << round;
            if (!member.result) continue;
            if (type != VT_VARIANT) result.vt = type == VT_USERDEFINED ? VARTYPE{VT_DISPATCH} : type;
            EXPECT_TRUE(answersItself || isNeutral(result)) << round << " type " << result.vt;
            EXPECT_EQ(VariantClear(&result), S_OK) << "a whole value, whatever it is";
        }
        expectPrefixes(member);
    });
}

TEST_F(BorderSweepTest, AMissingPlaceForTheResultIsTheCallersMistake) {
    forEachMember(Binding::Early, [&](IDispatch& face, const MemberDescription& member, bool) {
        if (!member.result) return;
        OddCall odd(member, 0, foreign);
        EXPECT_EQ(callSlot(face, member, odd.arguments, nullptr), E_POINTER);
        for (size_t i = 0; i < odd.arguments.size(); ++i)
            if (member.parameters[i].isReference) {
                VARIANT result{};
                odd.arguments[i].byref = nullptr;
                EXPECT_EQ(callSlot(face, member, odd.arguments, &result.byref), E_POINTER);
            }
    });
}

TEST_F(BorderSweepTest, LateCallersGetTheSame) {
    forEachMember(Binding::Late, [&](IDispatch& face, const MemberDescription& member, bool answersItself) {
        for (int round = 0; round < kRounds; ++round) {
            const OddCall odd(member, round, foreign);
            const LateAnswer answer = callName(face, member, odd.arguments);
            const bool takesContact = !member.parameters.empty() &&
                                      member.parameters[0].type == VT_USERDEFINED &&
                                      !member.parameters[0].isReference && odd.owners[0].object;
            if (takesContact)
                EXPECT_TRUE(FAILED(answer.result)) << "a foreign object is no contact";
            else
                EXPECT_EQ(answer.result, S_OK) << round;
            EXPECT_TRUE(answersItself || isNeutral(answer.value.raw())) << round;
        }
        expectPrefixes(member);
    });
}

TEST_F(BorderSweepTest, ArgumentsOfWrongTypesAreRefusedOrIgnored) {
    Bstr text{L"no number"};
    IDispatch* none = nullptr;
    VARIANT array = lent(VT_ARRAY);
    array.vt |= VT_I4;
    array.parray = SafeArrayCreateVector(VT_I4, 0, 3);
    forEachMember(Binding::Late, [&](IDispatch& face, const MemberDescription& member, bool) {
        for (VARIANT wrong : {lent(VT_NULL), lent(VT_ERROR), lent(1e300), lent(text.get()), lent(&foreign),
                              lent(none), array, referenceTo(array)}) {
            const LateAnswer answer =
                callName(face, member, std::vector<VARIANT>(member.parameters.size(), wrong));
            EXPECT_TRUE(SUCCEEDED(answer.result) || answer.value.type() == VT_EMPTY);
        }
    });
    SafeArrayDestroy(array.parray);
}

}  // namespace
}  // namespace zelbar
