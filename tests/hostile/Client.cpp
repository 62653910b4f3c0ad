#include <windows.h>

#include <oleauto.h>

#include <pthread.h>
#include <cstdio>

#include <deque>
#include <exception>
#include <functional>
#include <set>
#include <thread>

#include "automation/Bstr.h"
#include "tests/com/Description.h"
#include "tests/com/LateClient.h"
#include "tests/hostile/Foreign.h"
#include "tests/hostile/OddValue.h"
#include "tests/hostile/Proof.h"
#include "tests/hostile/World.h"

/// A client written against the type library alone, by somebody who means no good: calls every member of
/// every object of the registered driver, by slot and by name, with everything that an argument can be.
namespace hostile {
namespace {

using zelbar::Bstr;
using zelbar::late;
using zelbar::lent;
using zelbar::MemberDescription;

constexpr WORD kRead = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr DISPID kPut = DISPID_PROPERTYPUT;

/// What a caller's own mistake is answered with, by name. Anything else that is no success has crossed the
/// border.
bool isCallersError(HRESULT result) {
    static const std::set<HRESULT> kErrors{E_POINTER,          E_INVALIDARG,         DISP_E_TYPEMISMATCH,
                                           DISP_E_OVERFLOW,    DISP_E_BADPARAMCOUNT, DISP_E_MEMBERNOTFOUND,
                                           DISP_E_UNKNOWNNAME, DISP_E_PARAMNOTFOUND, DISP_E_PARAMNOTOPTIONAL,
                                           DISP_E_BADVARTYPE,  DISP_E_NONAMEDARGS,   DISP_E_NOTACOLLECTION,
                                           E_NOINTERFACE};
    return kErrors.count(result) != 0;
}

std::string hex(HRESULT result) {
    char text[16];
    std::snprintf(text, sizeof text, "%lx", result);
    return text;
}

/// One member of one object, and where it is called from.
struct Target {
    IDispatch* face;
    const MemberDescription& member;
    DISPID id;
    std::vector<std::wstring> names;  ///< The parameters'.
    WORD kind() const { return member.kind == INVOKE_PROPERTYPUT ? WORD{DISPATCH_PROPERTYPUT} : kRead; }
};

class Client {
  public:
    /// `isFar`: the objects live on another thread.
    Client(Proof& proof, std::vector<Com<IUnknown>> objects, std::vector<Com<IUnknown>> servers,
           std::wstring directory, bool isFar, size_t stride)
        : proof_(proof),
          objects_(std::move(objects)),
          servers_(std::move(servers)),
          directory_(std::move(directory)),
          isFar_(isFar),
          stride_(stride) {
        for (const bool isEarly : {false, true})
            for (const auto manner :
                 {Foreign::Manner::Fails, Foreign::Manner::Excepts, Foreign::Manner::Reenters,
                  Foreign::Manner::Lies, Foreign::Manner::IsNothing, Foreign::Manner::IsRubbish}) {
                // The platform itself believes the liars when it brings them to another thread.
                if (isFar && manner >= Foreign::Manner::Lies) break;
                auto& foreign = foreign_.emplace_back(manner, [this] { callBack(); });
                if (isEarly) foreign.implement(zelbar::describe(typeInfo(__uuidof(::Contact))));
                passed_.push_back(&foreign);
            }
        for (const auto& object : objects_) passed_.push_back(object.get());
        for (const auto& server : servers_) passed_.push_back(server.get());
    }

