#pragma once

#include <string>

#include "tests/harness/TemporaryFolder.h"

namespace harness {

/// The product as its users have it: real processes, the real settings, an Outlook of its own with this
/// address book (vCards), and a cache that the filler has made. At its end Outlook and the settings go.
class Product {
  public:
    explicit Product(const std::string& addressBook);
    ~Product();
    Product(const Product&) = delete;
    Product& operator=(const Product&) = delete;

    static void quitOutlook();
    /// A setting, by its key below the product's; empty: none.
    static void set(const wchar_t* key, const wchar_t* name, const std::wstring& value);

    TemporaryFolder folder;
};

/// A card of an address book; the telephones are lines of it.
std::string card(const std::string& name, const std::string& telephones);

}  // namespace harness
