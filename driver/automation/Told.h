#pragma once

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

}  // namespace zelbar
