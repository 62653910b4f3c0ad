#include "client/ContactText.h"

#include <algorithm>

#include "client/Text.h"

namespace pimcall {
namespace {

constexpr size_t kHeadingWidth = 14;

std::wstring padded(std::wstring text, size_t width) {
    if (text.size() < width) text.resize(width, L' ');
    return text;
}

/// Writes the indented lines; what is empty gets none.
class Lines {
  public:
    void add(const std::wstring& heading, const std::wstring& value) {
        if (!value.empty()) text_ += L"  " + padded(heading, kHeadingWidth) + oneLine(value) + L'\n';
    }

    /// The heading stands on the first line only, the labels in a column of their own.
    void add(std::wstring heading, const std::vector<LabelledValue>& list) {
        size_t width = 0;
        for (const LabelledValue& entry : list) width = std::max(width, entry.label.size());
        for (const LabelledValue& entry : list) {
            const std::wstring label = width == 0 ? L"" : padded(entry.label, width) + L"  ";
            add(heading, label + entry.value);
            heading.clear();
        }
    }

    const std::wstring& text() const { return text_; }

  private:
    std::wstring text_;
};

std::vector<LabelledValue> withoutLabels(std::vector<LabelledValue> list) {
    for (LabelledValue& entry : list) entry.label.clear();
    return list;
}

/// An unknown caller has no list of numbers, only the one that was searched.
std::vector<LabelledValue> numbersOf(const ContactCard& card) {
    if (!card.numbers.empty() || card.mainNumber.empty()) return card.numbers;
    return {{L"", card.mainNumber}};
}

}  // namespace

std::wstring displayName(const ContactCard& card) {
    if (!card.fullName.empty()) return oneLine(card.fullName);
    const std::wstring gap = card.firstName.empty() || card.lastName.empty() ? L"" : L" ";
    const std::wstring name = card.firstName + gap + card.lastName;
    if (!name.empty()) return oneLine(name);
    return card.mainNumber.empty() ? L"(no name)" : oneLine(card.mainNumber);
}

std::wstring contactText(const ContactCard& card, bool verbose) {
    Lines lines;
    lines.add(L"Company", card.company);
    lines.add(L"Department", card.department);
    lines.add(L"Telephone", numbersOf(card));
    // Every address has the same label: the word that already stands in front.
    lines.add(L"E-mail", withoutLabels(card.emails));
    lines.add(L"Photo", card.photo);
    lines.add(L"In Outlook", card.inPim ? L"yes" : L"no");
    if (verbose) {
        lines.add(L"Contact id", card.contactId);
        lines.add(L"Store id", card.storeId);
        lines.add(L"Employee id", card.employeeId);
        lines.add(L"Category id", card.categoryId);
        lines.add(L"Assistant id", card.assistantId);
    }
    return displayName(card) + L'\n' + lines.text();
}

}  // namespace pimcall
