#pragma once

#include <utility>
#include <vector>

#include "actions/ActionParts.h"
#include "com/PIMActionsBorder.h"

namespace zelbar {

/// The actions that the driver can carry out, one of each kind with default settings, found by their
/// identifiers. The client changes the settings in place, or copies an action and changes the copy.
class cPIMActions final : public PIMActionsBorder<cPIMActions> {
  public:
    /// Fills the collection; a kind that cannot be made ends that with a line in the log.
    explicit cPIMActions(const ActionParts& parts);

    /// Holds one further object for as long as the collection lives; nothing reads it.
    void setFurtherObject(Com<IUnknown> object) { furtherObject_ = std::move(object); }

    // The members of the interface.
    Com<::CallAction> PIMActions_Item(long id) const;
    long PIMActions_Count() const { return static_cast<long>(actions_.size()); }
    Com<IUnknown> PIMActions_NewEnum() const;
    Com<::CallAction> PIMActions_NewAction(long id) const;

  private:
    struct Entry {
        long id;
        Com<::CallAction> action;
    };

    const ActionParts parts_;
    std::vector<Entry> actions_;
    Com<IUnknown> furtherObject_;
};

/// A new collection of the driver's actions.
Com<::PIMActions> makeActions(const ActionParts& parts);

}  // namespace zelbar
