#pragma once

#include <windows.h>

#include <PIMDriverAbstract.h>

#include <string>
#include <vector>

namespace pimcall {

/// A number or an e-mail address with the label that the driver gives it.
struct LabelledValue {
    std::wstring label;
    std::wstring value;
};

/// Everything that the driver tells about a contact, read once.
struct ContactCard {
    bool inPim = false;
    std::wstring fullName;
    std::wstring firstName;
    std::wstring lastName;
    std::wstring company;
    std::wstring department;
    std::wstring mainNumber;
    std::wstring mainHomeNumber;
    std::wstring mainEmail;
    /// Path of the picture's file.
    std::wstring photo;
    std::vector<LabelledValue> numbers;
    std::vector<LabelledValue> emails;
    std::wstring contactId;
    std::wstring storeId;
    std::wstring employeeId;
    std::wstring categoryId;
    std::wstring assistantId;
};

/// Throws `Failure` when the driver fails in one of the members.
ContactCard readCard(Contact& contact);

/// Takes an entry such as "Mobile:", a blank, a tab and "+33 6 12" apart. Without a tab it is all value.
LabelledValue splitEntry(const std::wstring& entry);

}  // namespace pimcall
