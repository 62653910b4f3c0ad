#pragma once

#include <string_view>

namespace pimcall {

/// How a text is to catch the eye, where there is one.
enum class Colour { Plain, Green, Yellow, Red };

/// Where the program's output goes.
class Writer {
  public:
    virtual ~Writer() = default;
    /// Throws `Failure` when the text cannot be written.
    virtual void write(std::wstring_view text) = 0;
    /// Whether somebody looks on.
    virtual bool isTerminal() const { return false; }
    /// The colour of what is written from now on; without effect where there are no colours.
    virtual void colour(Colour) {}

    void line(std::wstring_view text) {
        write(text);
        write(L"\n");
    }
    void coloured(Colour ink, std::wstring_view text) {
        colour(ink);
        write(text);
        colour(Colour::Plain);
    }
};

}  // namespace pimcall