    void callAll() {
        for (const IID& id :
             {__uuidof(::Contact), __uuidof(::ContactRecord), __uuidof(::ValueCollection),
              __uuidof(::PIMActions), __uuidof(::CallAction), __uuidof(::PIMAction),
              __uuidof(::ActionProperties), __uuidof(::ActionProperty), __uuidof(::DataConnector)})
            callInterface(id);
        // What a client has put somewhere is held there, and be it the object itself.
        for (const auto& object : objects_)
            for (const wchar_t* place : {L"PersonalData", L"Value"})
                late(*object.as<IDispatch>().get(), place, {lent(VT_EMPTY)}, DISPATCH_PROPERTYPUT);
        objects_.clear();
        servers_.clear();
    }
    /// Afterwards, and when nobody is on the way any more.
    void expectNothingHeld() const {
        for (const auto& foreign : foreign_)
            proof_.expect(foreign.references == 1, &Tally::leaks,
                          "a foreign object has " + std::to_string(foreign.references) + " references");
    }

  private:
    static Com<ITypeInfo> typeInfo(const IID& id) {
        Com<ITypeLib> library;
        Com<ITypeInfo> result;
        if (FAILED(LoadRegTypeLib(LIBID_PIMDriverAbstract, 1, 0, 0, library.put())) ||
            FAILED(library->GetTypeInfoOfGuid(id, result.put())))
            throw std::runtime_error("no type library");
        return result;
    }

    void callInterface(const IID& id) {
        const auto info = typeInfo(id);
        const auto description = zelbar::describe(info);
        for (const auto& object : objects_) {
            Com<IDispatch> face;
            if (FAILED(object->QueryInterface(id, reinterpret_cast<void**>(face.put())))) continue;
            for (const MemberDescription& member : description.members) {
                const std::string name = description.name + "." + member.text;
                if (!proof_.wants(name)) continue;
                Target target{face.get(), member, 0, {}};
                const std::wstring wide(member.name.begin(), member.name.end());
                auto* asked = const_cast<wchar_t*>(wide.c_str());
                // By name, actions answer as `CallAction` only.
                const bool hasName = SUCCEEDED(face->GetIDsOfNames(IID_NULL, &asked, 1, 0, &target.id));
                BSTR found[16] = {};
                UINT count = 0;
                info->GetNames(target.id, found, 16, &count);
                for (UINT i = 0; i < count; ++i) {
                    if (i) target.names.push_back(found[i]);
                    SysFreeString(found[i]);
                }
                target.names.resize(member.parameters.size());
                callMember(target, name, hasName);
            }
        }
    }

    /// An argument that lets the member do its work.
    VARIANT good(const Target& target, size_t i, std::deque<Bstr>& texts) const {
        const auto& name = target.names[i];
        const auto text = [&](std::wstring_view value) { return lent(texts.emplace_back(value).get()); };
        if (name == L"SearchKind" || name == L"Index") return lent(1L);
        if (name == L"ActionID") return lent(4098L);
        if (name == L"DatabasePath") return text(directory_);
        if (name == L"FolderName") return text(L"Staff");
        if (name == L"CallContact" || name == L"Other")
            return lent(static_cast<IDispatch*>(objects_[2].as<::Contact>().get()));
        switch (target.member.parameters[i].type) {
            case VT_BSTR:
                return text(L"Byron*");
            case VT_VARIANT:
                return lent(VT_ERROR);
            default:
                return lent(short{1});
        }
    }

    void callMember(const Target& target, const std::string& name, bool hasName) {
        const size_t parameters = target.member.parameters.size();
        std::deque<Bstr> texts;
        std::vector<VARIANT> all;
        for (size_t i = 0; i < parameters; ++i) all.push_back(good(target, i, texts));
        if (hasName && next_++ % std::min<size_t>(stride_, 6) == 0) callInOddShapes(target, all, name);
        for (size_t i = 0; i < parameters; ++i)
            for (size_t which = next_++ % stride_; which < OddValue::count(passed_); which += stride_) {
                OddValue odd(which, passed_);
                if (isFar_ && !odd.isPortable()) continue;
                auto arguments = all;
                const std::string run = name + ", argument " + std::to_string(i) + " " + odd.name();
                if (hasName) {
                    arguments[i] = odd.value;
                    proof_.run(run + " by name");
                    byName(target, arguments);
                }
                OddValue again(which, passed_);
                if (again.isPlain() && passesBySlot(target.member.parameters[i], again.content)) {
                    arguments[i] = again.content;
                    proof_.run(run + " by slot");
                    bySlot(target, arguments);
                }
            }
        if (!parameters) {
            proof_.run(name + " by slot");
            bySlot(target, {});
        }
        serveMessages();
    }

