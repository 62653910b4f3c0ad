#include "com/ModuleState.h"

namespace zelbar {

ModuleState& moduleState() {
    static ModuleState instance;
    return instance;
}

HMODULE moduleHandle() {
    HMODULE handle = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&moduleHandle), &handle);
    return handle;
}

}  // namespace zelbar
