#include "com/TypeLibrary.h"

#include <oleauto.h>

#include <cstring>
#include <map>

#include "module/OwnModule.h"

namespace zelbar {

namespace {

struct GuidOrder {
    bool operator()(const GUID& a, const GUID& b) const { return std::memcmp(&a, &b, sizeof a) < 0; }
};

/// Type descriptions do not change while the module is loaded, and reading one costs more than a call.
struct Descriptions {
    Com<ITypeLib> library;
    std::map<GUID, Com<ITypeInfo>, GuidOrder> byId;
};

Descriptions& descriptions() {
    // Never destroyed: at process end oleaut32 may be gone before this module's statics are.
    static auto* instance = new Descriptions;
    return *instance;
}

}  // namespace

Com<ITypeLib> embeddedTypeLibrary() {
    auto& known = descriptions();
    if (!known.library) LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, known.library.put());
    return known.library;
}

Com<ITypeInfo> typeInfoOf(const GUID& id) {
    auto& known = descriptions().byId;
    if (const auto found = known.find(id); found != known.end()) return found->second;
    Com<ITypeInfo> info;
    if (const auto library = embeddedTypeLibrary()) library->GetTypeInfoOfGuid(id, info.put());
    if (info) known[id] = info;
    return info;
}

}  // namespace zelbar
