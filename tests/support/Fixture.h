#pragma once

#include <gtest/gtest.h>

#include "support/Module.h"
#include "tests/harness/Files.h"
#include "tests/harness/RegistrySandbox.h"

namespace zelbar {

inline constexpr wchar_t kPopup[] = L"Software\\Norvane\\7316\\Popup";
inline constexpr wchar_t kClient[] = L"Software\\Norvane\\7316\\VEXPhone";
inline constexpr wchar_t kClientSettings[] = L"Software\\Norvane\\7316\\VEXPhone\\Settings";
inline constexpr wchar_t kInstall[] = L"Software\\Norvane\\7316\\Install";

/// Empty settings, a user whose folders are empty, and a driver that lies in a folder of its own.
class SupportTest : public testing::Test {
  protected:
    SupportTest() {
        registry.useProfile(folder);
        module.folder = folder.path();
        module.stem = L"zelbar00";
    }

    harness::TemporaryFolder folder;
    harness::RegistrySandbox registry;
    Module module = thisModule();
};

}  // namespace zelbar