    /// Too many arguments and too few, named ones that are there, twice or not, all kinds of call, nowhere to
    /// put the result.
    void callInOddShapes(const Target& target, std::vector<VARIANT> all, const std::string& name) {
        const auto shape = [&](const std::string& what, const std::vector<VARIANT>& arguments,
                               std::vector<DISPID> named, WORD kind, bool hasResult = true) {
            proof_.run(name + ", " + what);
            byName(target, arguments, std::move(named), kind, hasResult);
        };
        for (const int flags : {0, 1, 2, 3, 4, 8, 12, 0x7FFF, 0xFFFF}) {
            const auto kind = static_cast<WORD>(flags);
            shape("kind " + std::to_string(kind), all, {}, kind);
            shape("kind " + std::to_string(kind) + " as put", all, {kPut}, kind);
            shape("kind " + std::to_string(kind) + " without result", all, {}, kind, false);
        }
        for (size_t count : {0u, 1u, 2u, 5u, 70u}) {
            auto other = all;
            other.resize(count, lent(7L));
            shape(std::to_string(count) + " arguments", other, {}, target.kind());
            for (const DISPID first : {0L, 1L, 40L, 99L, -1L, -3L, -4L, 0x7FFFFFFFL, -0x7FFFFFFFL}) {
                shape("all named", other, std::vector<DISPID>(count, first), target.kind());
                shape("one named", other, {first}, target.kind());
            }
            std::vector<DISPID> reversed;
            for (size_t i = 0; i < count; ++i) reversed.push_back(static_cast<DISPID>(count - 1 - i));
            shape("named backwards", other, reversed, target.kind());
        }
    }

    bool passesBySlot(const zelbar::ParameterDescription& declared, const VARIANT& content) const {
        if (declared.type == VT_VARIANT) return true;
        if (declared.type == VT_USERDEFINED) {
            if (content.vt != VT_DISPATCH) return false;
            // An early-bound caller's contact is one: the compiler or the platform on the way saw to it.
            return !content.pdispVal || (declared.isReference && !isFar_) ||
                   Com<IDispatch>::share(content.pdispVal).as<::Contact>().get() == content.pdispVal;
        }
        return content.vt == declared.type || (declared.type == VT_BOOL && content.vt == VT_I2);
    }

    void byName(const Target& target, const std::vector<VARIANT>& arguments, std::vector<DISPID> named = {},
                std::optional<WORD> kind = {}, bool hasResult = true) {
        std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
        if (!kind && target.member.kind == INVOKE_PROPERTYPUT) named = {kPut};
        if (isFar_ && (named.size() > arguments.size() || !hasResult)) return;
        DISPPARAMS parameters{reversed.data(), named.data(), static_cast<UINT>(reversed.size()),
                              static_cast<UINT>(named.size())};
        VARIANT result{};
        const HRESULT answer =
            target.face->Invoke(target.id, IID_NULL, 0, kind.value_or(target.kind()), &parameters,
                                hasResult ? &result : nullptr, nullptr, nullptr);
        proof_.expect(answer == S_OK || isCallersError(answer), &Tally::escapes, "answers " + hex(answer));
        proof_.expect(answer == S_OK || result.vt == VT_EMPTY, &Tally::escapes,
                      "fails with a result of type " + std::to_string(result.vt));
        proof_.expect(VariantClear(&result) == S_OK, &Tally::escapes, "gives no variant");
    }

