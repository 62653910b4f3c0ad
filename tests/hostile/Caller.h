#pragma once

#include <PIMDriverAbstract.h>

#include <deque>

#include "automation/Bstr.h"
#include "tests/com/Description.h"
#include "tests/hostile/Foreign.h"
#include "tests/hostile/Proof.h"

namespace hostile {

using zelbar::Com;
using Objects = std::vector<Com<IUnknown>>;

/// What a caller calls, and what else it has to pass.
struct Called {
    Objects objects, servers;
    std::wstring directory;
    /// These live on another thread.
    bool isFar;
    /// Of all arguments one in so many is tried.
    size_t stride;
};

/// A client written against the type library alone, by somebody who means no good: calls every member of
/// every object that it has, by slot and by name, with everything that an argument can be.
class Caller {
  public:
    Caller(Proof& proof, Called called);

    /// Calls all, and holds nothing afterwards.
    void callAll();
    /// When nobody is on the way any more either.
    void expectNothingHeld() const;

  private:
    /// One member of one object.
    struct Target {
        IDispatch* face;
        const zelbar::MemberDescription& member;
        DISPID id = 0;
        WORD kind() const;
    };

    void callInterface(const IID& id);
    void callMember(const Target& target, const std::string& name, bool hasName);
    void callInOddShapes(const Target& target, const std::vector<VARIANT>& all, const std::string& name);
    VARIANT good(const zelbar::MemberDescription& member, size_t i, std::deque<zelbar::Bstr>& texts) const;
    bool passesBySlot(const zelbar::ParameterDescription& declared, const VARIANT& content) const;
    void byName(const Target& target, const std::vector<VARIANT>& arguments, std::vector<DISPID> named,
                WORD kind, bool hasResult = true);
    void bySlot(const Target& target, std::vector<VARIANT> arguments);
    void callBack();

    Proof& proof_;
    Called called_;
    size_t next_ = 0;
    std::deque<Foreign> foreign_;
    std::vector<IUnknown*> passed_;
};

}  // namespace hostile
