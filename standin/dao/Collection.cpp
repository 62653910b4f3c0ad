#include "standin/dao/Collection.h"

#include "standin/common/Enumerator.h"
#include "standin/dao/Text.h"

namespace standin::dao {

std::vector<Member> Collection::rows() {
    return {
        daoReadOnly<&Collection::item>(L"Item", 0, 1, 1),
        daoReadOnly<&Collection::count>(L"Count", 1610743808),
        daoReadOnly<&Collection::newEnum>(L"_NewEnum", DISPID_NEWENUM),
    };
}

Ref<IDispatch> Collection::item(const Arguments& arguments) {
    const long total = size();
    if (arguments[0].vt == VT_BSTR) {
        const std::wstring name = arguments.text(0);
        for (long index = 0; index < total; ++index) {
            if (sameText(nameOf(index), name)) return element(index);
        }
        raise(3265);
    }
    const long index = arguments.number(0);
    if (index < 0 || index >= total) raise(3265);
    return element(index);
}

Ref<IEnumVARIANT> Collection::newEnum() {
    const Ref<Collection> self(this);
    return makeEnumerator(
        server(), [self] { return self->size(); },
        [self](long position) { return toValue(self->element(position - 1)); });
}

}  // namespace standin::dao
