#include "tests/hostile/OddValue.h"

#include <oleauto.h>

#include <cmath>
#include <cstring>
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

const std::vector<std::wstring>& texts() {
    static const std::vector<std::wstring> kTexts = [] {
        // Half surrogates, a control for the direction of writing, letters that Turkish writes otherwise.
        std::vector<std::wstring> all{std::wstring(40'000, L'7'), std::wstring(40'000, L'\x4E2D'),
                                      std::wstring(L"a\0b", 3)};
        for (const wchar_t* text :
             {L"", L"1", L"Byron*", L"-3", L"1e400", L"contacts", L"isFolderConfigured",
              L"\"O'Brien\" | [#?*", L"\xD800 half", L"\xDC00\xD800", L"\x202E\x0130\x0131",
              L"START=;DURATION=99:99:99;TYPE=;=;;", L"\\\\?\\nul", L"%s%n{0}"})
            all.push_back(text);
        return all;
    }();
    return kTexts;
}

/// Contents that own nothing: numbers at their ends, nothing of every type, types that no variant has.
const std::vector<VARIANT>& numbers() {
    static const std::vector<VARIANT> kNumbers = [] {
        std::vector<VARIANT> all{made(VT_ERROR, DISP_E_PARAMNOTFOUND),
                                 made(VT_ERROR, E_FAIL),
                                 made(VT_BOOL, short{1}),
                                 made(VT_I1, 'x'),
                                 made(VT_R4, 2.5f),
                                 made(VT_CY, ~0ull >> 1),
                                 made(VT_I8, ~0ull >> 1),
                                 made(VT_UI8, ~0ull),
                                 made(VT_UI4, ~0u)};
        for (const double number : {1e300, -1e9, -HUGE_VAL, std::numeric_limits<double>::quiet_NaN()})
            for (const int type : {VT_R8, VT_DATE}) all.push_back(made(type, number));
        for (const long number :
             {0L, 1L, 2L, -1L, 77L, 4097L, 4098L, 4099L, 4100L, 4101L, 32768L, 2147483647L, -2147483647L - 1})
            all.push_back(made(VT_I4, number));
        for (const int number : {0, 1, -1, 32767}) all.push_back(made(VT_I2, static_cast<short>(number)));
        VARIANT decimal{};
        std::memset(&decimal, 0xFF, sizeof decimal);
        decimal.vt = VT_DECIMAL;
        decimal.decVal.scale = 28;
        decimal.decVal.sign = DECIMAL_NEG;
        all.push_back(decimal);
        for (int type = 0; type <= VT_CLSID; ++type)
            if (type != VT_VARIANT) all.push_back(made(type, 0ull));
        for (const int type : {VT_ARRAY | VT_BSTR, VT_ARRAY | VT_VARIANT, int{VT_ARRAY}, VT_VECTOR | VT_I4,
                               0x0FFF, int{VT_RESERVED}, 0x7FFF})
            all.push_back(made(type, 0ull));
        return all;
    }();
    return kNumbers;
}

constexpr size_t kOddArrays = 6;
VARIANT oddArray(size_t which) {
    SAFEARRAYBOUND bounds[] = {{2, -5}, {3, 7}};
    SAFEARRAY* empty = nullptr;
    SafeArrayAllocDescriptorEx(VT_BSTR, 1, &empty);
    const VARIANT all[kOddArrays] = {
        made(VT_ARRAY | VT_BSTR, SafeArrayCreateVector(VT_BSTR, 0, 3)),
        made(VT_ARRAY | VT_DISPATCH, SafeArrayCreateVector(VT_DISPATCH, 0, 3)),
        made(VT_ARRAY | VT_BSTR, SafeArrayCreate(VT_BSTR, 2, bounds)),
        made(VT_ARRAY | VT_VARIANT, SafeArrayCreate(VT_VARIANT, 1, bounds)),
        made(VT_ARRAY | VT_I4, SafeArrayCreateVector(VT_I4, 0, 0)),
        made(VT_ARRAY | VT_BSTR, empty),
    };
    for (size_t i = 0; i < kOddArrays; ++i)
        if (i != which) SafeArrayDestroy(all[i].parray);
    return all[which];
}

size_t contents(const std::vector<IUnknown*>& objects) {
    return numbers().size() + texts().size() + 1 + kOddArrays + 2 * objects.size();
}

VARIANT makeContent(size_t which, const std::vector<IUnknown*>& objects) {
    if (which < numbers().size()) return numbers()[which];
    which -= numbers().size();
    if (which < texts().size()) {
        const auto& text = texts()[which];
        return made(VT_BSTR, SysAllocStringLen(text.data(), static_cast<UINT>(text.size())));
    }
    which -= texts().size();
    if (which == 0) return made(VT_BSTR, SysAllocStringByteLen("odd", 3));
    if (--which < kOddArrays) return oddArray(which);
    which -= kOddArrays;
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
    return contents(objects) * kWays;
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
    const char* const kNames[kWays] = {"plain",
                                       "reference",
                                       "nowhere",
                                       "variant",
                                       "variant that refers",
                                       "variant in variant",
                                       "variant nowhere",
                                       "endless",
                                       "array",
                                       "variant array",
                                       "array reference"};
    return std::string(kNames[way_]) + " of type " + std::to_string(content.vt);
}

}  // namespace hostile
