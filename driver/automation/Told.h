#pragma once

#include <string>

#include "automation/Fault.h"
#include "automation/Object.h"

namespace zelbar {

/// What an object must say, such as an identifier or a count. Nothing without an error is no answer, and
/// throws the type-mismatch fault: taken for one, what is there would count as missing.
inline Variant told(const Object& object, const Member& member) {
    Variant answer = object.get(member);
    if (answer.isNothing() || (answer.type() == VT_BSTR && answer.text().empty()))
        throw runtimeFault(fault::kTypeMismatch);
    return answer;
}

/// A text that an object must say, be it an empty one, for the same reason.
inline std::wstring toldText(const Object& object, const Member& member) {
    const Variant answer = object.get(member);
    if (answer.type() != VT_BSTR) throw runtimeFault(fault::kTypeMismatch);
    return answer.text();
}

}  // namespace zelbar
