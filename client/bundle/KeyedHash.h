#pragma once

#include <map>
#include <memory>
#include <string>

namespace pimcall::bundle {

/// Stands for texts by short ones that do not tell what they stand for: an HMAC-SHA-256 under a random key,
/// which nobody keeps. One object gives one text the same stand-in each time; two objects give different
/// ones.
class KeyedHash {
  public:
    /// Throws `Failure` when Windows gives no random key.
    KeyedHash();

    /// Nine consonants: no word and no number can come out by chance.
    const std::wstring& of(const std::wstring& text);

  private:
    struct CloseProvider {
        void operator()(void* provider) const;
    };

    std::unique_ptr<void, CloseProvider> provider_;  // Windows' algorithm
    std::string key_;
    std::map<std::wstring, std::wstring> known_;
};

}  // namespace pimcall::bundle
