#pragma once

#include "standin/outlook/objects/OutlookObject.h"

namespace standin::outlook {

// OlInspectorClose.
enum class CloseMode : long { Save = 0, Discard = 1, PromptForSave = 2 };

// What all items have in common. An item is a copy of what is saved until Save writes it back.
class Item : public OutlookObject {
  public:
    ItemRecord& record() const noexcept { return state_->record; }
    // The client has changed something.
    void touch() const noexcept { state_->changed = true; }
    const std::shared_ptr<ItemState>& state() const noexcept { return state_; }

  protected:
    Item(std::shared_ptr<Session> session, ObjectClass kind, std::shared_ptr<ItemState> state)
        : OutlookObject(std::move(session), kind), state_(std::move(state)) {}

    static const MemberTable& itemMembers();
    Ref<Object> parent() override;
    // Every member of an item that was sent, deleted or moved away fails.
    void beforeCall(const Member& member) override;

    // One handler for all text properties: the member's name is the field's.
    std::wstring textField(const Arguments& arguments);
    void setTextField(const Arguments& arguments);
    // The same for texts that may hold addresses.
    std::wstring guardedField(const Arguments& arguments);

    void save();
    void remove();

  private:
    virtual void beforeSave() {}

    std::wstring entryId() const { return mailbox().entryId(record()); }
    long sensitivity() const;
    void setSensitivity(long value);
    Ref<Object> attachments();
    Ref<Object> userProperties();
    Ref<Object> getInspector();
    void display(const Arguments&);
    void close(const Arguments& arguments);

    std::shared_ptr<ItemState> state_;
};

// An item's object around its state, of the class that its type says.
Ref<Object> wrapItem(const std::shared_ptr<Session>& session, std::shared_ptr<ItemState> state);
// Throws when nothing has this number.
Ref<Object> openItem(const std::shared_ptr<Session>& session, RowId item);
// A new item that is in no folder until it is saved: then in the given one, or (0) in the default of its
// type.
Ref<Object> newItem(const std::shared_ptr<Session>& session, ItemType type, RowId folder);

void saveItem(Session& session, ItemState& state);
// Into Deleted Items, or for good when it lies there already or was never saved.
void deleteItem(Session& session, ItemState& state);
void closeItem(Session& session, const std::shared_ptr<ItemState>& state, CloseMode mode);

}  // namespace standin::outlook
