#pragma once

#include <PIMDriverAbstract.h>

#include "com/Answer.h"
#include "com/DualObject.h"

namespace zelbar {

/// The face that an implementing class shows to clients. A border for each interface derives from this and
/// names the class that answers as `Self`: each member calls the procedure `Interface_Member` of that class,
/// which speaks plain C++ values and may throw.
template <class Self, class Interface, class... More>
class Border : public DualObject<Interface, More...> {
  protected:
    template <class Result, class Body>
    HRESULT answer(const wchar_t* prefix, Result* out, Body&& body) noexcept {
        return border::answer(self(), prefix, out, body);
    }
    template <class Body>
    HRESULT perform(const wchar_t* prefix, Body&& body) noexcept {
        return border::perform(self(), prefix, body);
    }
    Self* self() noexcept { return static_cast<Self*>(this); }
};

}  // namespace zelbar
