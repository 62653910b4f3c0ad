#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <set>

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
const std::set<std::string> kAnswersOfItsOwn{
    "DataConnector.PIMInstalled",
    "DataConnector.ExecuteCommand",
    "DataConnector.PIMName",
    "DataConnector.Actions",
    "DataConnector.OpenContactRecord",
    "DataConnector.GetContactByContactID",
    "ContactRecord.EOF",
    "ContactRecord.BOF",
    "ContactRecord.NoMatch",
    "ContactRecord.RecordCount",
    "ContactRecord.FillContactCollection",
    "ContactRecord.FindFirst",
    "ContactRecord.FindFirstForUnified",
    "ContactRecord.Contact",
    "Contact.FirstName",
    "Contact.LastName",
    "Contact.FullName",
    "Contact.ContactId",
    "Contact.StoreId",
    "Contact.MainPhoneNumber",
    "Contact.NotInPIM",
    "Contact.Emails",
    "Contact.PhoneNumbers",
    "Contact.MainEmail",
    "Contact.MainHomeNumber",
    "Contact.PhotoURL",
    "Contact.PersonalData",
    "PIMActions.Count",
    "PIMActions.Item",
    "PIMActions.NewAction",
    "PIMActions.NewEnum",
    "PIMAction.ActionName",
    "PIMAction.PassiveAction",
    "PIMAction.ActionID",
    "PIMAction.ActionProp",
    "CallAction.ActionName",
    "CallAction.PassiveAction",
    "CallAction.ActionID",
    "CallAction.ActionProp",
    "CallAction.CopyAction",
    "ActionProperties.Count",
    "ActionProperties.NewEnum",
    "ActionProperties.Item",
    "ActionProperty.Key",
    "ActionProperty.PropertyName",
    "ActionProperty.Values",
    "ActionProperty.Value",
    "ActionProperty.ValueIndex",
    "ActionProperty.PropertyType",
    "ValueCollection.Count",
    "ValueCollection.NewEnum",
    "ValueCollection.Item",
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

/// One argument of a declared type, odd in another way each round, with all that it refers to. Early-bound
/// callers pass `word` (or the variant itself), late-bound ones the variant.
struct OddArgument {
    VARIANT value{};
    LONG_PTR word = 0;
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
                word = reinterpret_cast<LONG_PTR>(text.get());
                break;
            case VT_VARIANT:
                value = round % 2 ? lent(text.get()) : round % 4 ? lent(number) : lent(object);
                break;
            case VT_USERDEFINED:
            case VT_DISPATCH:
                value = declared.isReference ? referenceTo(object) : lent(object);
                word = declared.isReference ? reinterpret_cast<LONG_PTR>(&object)
                                            : reinterpret_cast<LONG_PTR>(object);
                break;
            default:
                value = declared.isReference ? referenceTo(number) : lent(static_cast<short>(number));
                word = declared.isReference ? reinterpret_cast<LONG_PTR>(&number) : number;
        }
    }
    ~OddArgument() {
        if (object) object->Release();
    }
    OddArgument(const OddArgument&) = delete;
    OddArgument& operator=(const OddArgument&) = delete;
};

