#pragma once

#include <optional>
#include <string>

#include "filler/ReadWay.h"
#include "numbers/HomePlace.h"

namespace filler {

/// What the command line says.
struct Arguments {
    bool isQuiet = false;
    bool wantsHelp = false;
    numbers::PlaceWords place;
    std::optional<ReadWay> way;
};

/// The command line is wrong; the sentence is for the user.
struct WrongUsage {
    std::wstring sentence;
};

/// Takes the words behind the program's name apart; options with a value are written "--name VALUE" or
/// "--name=VALUE". Throws WrongUsage.
Arguments parseArguments(int count, wchar_t** words);

}  // namespace filler
