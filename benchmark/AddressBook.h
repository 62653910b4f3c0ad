#pragma once

#include <string>

#include "benchmark/World.h"

namespace benchmark {

/// Outlook in a process of its own, version 16, with an address book of so many contacts in a folder that is
/// the chosen one while this lives. Their numbers are national ones of Munich in several spellings.
class AddressBook {
  public:
    explicit AddressBook(long count);
    ~AddressBook();
    AddressBook(const AddressBook&) = delete;
    AddressBook& operator=(const AddressBook&) = delete;

    const Object& application() const { return application_; }

    /// A number as the n-th contact has it; a company's book when it has some from `abroad`, every third.
    static std::wstring number(long n, bool abroad = false);

  private:
    zelbar::Gateway gateway_;
    Object application_;
};

}  // namespace benchmark
