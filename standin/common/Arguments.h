#pragma once

#include <optional>
#include <vector>

#include "standin/common/Value.h"

namespace standin {

struct Member;

// The arguments of one invocation in the order they are written, by-reference ones already dereferenced.
class Arguments {
  public:
    // Throws a plain DISP_E_NONAMEDARGS for named arguments other than the value of a property put.
    Arguments(const Member& member, const DISPPARAMS& raw, bool assignment);
    // For a forwarded invocation: the same values for another member.
    Arguments(const Member& member, const Arguments& other);

    // The member as which the object was invoked: lets one handler serve many rows of a table.
    const Member& member() const noexcept { return *member_; }

    std::size_t count() const noexcept { return values_.size(); }
    bool has(std::size_t index) const noexcept;
    // A missing argument reads as a missing value.
    const Value& operator[](std::size_t index) const noexcept;
    std::wstring text(std::size_t index) const { return toText((*this)[index]); }
    long number(std::size_t index) const { return toLong((*this)[index]); }
    long number(std::size_t index, long whenMissing) const {
        return has(index) ? number(index) : whenMissing;
    }

    // The right-hand side of an assignment.
    const Value& assigned() const noexcept { return assigned_; }

    // Throws a plain DISP_E_BADPARAMCOUNT or DISP_E_PARAMNOTOPTIONAL.
    void checkCount() const;

  private:
    const Member* member_;
    std::vector<Value> values_;
    Value assigned_;
};

}  // namespace standin