    /// With rubbish where the result goes, and then with nowhere to put it.
    void bySlot(const Target& target, std::vector<VARIANT> arguments) {
        std::vector<VARTYPE> types;
        std::deque<long> numbers;
        for (size_t i = 0; i < arguments.size(); ++i) {
            const auto& declared = target.member.parameters[i];
            if (declared.isReference)
                arguments[i] = lent(reinterpret_cast<long>(
                    declared.type == VT_USERDEFINED
                        ? &held_.emplace_back(share(arguments[i]))
                        : static_cast<void*>(&numbers.emplace_back(arguments[i].lVal))));
            types.push_back(static_cast<VARTYPE>(declared.type == VT_VARIANT ? VT_VARIANT : VT_I4));
        }
        VARIANT result;
        std::memset(&result, 0xCC, sizeof result);
        const VARTYPE type = target.member.result ? target.member.result->type : VARTYPE{VT_EMPTY};
        // A stub on another thread would take rubbish for something to be sent there.
        if (isFar_) result = {};
        const HRESULT answer = callSlot(target, arguments, types,
                                        type == VT_VARIANT ? static_cast<void*>(&result) : &result.byref);
        proof_.expect(answer == S_OK, &Tally::escapes, "answers " + hex(answer));
        if (type != VT_VARIANT) result.vt = type == VT_USERDEFINED ? VARTYPE{VT_DISPATCH} : type;
        proof_.expect(VariantClear(&result) == S_OK, &Tally::escapes, "gives no variant");
        if (!isFar_ && target.member.result)
            proof_.expect(callSlot(target, arguments, types, nullptr) == E_POINTER, &Tally::escapes,
                          "takes no place for a result");
        for (size_t i = 0; i < arguments.size() && !isFar_; ++i)
            if (target.member.parameters[i].isReference) {
                arguments[i] = lent(0L);
                proof_.expect(callSlot(target, arguments, types, &result.byref) == E_POINTER, &Tally::escapes,
                              "takes no place for an argument");
            }
        for (IDispatch* object : held_)
            if (object) object->Release();
        held_.clear();
    }
    static IDispatch* share(const VARIANT& object) { return Com<IDispatch>::share(object.pdispVal).detach(); }

    static HRESULT callSlot(const Target& target, std::vector<VARIANT>& arguments, std::vector<VARTYPE> types,
                            void* result) {
        std::vector<VARIANTARG*> places;
        for (VARIANT& argument : arguments) places.push_back(&argument);
        VARIANT place = lent(reinterpret_cast<long>(result));
        if (target.member.result) {
            types.push_back(VT_I4);
            places.push_back(&place);
        }
        VARIANT answer{};
        if (FAILED(DispCallFunc(target.face, static_cast<ULONG_PTR>(target.member.slot) * sizeof(void*),
                                CC_STDCALL, VT_I4, static_cast<UINT>(places.size()), types.data(),
                                places.data(), &answer)))
            throw std::runtime_error("a slot cannot be called");
        return answer.lVal;
    }

    /// What a foreign object does while it is called.
    void callBack() {
        constexpr const wchar_t* kCalls[] = {L"FindNext",      L"MoveLast", L"PhoneNumbers", L"ClosePIM",
                                             L"ActiveContact", L"Count",    L"Show",         L"CopyAction",
                                             L"NewEnum",       L"PhotoURL"};
        const auto object = objects_[next_++ % objects_.size()].as<IDispatch>();
        for (const wchar_t* call : kCalls) late(*object.get(), call);
    }

