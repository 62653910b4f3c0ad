#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <vector>

namespace hostile {

/// A variant as nobody expects it, with all that it refers to: a content of some kind, passed in some way.
class OddValue {
  public:
    /// How many there are; `objects` are those that contents are taken from.
    static size_t count(const std::vector<IUnknown*>& objects);

    OddValue(size_t which, const std::vector<IUnknown*>& objects);
    ~OddValue();
    OddValue(const OddValue&) = delete;
    OddValue& operator=(const OddValue&) = delete;

    /// What is passed; the callee may replace what it refers to.
    VARIANT value{};
    /// The content itself, for slots that take one of its type.
    VARIANT content{};
    /// It is passed as it is.
    bool isPlain() const { return way_ == 0; }
    /// The platform itself can carry it to another thread.
    bool isPortable() const;
    std::string name() const;

  private:
    void putIntoArray();

    size_t way_;
    VARIANT inner_{};
    SAFEARRAY* array_ = nullptr;
};

}  // namespace hostile
