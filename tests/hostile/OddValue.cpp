#include "tests/hostile/OddValue.h"

#include <oleauto.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>

namespace hostile {

namespace {

enum Way : size_t {
    // As it is; by reference to it, to nothing.
    kPlain,
    kReference,
    kNowhere,
    // By reference to a variant: the content's own, one that refers to it, to that one, to nothing, to
    // itself.
    kVariant,
    kVariantThatRefers,
    kVariantInVariant,
    kVariantNowhere,
    kEndless,
    // In an array of its type, or of variants; by reference to the former.
    kArray,
    kVariantArray,
    kArrayReference,
    kWays
};

template <class T>
VARIANT made(int type, T content) {
    VARIANT result{};
    result.vt = static_cast<VARTYPE>(type);
    std::memcpy(&result.llVal, &content, sizeof content);
    return result;
}

/// What makes a content that its holder owns.
using Makers = std::vector<std::function<VARIANT()>>;

/// Numbers at their ends, nothing of every type, types that no variant has.
void addNumbers(Makers& all) {
    const auto add = [&](int type, auto content) {
        all.push_back([number = made(type, content)] { return number; });
    };
    add(VT_ERROR, DISP_E_PARAMNOTFOUND);
    add(VT_ERROR, E_FAIL);
    add(VT_BOOL, short{1});
    add(VT_I1, 'x');
    add(VT_R4, 2.5f);
    add(VT_CY, ~0ull >> 1);
    add(VT_I8, ~0ull >> 1);
    add(VT_UI8, ~0ull);
    add(VT_UI4, ~0u);
    for (const double number : {1e300, -1e9, -HUGE_VAL, std::numeric_limits<double>::quiet_NaN()})
        for (const int type : {VT_R8, VT_DATE}) add(type, number);
    for (const long number :
         {0L, 1L, 2L, -1L, 77L, 4097L, 4098L, 4099L, 4100L, 4101L, 32768L, 2147483647L, -2147483647L - 1})
        add(VT_I4, number);
    for (const int number : {0, 1, -1, 32767}) add(VT_I2, static_cast<short>(number));
    VARIANT decimal{};
    std::memset(&decimal, 0xFF, sizeof decimal);
    decimal.vt = VT_DECIMAL;
    decimal.decVal.scale = 28;
    decimal.decVal.sign = DECIMAL_NEG;
    all.push_back([decimal] { return decimal; });
    for (int type = 0; type <= VT_CLSID; ++type)
        if (type != VT_VARIANT) add(type, 0ull);
    for (const int type : {VT_ARRAY | VT_BSTR, VT_ARRAY | VT_VARIANT, int{VT_ARRAY}, VT_VECTOR | VT_I4,
                           0x0FFF, int{VT_RESERVED}, 0x7FFF})
        add(type, 0ull);
}

void addTexts(Makers& all) {
    const auto add = [&](const std::wstring& text) {
        all.push_back(
            [text] { return made(VT_BSTR, SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))); });
    };
    add(std::wstring(40'000, L'7'));
    add(std::wstring(40'000, L'\x4E2D'));
    add(std::wstring(L"a\0b", 3));
    // Half surrogates, a control for the direction of writing, letters that Turkish writes otherwise.
    for (const wchar_t* text : {L"", L"1", L"Byron*", L"-3", L"1e400", L"contacts", L"isFolderConfigured",
                                L"\"O'Brien\" | [#?*", L"\xD800 half", L"\xDC00\xD800", L"\x202E\x0130\x0131",
                                L"START=;DURATION=99:99:99;TYPE=;=;;", L"\\\\?\\nul", L"%s%n{0}"})
        add(text);
    all.push_back([] { return made(VT_BSTR, SysAllocStringByteLen("odd", 3)); });
}

void addArrays(Makers& all) {
    static SAFEARRAYBOUND bounds[] = {{2, -5}, {3, 7}};
    const auto add = [&](VARTYPE type, auto make) {
        all.push_back([type, make] { return made(VT_ARRAY | type, make(type)); });
    };
    const auto three = [](VARTYPE type) { return SafeArrayCreateVector(type, 0, 3); };
    add(VT_BSTR, three);
    add(VT_DISPATCH, three);
    add(VT_BSTR, [](VARTYPE type) { return SafeArrayCreate(type, 2, bounds); });
    add(VT_VARIANT, [](VARTYPE type) { return SafeArrayCreate(type, 1, bounds); });
    add(VT_I4, [](VARTYPE type) { return SafeArrayCreateVector(type, 0, 0); });
    add(VT_BSTR, [](VARTYPE type) {
        SAFEARRAY* withoutRoom = nullptr;
        SafeArrayAllocDescriptorEx(type, 1, &withoutRoom);
        return withoutRoom;
    });
}

const Makers& makers() {
    static const Makers kAll = [] {
        Makers all;
        addNumbers(all);
        addTexts(all);
        addArrays(all);
        return all;
    }();
    return kAll;
}

VARIANT makeContent(size_t which, const std::vector<IUnknown*>& objects) {
    if (which < makers().size()) return makers()[which]();
    which -= makers().size();
    IUnknown* const object = objects[which / 2];
    object->AddRef();
    return made(which % 2 ? VT_UNKNOWN : VT_DISPATCH, object);
}

/// Whether the platform knows how to copy and clear such a content.
bool isKnown(VARTYPE type) {
    const int plain = type & ~VT_ARRAY;
    return (plain <= VT_UINT && plain != 15) && (!(type & VT_ARRAY) || plain > VT_NULL);
}

VARIANT referenceTo(VARIANT& content) {
    void* const place = content.vt == VT_DECIMAL ? static_cast<void*>(&content) : &content.llVal;
    return made(VT_BYREF | content.vt, place);
}

}  // namespace

size_t OddValue::count(const std::vector<IUnknown*>& objects) {
    return (makers().size() + 2 * objects.size()) * kWays;
}

OddValue::OddValue(size_t which, const std::vector<IUnknown*>& objects)
    : content(makeContent(which / kWays, objects)), way_(which % kWays) {
    const bool fitsInArray = isKnown(content.vt) && content.vt > VT_NULL && !(content.vt & VT_ARRAY);
    if (way_ >= kArray && !fitsInArray) way_ = kPlain;
    const auto variantAt = [](VARIANT& place) { return made(VT_BYREF | VT_VARIANT, &place); };
    const VARIANT nowhere = made(VT_BYREF | content.vt, static_cast<void*>(nullptr));
    value = content;
    if (way_ == kReference) value = referenceTo(content);
    if (way_ == kNowhere) value = nowhere;
    if (way_ == kVariant) value = variantAt(content);
    if (way_ == kVariantThatRefers) inner_ = referenceTo(content);
    if (way_ == kVariantInVariant) inner_ = variantAt(content);
    if (way_ == kVariantNowhere) inner_ = nowhere;
    if (way_ == kEndless) inner_ = variantAt(inner_);
    if (way_ >= kVariantThatRefers && way_ <= kEndless) value = variantAt(inner_);
    if (way_ >= kArray) putIntoArray();
}

void OddValue::putIntoArray() {
    const VARTYPE type = way_ == kVariantArray ? VARTYPE{VT_VARIANT} : content.vt;
    array_ = SafeArrayCreateVector(type, 0, 3);
    LONG first = 0;
    const bool isHeld = type == VT_BSTR || type == VT_DISPATCH || type == VT_UNKNOWN;
    void* const element = type == VT_VARIANT   ? static_cast<void*>(&content)
                          : type == VT_DECIMAL ? static_cast<void*>(&content.decVal)
                          : isHeld             ? content.byref
                                               : static_cast<void*>(&content.llVal);
    if (element) SafeArrayPutElement(array_, &first, element);
    value =
        way_ == kArrayReference ? made(VT_BYREF | VT_ARRAY | type, &array_) : made(VT_ARRAY | type, array_);
}

OddValue::~OddValue() {
    if (array_) SafeArrayDestroy(array_);
    if (isKnown(content.vt)) VariantClear(&content);
}

bool OddValue::isPortable() const {
    const bool isObject = (content.vt & ~VT_ARRAY) == VT_DISPATCH || content.vt == VT_UNKNOWN;
    // Arrays of objects lose references on their way.
    const bool isArrayOfObjects = isObject && (way_ >= kArray || (content.vt & VT_ARRAY));
    const bool leadsNowhere = way_ == kNowhere || way_ == kVariantNowhere || way_ == kVariantInVariant ||
                              way_ == kEndless ||
                              ((content.vt & VT_ARRAY) && (!content.parray || !content.parray->pvData));
    return isKnown(content.vt) && !isArrayOfObjects && !leadsNowhere &&
           (content.vt != VT_ERROR || content.scode == DISP_E_PARAMNOTFOUND);
}

std::string OddValue::name() const {
    return "type " + std::to_string(content.vt) + " in way " + std::to_string(way_);
}

}  // namespace hostile
