#pragma once

#include "standin/outlook/objects/Item.h"

namespace standin::outlook {

// An entry of the journal. Start, End and Duration (minutes) always agree.
class JournalItem final : public Item {
  public:
    JournalItem(std::shared_ptr<Session> session, std::shared_ptr<ItemState> state);

  protected:
    const MemberTable& members() const override;

  private:
    Date start() const;
    void setStart(Date date);
    Date end() const;
    // An end before the start raises, or moves the start back, as the switch "JournalEnd" says.
    void setEnd(Date date);
    long duration() const;
    void setDuration(long minutes);
    void store(Date start, Date end);
};

}  // namespace standin::outlook
