#include "standin/common/Arguments.h"

#include <algorithm>

#include "standin/common/Error.h"
#include "standin/common/MemberTable.h"

namespace standin {
namespace {

Value dereferenced(const VARIANTARG& raw) {
    Value value;
    const HRESULT outcome = VariantCopyInd(&value, const_cast<VARIANTARG*>(&raw));
    if (FAILED(outcome)) throw Error::plain(outcome);
    return value;
}

}  // namespace

Arguments::Arguments(const Member& member, const DISPPARAMS& raw, bool assignment) : member_(&member) {
    const UINT named = raw.cNamedArgs;
    const bool namesValue = named == 1 && raw.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    if (named > 0 && !(assignment && namesValue)) throw Error::plain(DISP_E_NONAMEDARGS);
    if (assignment && raw.cArgs == 0) throw Error::plain(DISP_E_BADPARAMCOUNT);
    if (assignment && !namesValue) throw Error::plain(DISP_E_PARAMNOTFOUND);
    for (UINT i = raw.cArgs; i > (assignment ? 1U : 0U); --i)
        values_.push_back(dereferenced(raw.rgvarg[i - 1]));
    if (assignment) assigned_ = dereferenced(raw.rgvarg[0]);
}

Arguments::Arguments(const Member& member, const Arguments& other)
    : member_(&member), values_(other.values_), assigned_(other.assigned_) {}

bool Arguments::has(std::size_t index) const noexcept {
    return index < values_.size() && !isMissing(values_[index]);
}

const Value& Arguments::operator[](std::size_t index) const noexcept {
    static const Value missing(static_cast<long>(DISP_E_PARAMNOTFOUND), VT_ERROR);
    return index < values_.size() ? values_[index] : missing;
}

void Arguments::checkCount() const {
    if (count() > member_->maxArguments || count() < member_->minArguments)
        throw Error::plain(DISP_E_BADPARAMCOUNT);
    for (std::size_t i = 0; i < member_->minArguments; ++i) {
        if (!has(i)) throw Error::plain(DISP_E_PARAMNOTOPTIONAL);
    }
}

}  // namespace standin
