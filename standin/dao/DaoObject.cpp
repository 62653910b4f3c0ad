#include "standin/dao/DaoObject.h"

namespace standin::dao {
namespace {

constexpr HRESULT kFirstDaoCode = static_cast<HRESULT>(0x800A0000);

Value typed(VARTYPE type, const Value& value) {
    Value result;
    VARIANT source = value;
    if (FAILED(VariantChangeType(&result, &source, 0, type))) raise(3421);
    return result;
}

Value toNumber(const Cell& cell) {
    if (const auto* integer = std::get_if<std::int64_t>(&cell)) return toValue(*integer);
    if (const auto* number = std::get_if<double>(&cell)) return toValue(*number);
    return toValue(std::get<std::wstring>(cell));
}

}  // namespace

Error DaoObject::reported(const DaoError& error) const {
    return Error(kFirstDaoCode + error.number, error.text, std::wstring(L"DAO.") + members().className());
}

void DaoObject::beforeCall(const Member&) {
    if (isOpen()) return;
    try {
        raise(3420);
    } catch (const DaoError& error) {
        throw reported(error);
    }
}

Value toClient(const Cell& cell, JetType type) {
    if (std::holds_alternative<std::monostate>(cell)) {
        Value null;
        null.vt = VT_NULL;
        return null;
    }
    if (isText(type)) {
        const auto* text = std::get_if<std::wstring>(&cell);
        return text ? toValue(*text) : typed(VT_BSTR, toNumber(cell));
    }
    const Value number = toNumber(cell);
    return typed(type == JetType::yesNo ? VT_BOOL : VT_I4, number);
}

Cell fromClient(const Value& value, JetType type) {
    if (value.vt == VT_NULL || value.vt == VT_EMPTY) return {};
    if (isText(type)) return toText(typed(VT_BSTR, value));
    if (type == JetType::yesNo) return std::int64_t{toBool(typed(VT_BOOL, value)) ? -1 : 0};
    return std::int64_t{toLong(typed(VT_I4, value))};
}

}  // namespace standin::dao
