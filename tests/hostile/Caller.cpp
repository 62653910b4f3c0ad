#include "tests/hostile/Caller.h"

#include <oleauto.h>

#include <cstring>
#include <set>

#include "tests/com/LateClient.h"
#include "tests/dialogs/Windows.h"
#include "tests/hostile/OddValue.h"

namespace hostile {

namespace {

using zelbar::Bstr;
using zelbar::late;
using zelbar::lent;

/// What a caller's own mistake is answered with, by name. Anything else that is no success has crossed the
/// border.
bool isCallersError(HRESULT result) {
    static const std::set<HRESULT> kErrors{E_POINTER,          E_INVALIDARG,         DISP_E_TYPEMISMATCH,
                                           DISP_E_OVERFLOW,    DISP_E_BADPARAMCOUNT, DISP_E_MEMBERNOTFOUND,
                                           DISP_E_UNKNOWNNAME, DISP_E_PARAMNOTFOUND, DISP_E_PARAMNOTOPTIONAL,
                                           DISP_E_BADVARTYPE,  DISP_E_NONAMEDARGS,   DISP_E_NOTACOLLECTION,
                                           E_NOINTERFACE};
    return kErrors.contains(result);
}

Com<ITypeInfo> typeInfo(const IID& id) {
    Com<ITypeLib> library;
    Com<ITypeInfo> result;
    if (FAILED(LoadRegTypeLib(LIBID_PIMDriverAbstract, 1, 0, 0, library.put())) ||
        FAILED(library->GetTypeInfoOfGuid(id, result.put())))
        throw std::runtime_error("no type library");
    return result;
}

HRESULT callSlot(IDispatch& object, const zelbar::MemberDescription& member, std::vector<VARIANT> arguments,
                 std::vector<VARTYPE> types, void* result) {
    if (member.result) {
        types.push_back(VT_I4);
        arguments.push_back(lent(reinterpret_cast<long>(result)));
    }
    std::vector<VARIANTARG*> places;
    for (VARIANT& argument : arguments) places.push_back(&argument);
    VARIANT answer{};
    if (FAILED(DispCallFunc(&object, static_cast<ULONG_PTR>(member.slot) * sizeof(void*), CC_STDCALL, VT_I4,
                            static_cast<UINT>(places.size()), types.data(), places.data(), &answer)))
        throw std::runtime_error("a slot cannot be called");
    return answer.lVal;
}

}  // namespace

WORD Caller::Target::kind() const {
    return member.kind == INVOKE_PROPERTYPUT ? WORD{DISPATCH_PROPERTYPUT} : zelbar::kRead;
}

Caller::Caller(Proof& proof, Called called) : proof_(proof), called_(std::move(called)) {
    for (const bool isEarly : {false, true})
        for (const auto manner : Foreign::kManners) {
            // The platform itself believes the liars when it brings them to another thread.
            if (called_.isFar && manner >= Foreign::Manner::Lies) break;
            auto& foreign = foreign_.emplace_back(manner, [this] { callBack(); });
            if (isEarly) foreign.implement(zelbar::describe(typeInfo(__uuidof(::Contact))));
            passed_.push_back(&foreign);
        }
    for (const auto& object : called_.objects) passed_.push_back(object.get());
    for (const auto& server : called_.servers) passed_.push_back(server.get());
}

void Caller::callAll() {
    for (const IID& id :
         {__uuidof(::Contact), __uuidof(::ContactRecord), __uuidof(::ValueCollection), __uuidof(::PIMActions),
          __uuidof(::CallAction), __uuidof(::PIMAction), __uuidof(::ActionProperties),
          __uuidof(::ActionProperty), __uuidof(::DataConnector)})
        callInterface(id);
    // What a client has put somewhere is held there, and be it the object itself.
    for (const auto& object : called_.objects)
        for (const wchar_t* place : {L"PersonalData", L"Value"})
            late(*object.as<IDispatch>().get(), place, {lent(VT_EMPTY)}, DISPATCH_PROPERTYPUT);
    called_.objects.clear();
    called_.servers.clear();
}

void Caller::expectNothingHeld() const {
    for (const auto& foreign : foreign_)
        proof_.expect(foreign.references == 1, &Tally::leaks,
                      "a foreign object has " + std::to_string(foreign.references) + " references");
}

void Caller::callInterface(const IID& id) {
    const auto description = zelbar::describe(typeInfo(id));
    for (const auto& object : called_.objects) {
        const auto face = object.as<IDispatch>(id);
        if (!face) continue;
        for (const auto& member : description.members) {
            const std::string name = description.name + "." + member.text;
            if (!proof_.wantsRun(name)) continue;
            Target target{face.get(), member};
            const std::wstring wide(member.name.begin(), member.name.end());
            auto* asked = const_cast<wchar_t*>(wide.c_str());
            // By name, actions answer as `CallAction` only.
            const bool hasName = SUCCEEDED(face->GetIDsOfNames(IID_NULL, &asked, 1, 0, &target.id));
            callMember(target, name, hasName);
        }
    }
}

/// An argument that lets the member do its work.
VARIANT Caller::good(const zelbar::MemberDescription& member, size_t i, std::deque<Bstr>& texts) const {
    const auto text = [&](std::wstring_view value) { return lent(texts.emplace_back(value).get()); };
    const auto& [type, isReference, ignored] = member.parameters[i];
    if (member.name.ends_with("ExportFolder") && i < 2) return text(i == 0 ? called_.directory : L"Staff");
    if (type == VT_USERDEFINED)
        return lent(static_cast<IDispatch*>(called_.objects[2].as<::Contact>().get()));
    // An action's identity; a kind of search, or a place in a list.
    if (type == VT_I4 && !isReference) return lent(4098L);
    if (type == VT_I4 || member.name == "Item") return lent(1L);
    return type == VT_BSTR ? text(L"Byron*") : type == VT_VARIANT ? lent(VT_ERROR) : lent(short{1});
}

void Caller::callMember(const Target& target, const std::string& name, bool hasName) {
    const size_t parameters = target.member.parameters.size();
    std::deque<Bstr> texts;
    std::vector<VARIANT> all;
    for (size_t i = 0; i < parameters; ++i) all.push_back(good(target.member, i, texts));
    if (hasName && next_++ % std::min<size_t>(called_.stride, 6) == 0) callInOddShapes(target, all, name);
    for (size_t i = 0; i < parameters; ++i)
        for (size_t which = next_++ % called_.stride; which < OddValue::count(passed_);
             which += called_.stride) {
            OddValue odd(which, passed_);
            if (called_.isFar && !odd.isPortable()) continue;
            auto arguments = all;
            const std::string run = name + ", argument " + std::to_string(i) + " " + odd.name();
            if (hasName) {
                arguments[i] = odd.value;
                proof_.run(run + " by name");
                const bool isPut = target.member.kind == INVOKE_PROPERTYPUT;
                byName(target, arguments, std::vector<DISPID>(isPut, DISPID_PROPERTYPUT), target.kind());
            }
            OddValue again(which, passed_);
            if (again.isPlain() && passesBySlot(target.member.parameters[i], again.content)) {
                arguments[i] = again.content;
                proof_.run(run + " by slot");
                bySlot(target, arguments);
            }
        }
    if (parameters == 0) {
        proof_.run(name + " by slot");
        bySlot(target, {});
    }
    zelbar::serveMessages();
}

/// Too many arguments and too few, named ones that are there, twice or not, all kinds of call, nowhere to put
/// the result.
void Caller::callInOddShapes(const Target& target, const std::vector<VARIANT>& all, const std::string& name) {
    const auto shape = [&](const std::string& what, const std::vector<VARIANT>& arguments,
                           std::vector<DISPID> named, WORD kind, bool hasResult = true) {
        proof_.run(name + ", " + what);
        byName(target, arguments, std::move(named), kind, hasResult);
    };
    for (const WORD kind : std::initializer_list<WORD>{0, 1, 2, 3, 4, 8, 12, 0x7FFF, 0xFFFF}) {
        shape("kind " + std::to_string(kind), all, {}, kind);
        shape("kind " + std::to_string(kind) + " as put", all, {DISPID_PROPERTYPUT}, kind);
        shape("kind " + std::to_string(kind) + " without result", all, {}, kind, false);
    }
    for (const size_t count : {0u, 1u, 2u, 5u, 70u}) {
        auto other = all;
        other.resize(count, lent(7L));
        shape(std::to_string(count) + " arguments", other, {}, target.kind());
        for (const DISPID first : {0L, 1L, 40L, 99L, -1L, -3L, -4L, 0x7FFFFFFFL, -0x7FFFFFFFL}) {
            shape("all named", other, std::vector<DISPID>(count, first), target.kind());
            shape("one named", other, {first}, target.kind());
        }
        std::vector<DISPID> backwards;
        for (size_t i = count; i-- > 0;) backwards.push_back(static_cast<DISPID>(i));
        shape("named backwards", other, backwards, target.kind());
    }
}

bool Caller::passesBySlot(const zelbar::ParameterDescription& declared, const VARIANT& content) const {
    if (declared.type == VT_VARIANT) return true;
    if (declared.type != VT_USERDEFINED)
        return content.vt == declared.type || (declared.type == VT_BOOL && content.vt == VT_I2);
    if (content.vt != VT_DISPATCH) return false;
    // An early-bound caller's contact is one: the compiler or the platform on the way saw to it.
    return !content.pdispVal || (declared.isReference && !called_.isFar) ||
           Com<IDispatch>::share(content.pdispVal).as<::Contact>().get() == content.pdispVal;
}

void Caller::byName(const Target& target, const std::vector<VARIANT>& arguments, std::vector<DISPID> named,
                    WORD kind, bool hasResult) {
    if (called_.isFar && (named.size() > arguments.size() || !hasResult)) return;
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPPARAMS parameters{reversed.data(), named.data(), static_cast<UINT>(reversed.size()),
                          static_cast<UINT>(named.size())};
    VARIANT result{};
    const HRESULT answer = target.face->Invoke(target.id, IID_NULL, 0, kind, &parameters,
                                               hasResult ? &result : nullptr, nullptr, nullptr);
    proof_.expect(answer == S_OK || isCallersError(answer), &Tally::escapes,
                  "answers " + std::to_string(answer));
    proof_.expect(answer == S_OK || result.vt == VT_EMPTY, &Tally::escapes,
                  "fails with a result of type " + std::to_string(result.vt));
    proof_.expect(VariantClear(&result) == S_OK, &Tally::escapes, "gives no variant");
}

/// With rubbish where the result goes, and then with nowhere to put it.
void Caller::bySlot(const Target& target, std::vector<VARIANT> arguments) {
    const auto& member = target.member;
    std::vector<VARTYPE> types;
    std::deque<Com<IDispatch>> held;
    std::deque<long> numbers;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const auto& declared = member.parameters[i];
        if (declared.isReference)
            arguments[i] = lent(reinterpret_cast<long>(
                declared.type == VT_USERDEFINED
                    ? static_cast<void*>(&held.emplace_back(Com<IDispatch>::share(arguments[i].pdispVal)))
                    : &numbers.emplace_back(arguments[i].lVal)));
        types.push_back(static_cast<VARTYPE>(declared.type == VT_VARIANT ? VT_VARIANT : VT_I4));
    }
    VARIANT result;
    std::memset(&result, 0xCC, sizeof result);
    const VARTYPE type = member.result ? member.result->type : VARTYPE{VT_EMPTY};
    // A stub on another thread would take rubbish for something to be sent there.
    if (called_.isFar) result = {};
    const auto call = [&](void* place) { return callSlot(*target.face, member, arguments, types, place); };
    const HRESULT answer = call(type == VT_VARIANT ? static_cast<void*>(&result) : &result.byref);
    proof_.expect(answer == S_OK, &Tally::escapes, "answers " + std::to_string(answer));
    if (type != VT_VARIANT) result.vt = type == VT_USERDEFINED ? VARTYPE{VT_DISPATCH} : type;
    proof_.expect(VariantClear(&result) == S_OK, &Tally::escapes, "gives no variant");
    if (called_.isFar) return;
    if (member.result)
        proof_.expect(call(nullptr) == E_POINTER, &Tally::escapes, "takes no place for a result");
    for (size_t i = 0; i < arguments.size(); ++i)
        if (member.parameters[i].isReference) {
            arguments[i] = lent(0L);
            proof_.expect(call(&result.byref) == E_POINTER, &Tally::escapes,
                          "takes no place for an argument");
        }
}

/// What a foreign object does while it is called.
void Caller::callBack() {
    const auto object = called_.objects[next_++ % called_.objects.size()].as<IDispatch>();
    for (const wchar_t* call : {L"FindNext", L"MoveLast", L"PhoneNumbers", L"ClosePIM", L"ActiveContact",
                                L"Count", L"Show", L"CopyAction", L"NewEnum", L"PhotoURL"})
        late(*object.get(), call);
}

}  // namespace hostile
