#include "standin/common/Value.h"

#include "standin/common/Error.h"

namespace standin {
namespace {

// The language of the conversions is fixed, so that a test reads the same on every machine.
constexpr LCID kLocale = 0x409;

Value converted(const Value& value, VARTYPE type) {
    Value result;
    const HRESULT outcome =
        VariantChangeTypeEx(&result, const_cast<Value*>(&value), kLocale, VARIANT_ALPHABOOL, type);
    if (FAILED(outcome)) throw Error::plain(outcome);
    return result;
}

}  // namespace

Value toValue(std::wstring_view text) {
    VARIANT raw;
    VariantInit(&raw);
    raw.vt = VT_BSTR;
    raw.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!raw.bstrVal) throw std::bad_alloc();
    Value value;
    value.Attach(raw);
    return value;
}

Value toValue(Date date) {
    return Value(date.days, VT_DATE);
}

Value gridOf(std::size_t columns, std::vector<Value> cells) {
    const std::size_t rows = columns == 0 ? 0 : cells.size() / columns;
    SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(columns), 0}, {static_cast<ULONG>(rows), 0}};
    VARIANT raw;
    VariantInit(&raw);
    raw.parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
    if (!raw.parray) throw std::bad_alloc();
    raw.vt = VT_ARRAY | VT_VARIANT;
    Value grid;
    grid.Attach(raw);
    auto* target = static_cast<VARIANT*>(raw.parray->pvData);
    for (Value& cell : cells) *target++ = cell.Detach();
    return grid;
}

std::wstring toText(const Value& value) {
    if (value.vt != VT_BSTR) return toText(converted(value, VT_BSTR));
    return std::wstring(value.bstrVal ? value.bstrVal : L"", SysStringLen(value.bstrVal));
}

long toLong(const Value& value) {
    return value.vt == VT_I4 ? value.lVal : converted(value, VT_I4).lVal;
}

double toDouble(const Value& value) {
    return converted(value, VT_R8).dblVal;
}

bool toBool(const Value& value) {
    return converted(value, VT_BOOL).boolVal != VARIANT_FALSE;
}

Date toDate(const Value& value) {
    return {converted(value, VT_DATE).date};
}

Ref<IDispatch> toObject(const Value& value) {
    Ref<IDispatch> object;
    if (value.vt == VT_DISPATCH)
        object = value.pdispVal;
    else if (value.vt == VT_UNKNOWN && value.punkVal)
        value.punkVal->QueryInterface(IID_PPV_ARGS(&object));
    if (!object) throw Error::plain(DISP_E_TYPEMISMATCH);
    return object;
}

bool isMissing(const Value& value) {
    return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

}  // namespace standin
