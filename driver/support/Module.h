#pragma once

#include <windows.h>

#include <string>

namespace zelbar {

/// Where this code lies and what its version information says. In the product that is the driver's DLL,
/// in a test the test program: both carry the same version resource.
struct Module {
    HMODULE handle = nullptr;
    std::wstring folder;   ///< Without trailing "\".
    std::wstring stem;     ///< File name without folder and extension: "zelbar00".
    std::wstring company;  ///< Company of the version information; part of the registry paths.
    std::wstring title;    ///< Application title: names the driver in windows, error lines and settings.
};

/// The module that contains this function.
Module thisModule();

}  // namespace zelbar
