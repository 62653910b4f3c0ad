#pragma once

#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace standin {

class MemberTable;
struct Member;

// What a server's clients have asked for since the last reset.
// Names are member names ("GetItemFromID") or, to tell classes apart, "NameSpace.GetItemFromID"; case does
// not matter.
class CallLog {
  public:
    void noteLookUp(const MemberTable& table, const Member* found) noexcept;
    void noteInvocation(const MemberTable& table, const Member& member);
    void noteAbandoned() noexcept { ++abandoned_; }
    void reset() noexcept;

    // Name look-ups (GetIDsOfNames), unknown names included.
    long lookUps() const noexcept { return lookUps_; }
    long lookUps(std::wstring_view name) const;
    long invocations() const noexcept { return invocations_; }
    long invocations(std::wstring_view name) const;
    // The latest invocations, oldest first, as "Class.Member"; at most kRemembered.
    std::vector<std::wstring> calls() const;

    // Calls whose caller let go of the object before they came back. A proxy does not survive that.
    long abandoned() const noexcept { return abandoned_; }

    static constexpr std::size_t kRemembered = 10000;

  private:
    using Key = std::pair<const MemberTable*, const Member*>;
    static long sum(const std::map<Key, long>& counts, std::wstring_view name);

    long lookUps_ = 0;
    long invocations_ = 0;
    long abandoned_ = 0;
    std::map<Key, long> lookUpCounts_;
    std::map<Key, long> invocationCounts_;
    std::deque<Key> recent_;
};

// Whether a name in either of the two forms means this member of this class.
bool meansMember(std::wstring_view name, const MemberTable& table, const Member& member);

}  // namespace standin
