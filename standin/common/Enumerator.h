#pragma once

#include <functional>

#include "standin/common/Server.h"
#include "standin/common/Value.h"

namespace standin {

// What "For Each" walks: count() elements, element(1) to element(count()).
// An element that has gone meanwhile (its reading throws) ends the walk.
Ref<IEnumVARIANT> makeEnumerator(Server& server, std::function<long()> count,
                                 std::function<Value(long)> element);

}  // namespace standin
