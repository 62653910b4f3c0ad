#include "search/TaggedValue.h"

#include <cstdint>
#include <limits>
#include <stdexcept>

namespace zelbar {

std::wstring GetTaggedValue(std::wstring_view data, std::wstring_view key) {
    if (data.size() > std::numeric_limits<std::int16_t>::max()) throw std::overflow_error("Overflow");
    const size_t found = data.find(key);
    if (found == std::wstring_view::npos) return {};
    const size_t start = found + key.size();
    size_t end = data.find(L';', start);
    if (end == std::wstring_view::npos) end = data.size() - 1;
    return end > start ? std::wstring(data.substr(start, end - start)) : std::wstring();
}

}  // namespace zelbar
