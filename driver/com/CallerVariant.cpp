#include "com/CallerVariant.h"

#include "automation/Fault.h"

namespace zelbar {

VARIANT* contentOf(VARIANT& argument) noexcept {
    // One level is what the platform knows; some callers wrap what they were given once more.
    constexpr int kMostLevels = 16;
    VARIANT* content = &argument;
    for (int level = 0; level < kMostLevels; ++level) {
        if ((content->vt & VT_BYREF) && !content->byref) return nullptr;
        if (content->vt != (VT_BYREF | VT_VARIANT)) return content;
        content = content->pvarVal;
    }
    return nullptr;
}

Variant given(VARIANT& argument) {
    const VARIANT* content = contentOf(argument);
    if (!content) throw runtimeFault(fault::kTypeMismatch);
    const bool isReference = content->vt & VT_BYREF;
    if ((content->vt & VT_ARRAY) && !(isReference ? *content->pparray : content->parray))
        throw runtimeFault(fault::kTypeMismatch);
    return Variant::copyOf(*content);
}

Variant givenIfAny(VARIANT& argument) {
    Variant result = given(argument);
    return result.type() == VT_ERROR ? Variant() : result;
}

}  // namespace zelbar
