#pragma once

// Stands in for ICU's header of that name.

#include <cstdint>

/// The value of a decimal digit of any script that telephone numbers are written in; -1 for anything else.
inline std::int32_t u_charDigitValue(std::int32_t character) {
    constexpr std::int32_t kZeros[] = {
        0x0030,  // European
        0x0660,  // Arabic
        0x06F0,  // Persian
        0x07C0,  // N'Ko
        0x0966,  // Devanagari
        0x09E6,  // Bengali
        0x0A66,  // Gurmukhi
        0x0AE6,  // Gujarati
        0x0B66,  // Odia
        0x0BE6,  // Tamil
        0x0C66,  // Telugu
        0x0CE6,  // Kannada
        0x0D66,  // Malayalam
        0x0E50,  // Thai
        0x0ED0,  // Lao
        0x0F20,  // Tibetan
        0xFF10,  // full width
    };
    for (const std::int32_t zero : kZeros)
        if (character >= zero && character < zero + 10) return character - zero;
    return -1;
}
