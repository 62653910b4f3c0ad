// Compiled into every DLL of ours. The compiler's start-up code registers a module's unwinding tables with
// the shared libgcc_s_dw2-1.dll whenever some other module has brought that into the process, although the
// module itself throws with the library that was linked into it and that then knows no tables: its first
// exception would end the client. Here the module's own library gets the tables in any case, before any
// other code of the module runs, and gives them back after all of it.

#include <windows.h>

#include <cstdlib>
#include <cstring>

extern "C" {
/// The linker's name for the module's first byte. All of it lies behind that, so it is an array of no known
/// size.
extern const char __ImageBase[];
void __register_frame_info(const void* tables, void* record);
void* __deregister_frame_info(const void* tables);
}

namespace {

/// The library's own record of one set of tables: six words today, with room for what a later one adds.
void* record[16];

const void* tables = nullptr;

/// Section names have eight characters, which cuts ".eh_frame".
const void* findTables() noexcept {
    const LONG offset = reinterpret_cast<const IMAGE_DOS_HEADER*>(__ImageBase)->e_lfanew;
    auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(__ImageBase + offset);
    auto* section = reinterpret_cast<const IMAGE_SECTION_HEADER*>(headers + 1);
    for (WORD i = 0; i < headers->FileHeader.NumberOfSections; ++i, ++section)
        if (std::memcmp(section->Name, ".eh_fram", sizeof(section->Name)) == 0)
            return __ImageBase + section->VirtualAddress;
    return nullptr;
}

void takeBack() {
    __deregister_frame_info(tables);
}

/// The earliest of a program's own initialisations; what it has called at exit first is called last.
__attribute__((constructor(101))) void registerTables() {
    tables = findTables();
    if (!tables) return;
    __register_frame_info(tables, record);
    static_cast<void>(std::atexit(takeBack));
}

}  // namespace