    Proof& proof_;
    std::vector<Com<IUnknown>> objects_;
    std::vector<Com<IUnknown>> servers_;
    std::wstring directory_;
    bool isFar_;
    size_t stride_;
    size_t next_ = 0;
    std::deque<Foreign> foreign_;
    std::vector<IUnknown*> passed_;
    std::deque<IDispatch*> held_;
};

/// Objects on their way to another thread.
class Parcel {
  public:
    explicit Parcel(const std::vector<Com<IUnknown>>& objects) {
        for (const auto& object : objects)
            if (FAILED(CoMarshalInterThreadInterfaceInStream(IID_IUnknown, object.get(),
                                                             streams_.emplace_back().put())))
                throw std::runtime_error("an object cannot be sent");
    }
    std::vector<Com<IUnknown>> open() {
        std::vector<Com<IUnknown>> objects;
        for (auto& stream : streams_)
            if (FAILED(CoGetInterfaceAndReleaseStream(
                    stream.detach(), IID_IUnknown, reinterpret_cast<void**>(objects.emplace_back().put()))))
                throw std::runtime_error("an object does not arrive");
        return objects;
    }

  private:
    std::vector<Com<IStream>> streams_;
};

/// Does something on a thread of the multi-threaded apartment, while this one serves its messages.
void onAnotherThread(const std::function<void()>& work) {
    std::exception_ptr failure;
    std::thread thread([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
        CoUninitialize();
    });
    HANDLE handle = pthread_gethandle(thread.native_handle());
    while (MsgWaitForMultipleObjects(1, &handle, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0)
        serveMessages();
    thread.join();
    if (failure) std::rethrow_exception(failure);
}

enum class From { ThisThread, AnotherThread };

/// The driver in a world of its own, led through everything by a client; nothing may be left of it.
void lead(Proof& proof, const std::string& scene, size_t stride, From from, bool serversRefuse = false) {
    proof.scene(scene);
    World world;
    const long rows = World::rows(world.cacheFile()), contacts = world.contacts();
    {
        auto objects = World::objectsOf(World::createDriver());
        std::vector<Com<IUnknown>> servers{World::createServer(L"Outlook.Application"),
                                           World::createServer(standin::dao::kEngineProgId)};
        if (serversRefuse)
            for (auto* server : {&world.outlook.server(), &world.dao.server()})
                server->faults().failAll({static_cast<HRESULT>(0x80010001)});
        std::optional<Client> client;
        const auto call = [&](std::vector<Com<IUnknown>> given, std::vector<Com<IUnknown>> more) {
            client.emplace(proof, std::move(given), std::move(more), world.directoryFile(),
                           from == From::AnotherThread, stride);
            client->callAll();
        };
        if (from == From::ThisThread) {
            call(std::move(objects), std::move(servers));
        } else {
            Parcel first(objects), second(servers);
            onAnotherThread([&] { call(first.open(), second.open()); });
        }
        client->expectNothingHeld();
    }
    for (auto* server : {&world.outlook.server(), &world.dao.server()}) server->faults().clear();
    proof.expect(World::canUnload(), &Tally::leaks, "the driver has objects left");
    proof.expectNoMore(0, world.outlook.server().liveObjects(), &Tally::leaks, "objects of Outlook");
    proof.expectNoMore(0, world.dao.server().liveObjects(), &Tally::leaks, "objects of DAO");
    proof.expect(World::rows(world.cacheFile()) == rows, &Tally::lost, "rows of the cache");
    proof.expectNoMore(world.contacts(), contacts, &Tally::lost, "contacts");
}

}  // namespace
}  // namespace hostile

int main(int count, char** arguments) {
    using namespace hostile;
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return EXIT_FAILURE;
    Proof proof(count, arguments);
    try {
        const size_t stride = proof.isShort() ? 101 : 1;
        lead(proof, "everything works", stride, From::ThisThread);
        lead(proof, "every server refuses", stride, From::ThisThread, true);
        lead(proof, "from another apartment", stride * 7, From::AnotherThread);
        // What is kept for later has been kept by now.
        if (proof.isShort()) return proof.finish();
        const long long bytes = heapBytes();
        lead(proof, "everything works, once more", 101, From::ThisThread);
        proof.expectNoMore(bytes + 100'000, heapBytes(), &Tally::leaks, "bytes on the heaps");
    } catch (const std::exception& failure) {
        proof.expect(false, &Tally::crashes, failure.what());
    }
    return proof.finish();
}
