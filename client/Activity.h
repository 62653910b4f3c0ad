#pragma once

#include <memory>
#include <string>

#include "client/Writer.h"

namespace pimcall {

/// Tells a user at a terminal what the program is doing, once that takes longer than a second: one line that
/// is written over and over, and is gone whenever something else is written and at the end. Where nobody
/// looks on there is none.
class Activity {
  public:
    /// `screen` is where the line is shown. `what` is being done.
    Activity(Writer& screen, std::wstring what, unsigned delayMilliseconds = 1000);
    ~Activity();
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;

    /// Something else is being done now.
    void say(std::wstring what);
    /// From now on the program waits for its user, who knows what for.
    void end();

    /// Takes the line away and writes to `writer`.
    void write(Writer& writer, std::wstring_view text);

  private:
    struct Shared;
    static void show(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_;
};

/// Writes what a command says, past the line.
class BesideActivity final : public Writer {
  public:
    BesideActivity(Writer& writer, Activity& activity) : writer_(writer), activity_(activity) {}
    void write(std::wstring_view text) override { activity_.write(writer_, text); }
    bool isTerminal() const override { return writer_.isTerminal(); }
    void colour(Colour colour) override { writer_.colour(colour); }

  private:
    Writer& writer_;
    Activity& activity_;
};

}  // namespace pimcall
