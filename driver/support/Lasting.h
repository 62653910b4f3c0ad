#pragma once

namespace zelbar {

/// The one object of its type, made by the first use and never destroyed: when a client's process ends, what
/// an object at the end would release may be gone already. It must hold nothing then that matters.
template <class Type>
Type& lasting() {
    static Type& instance = *new Type;
    return instance;
}

}  // namespace zelbar
