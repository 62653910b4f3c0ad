#include "client/bundle/KeyedHash.h"

#include <windows.h>

#include <bcrypt.h>

#include <array>

#include "client/Failure.h"

namespace pimcall::bundle {
namespace {

constexpr ULONG kKeyBytes = 32;
constexpr ULONG kHashBytes = 32;

void require(NTSTATUS status) {
    if (status < 0) throw Failure(L"Windows' cryptography cannot be used; no bundle is written.");
}

PUCHAR bytesOf(const void* data) {
    return static_cast<PUCHAR>(const_cast<void*>(data));
}

BCRYPT_ALG_HANDLE openProvider() {
    BCRYPT_ALG_HANDLE provider = nullptr;
    require(BCryptOpenAlgorithmProvider(&provider, BCRYPT_SHA256_ALGORITHM, nullptr,
                                        BCRYPT_ALG_HANDLE_HMAC_FLAG));
    return provider;
}

std::array<UCHAR, kHashBytes> hashed(BCRYPT_ALG_HANDLE provider, const std::string& key,
                                     const std::wstring& text) {
    BCRYPT_HASH_HANDLE run = nullptr;
    std::array<UCHAR, kHashBytes> result{};
    require(BCryptCreateHash(provider, &run, nullptr, 0, bytesOf(key.data()), kKeyBytes, 0));
    NTSTATUS status =
        BCryptHashData(run, bytesOf(text.data()), static_cast<ULONG>(text.size() * sizeof(wchar_t)), 0);
    if (status >= 0) status = BCryptFinishHash(run, result.data(), kHashBytes, 0);
    BCryptDestroyHash(run);
    require(status);
    return result;
}

}  // namespace

void KeyedHash::CloseProvider::operator()(void* provider) const {
    BCryptCloseAlgorithmProvider(provider, 0);
}

KeyedHash::KeyedHash() : provider_(openProvider()), key_(kKeyBytes, '\0') {
    require(BCryptGenRandom(nullptr, bytesOf(key_.data()), kKeyBytes, BCRYPT_USE_SYSTEM_PREFERRED_RNG));
}

const std::wstring& KeyedHash::of(const std::wstring& text) {
    const auto [entry, isNew] = known_.try_emplace(text);
    if (!isNew) return entry->second;
    constexpr std::wstring_view kLetters = L"bcdfghjklmnpqrstvwxz";
    constexpr std::size_t kLength = 9;
    const auto hash = hashed(provider_.get(), key_, text);
    for (std::size_t i = 0; i < kLength; ++i)
        entry->second += kLetters[(hash[2 * i] * 256u + hash[2 * i + 1]) % kLetters.size()];
    return entry->second;
}

}  // namespace pimcall::bundle
