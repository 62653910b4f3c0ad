#pragma once

namespace zelbar {

/// Marks the time in which Outlook is asked: the user's and the client's messages come in meanwhile.
class Asking {
  public:
    explicit Asking(bool& flag) : flag_(flag) { flag_ = true; }
    ~Asking() { flag_ = false; }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

  private:
    bool& flag_;
};

}  // namespace zelbar
