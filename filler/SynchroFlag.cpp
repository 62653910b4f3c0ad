#include "filler/SynchroFlag.h"

#include "automation/Attempts.h"
#include "filler/Failure.h"
#include "support/Registry.h"

namespace filler {
namespace {

constexpr wchar_t kKey[] = L"Software\\Norvane\\7316\\Popup";
constexpr wchar_t kValue[] = L"SynchroInProgress";

}  // namespace

void SynchroFlag::raise() {
    if (!zelbar::RegWriteString(HKEY_CURRENT_USER, kKey, kValue, L"1"))
        throw Failure{L"The registry does not take the sign that the cache is being written."};
}

SynchroFlag::~SynchroFlag() {
    zelbar::Attempts()([] {
        if (zelbar::RegReadString(HKEY_CURRENT_USER, kKey, kValue) == L"1")
            zelbar::RegWriteString(HKEY_CURRENT_USER, kKey, kValue, L"0");
    });
}

}  // namespace filler
