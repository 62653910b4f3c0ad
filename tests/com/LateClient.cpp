#include "tests/com/LateClient.h"

#include <algorithm>

namespace zelbar {

LateAnswer late(IDispatch& object, const wchar_t* name, std::vector<VARIANT> arguments, WORD kind,
                const std::vector<const wchar_t*>& named) {
    std::vector<LPOLESTR> names{const_cast<LPOLESTR>(name)};
    for (const wchar_t* parameter : named) names.push_back(const_cast<LPOLESTR>(parameter));
    std::vector<DISPID> ids(names.size());
    LateAnswer answer;
    answer.result = object.GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()),
                                         LOCALE_USER_DEFAULT, ids.data());
    if (FAILED(answer.result)) return answer;
    const DISPID member = ids.front();
    ids.erase(ids.begin());
    if (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) ids.push_back(DISPID_PROPERTYPUT);
    std::reverse(ids.begin(), ids.end());
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{arguments.data(), ids.data(), static_cast<UINT>(arguments.size()),
                          static_cast<UINT>(ids.size())};
    answer.result = object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                  answer.value.put(), nullptr, nullptr);
    return answer;
}

}  // namespace zelbar
