#include "module/OwnModule.h"

/// The linker's name for the first byte of the module, which is what its handle points to.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace zelbar {

HMODULE moduleHandle() noexcept {
    return reinterpret_cast<HMODULE>(&__ImageBase);
}

std::wstring modulePath() {
    std::wstring path(MAX_PATH, L'\0');
    while (true) {
        const DWORD length = GetModuleFileNameW(moduleHandle(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) return path.substr(0, length);
        path.resize(path.size() * 2);
    }
}

}  // namespace zelbar
