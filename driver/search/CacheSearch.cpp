#include "search/CacheSearch.h"

#include <limits>

#include "automation/Attempts.h"
#include "automation/DaoNames.h"
#include "automation/Fault.h"
#include "search/LikePattern.h"

namespace zelbar {

CacheSearch::~CacheSearch() {
    if (rows) Attempts()([&] { rows.call(dao::Close); });
}

std::wstring CacheSearch::query() const {
    if (kind != kSearchByName && kind != kSearchByNumber) return {};
    const wchar_t* column = kind == kSearchByName ? L"Name" : L"PhoneNumber";
    return std::wstring(L"Select * From TCache Where ") + column + L" Like " +
           quotedLiteral(EscapeLikePattern(text)) + L" Order By Name";
}

short CacheSearch::count() const {
    const long count = rows.integer(dao::RecordCount);
    if (count > std::numeric_limits<short>::max()) throw runtimeFault(fault::kOverflow);
    return static_cast<short>(count);
}

}  // namespace zelbar
