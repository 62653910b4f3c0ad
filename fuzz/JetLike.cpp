// Jet's Like as the stand-in for DAO matches it, against the same rules spelt out slowly.

#include "standin/dao/Like.h"

#include "fuzz/LikeReference.h"
#include "standin/dao/DaoError.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    // Letters of both cases beside each other: in a range they are the same.
    const std::wstring pattern = input.text(L"*?#[]!-aAbZ09 ");
    const std::wstring text = input.text(L"aAbBzZ019-!] ");
    try {
        const standin::dao::LikePattern like(pattern);
        const bool isMatch = like.matches(text);
        FUZZ_EXPECT(isMatch == fuzz::matches(text, fuzz::piecesOf(pattern), fuzz::likeOne));

        std::wstring start = text.substr(0, like.prefix().size());
        for (wchar_t& c : start) c = fuzz::folded(c);
        FUZZ_EXPECT(!isMatch || start == like.prefix());
        FUZZ_EXPECT(!like.isExact() || isMatch == (start == like.prefix() && text.size() == start.size()));
    } catch (const standin::dao::DaoError& error) {
        FUZZ_EXPECT(error.number == 93);
    }
    return 0;
}