bool isNeutral(const VARIANT& value) {
    switch (value.vt) {
        case VT_EMPTY:
            return true;
        case VT_BSTR:
            return SysStringLen(value.bstrVal) == 0;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return !value.punkVal;
        case VT_I2:
        case VT_BOOL:
            return value.iVal == 0;
        case VT_I4:
            return value.lVal == 0;
        default:
            return false;
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

    /// Every member of every interface that any of the objects has, by slot or by name.
    template <class Visit>
    void forEachMember(Binding binding, Visit&& visit) {
        size_t members = 0;
        for (const IID* id :
             {&IID_Contact, &IID_ContactRecord, &IID_ValueCollection, &IID_PIMActions, &IID_CallAction,
              &IID_PIMAction, &IID_ActionProperties, &IID_ActionProperty, &IID_DataConnector}) {
            const InterfaceDescription description(typeInfoOf(*id));
            size_t found = 0;
            for (const auto& object : std::vector<Com<IUnknown>>(objects)) {
                Com<IDispatch> face;
                if (FAILED(object->QueryInterface(*id, reinterpret_cast<void**>(face.put())))) continue;
                if (binding == Binding::Late && describedBy(*face.get()) != description.id()) continue;
                ++found;
                for (const MemberDescription& member : description.members()) {
                    SCOPED_TRACE(description.name() + "." + member.text);
                    visit(*face.get(), description.name() + "." + member.name, member);
                    ++members;
                }
            }
            // By name, actions answer as `CallAction` only.
            EXPECT_TRUE(found > 0 || *id == IID_PIMAction) << description.name();
        }
        EXPECT_GT(members, 150u);
    }
    /// The interface whose members an object answers to by name.
    static IID describedBy(IDispatch& object) {
        Com<ITypeInfo> info;
        EXPECT_EQ(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()), S_OK);
        return InterfaceDescription(info).id();
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
HRESULT callSlot(IDispatch& face, const MemberDescription& member,
                 std::vector<std::unique_ptr<OddArgument>>& odd, void* result) {
    std::vector<VARIANT> storage;
    storage.reserve(odd.size() + 1);
    std::vector<VARTYPE> types;
    for (size_t i = 0; i < odd.size(); ++i) {
        // An early-bound caller's contact is one: the compiler saw to it.
        if (member.parameters[i].type == VT_USERDEFINED && !member.parameters[i].isReference)
            odd[i]->word = 0;
        const bool whole = member.parameters[i].type == VT_VARIANT;
        types.push_back(whole ? static_cast<VARTYPE>(VT_VARIANT) : static_cast<VARTYPE>(VT_I4));
        storage.push_back(whole ? odd[i]->value : lent(static_cast<long>(odd[i]->word)));
    }
    if (member.hasResult) {
        types.push_back(VT_I4);
        storage.push_back(lent(static_cast<long>(reinterpret_cast<LONG_PTR>(result))));
    }
    std::vector<VARIANTARG*> arguments;
    for (VARIANT& argument : storage) arguments.push_back(&argument);
    VARIANT answer{};
    EXPECT_EQ(DispCallFunc(&face, static_cast<ULONG_PTR>(member.slot) * sizeof(void*), CC_STDCALL, VT_I4,
                           static_cast<UINT>(arguments.size()), types.data(), arguments.data(), &answer),
              S_OK);
    return answer.lVal;
}

std::vector<std::unique_ptr<OddArgument>> oddArguments(const MemberDescription& member, int round,
                                                       IDispatch& foreign) {
    std::vector<std::unique_ptr<OddArgument>> result;
    for (const auto& parameter : member.parameters)
        result.push_back(std::make_unique<OddArgument>(parameter, round, foreign));
    return result;
}

TEST_F(BorderSweepTest, EarlyCallersGetOkAndTheNeutralValue) {
    forEachMember(
        Binding::Early, [&](IDispatch& face, const std::string& name, const MemberDescription& member) {
            for (int round = 0; round < kRounds; ++round) {
                auto odd = oddArguments(member, round, foreign);
                VARIANT result;
                std::memset(&result, 0xCC, sizeof result);
                void* const place =
                    member.result.type == VT_VARIANT ? static_cast<void*>(&result) : &result.byref;
                EXPECT_EQ(callSlot(face, member, odd, place), S_OK) << round;
                if (!member.hasResult) continue;
                if (member.result.type != VT_VARIANT)
                    result.vt = member.result.type == VT_USERDEFINED ? static_cast<VARTYPE>(VT_DISPATCH)
                                                                     : member.result.type;
                if (!kAnswersOfItsOwn.count(name)) {
                    EXPECT_TRUE(isNeutral(result)) << round << " type " << result.vt;
                }
                EXPECT_EQ(VariantClear(&result), S_OK) << "a whole value, whatever it is";
            }
            expectPrefixes(member);
        });
}

TEST_F(BorderSweepTest, AMissingPlaceForTheResultIsTheCallersMistake) {
    forEachMember(Binding::Early, [&](IDispatch& face, const std::string&, const MemberDescription& member) {
        if (!member.hasResult) return;
        auto odd = oddArguments(member, 0, foreign);
        EXPECT_EQ(callSlot(face, member, odd, nullptr), E_POINTER);
        for (size_t i = 0; i < odd.size(); ++i)
            if (member.parameters[i].isReference) {
                VARIANT result{};
                odd[i]->word = 0;
                EXPECT_EQ(callSlot(face, member, odd, &result.byref), E_POINTER);
            }
    });
}

TEST_F(BorderSweepTest, LateCallersGetTheSame) {
    forEachMember(
        Binding::Late, [&](IDispatch& face, const std::string& name, const MemberDescription& member) {
            const std::wstring wideName(member.name.begin(), member.name.end());
            const WORD kind = member.kind == INVOKE_PROPERTYPUT ? WORD{DISPATCH_PROPERTYPUT} : kRead;
            for (int round = 0; round < kRounds; ++round) {
                auto odd = oddArguments(member, round, foreign);
                std::vector<VARIANT> arguments;
                for (const auto& argument : odd) arguments.push_back(argument->value);
                const LateAnswer answer = late(face, wideName.c_str(), arguments, kind);
                const bool takesContact = !odd.empty() && member.parameters[0].type == VT_USERDEFINED &&
                                          !member.parameters[0].isReference && odd[0]->object;
                if (takesContact)
                    EXPECT_TRUE(FAILED(answer.result)) << "a foreign object is no contact";
                else
                    EXPECT_EQ(answer.result, S_OK) << round;
                if (!kAnswersOfItsOwn.count(name)) {
                    EXPECT_TRUE(isNeutral(answer.value.raw())) << round;
                }
            }
            expectPrefixes(member);
        });
}

TEST_F(BorderSweepTest, ArgumentsOfWrongTypesAreRefusedOrIgnored) {
    forEachMember(Binding::Late, [&](IDispatch& face, const std::string&, const MemberDescription& member) {
        const std::wstring wideName(member.name.begin(), member.name.end());
        const WORD kind = member.kind == INVOKE_PROPERTYPUT ? WORD{DISPATCH_PROPERTYPUT} : kRead;
        Bstr text{L"no number"};
        SAFEARRAY* const array = SafeArrayCreateVector(VT_I4, 0, 3);
        VARIANT wholeArray{};
        wholeArray.vt = VT_ARRAY | VT_I4;
        wholeArray.parray = array;
        IDispatch* none = nullptr;
        for (VARIANT wrong : {lent(VT_NULL), lent(VT_ERROR), lent(1e300), lent(text.get()), lent(&foreign),
                              lent(none), wholeArray, referenceTo(wholeArray)}) {
            const LateAnswer answer =
                late(face, wideName.c_str(), std::vector<VARIANT>(member.parameters.size(), wrong), kind);
            if (FAILED(answer.result)) {
                EXPECT_EQ(answer.value.type(), VT_EMPTY);
            }
        }
        SafeArrayDestroy(array);
    });
}

}  // namespace
}  // namespace zelbar
