#include "search/SearchQuery.h"

#include <limits>

#include "automation/DaoNames.h"
#include "automation/Fault.h"
#include "search/LikePattern.h"
#include "search/cContact.h"

namespace zelbar {

std::wstring searchQuery(long searchKind, const std::wstring& searchText) {
    if (searchKind != kSearchByName && searchKind != kSearchByNumber) return {};
    const wchar_t* column = searchKind == kSearchByName ? L"Name" : L"PhoneNumber";
    return std::wstring(L"Select * From TCache Where ") + column + L" Like " +
           quotedLiteral(EscapeLikePattern(searchText)) + L" Order By Name";
}

short narrowedCount(const Object& recordset) {
    const long count = recordset.integer(dao::RecordCount);
    if (count > std::numeric_limits<short>::max()) throw runtimeFault(fault::kOverflow);
    return static_cast<short>(count);
}

}  // namespace zelbar
