#include "standin/dao/JetFunctions.h"

#include <sqlite3.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "standin/dao/DaoError.h"
#include "standin/dao/Like.h"
#include "standin/dao/Text.h"

namespace standin::dao {
namespace {

std::wstring_view textOf(sqlite3_value* value) {
    const auto* text = static_cast<const wchar_t*>(sqlite3_value_text16(value));
    const auto bytes = static_cast<std::size_t>(sqlite3_value_bytes16(value));
    return text ? std::wstring_view(text, bytes / sizeof(wchar_t)) : std::wstring_view();
}

/// A text that SQLite hands to a collation. It may begin at an odd address, inside a record.
class CollatedText {
  public:
    CollatedText(const void* text, int bytes) {
        const std::size_t size = static_cast<std::size_t>(bytes) / sizeof(wchar_t);
        if (reinterpret_cast<std::uintptr_t>(text) % alignof(wchar_t) == 0) {
            view_ = {static_cast<const wchar_t*>(text), size};
        } else {
            copy_.resize(size);
            std::memcpy(copy_.data(), text, size * sizeof(wchar_t));
            view_ = copy_;
        }
    }
    CollatedText(const CollatedText&) = delete;
    CollatedText& operator=(const CollatedText&) = delete;

    std::wstring_view view() const { return view_; }

  private:
    std::wstring copy_;
    std::wstring_view view_;
};

void like(sqlite3_context* context, int, sqlite3_value** arguments) noexcept {
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL)
        return;
    try {
        // A pattern is compiled once for all rows.
        auto* pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(context, 0));
        std::unique_ptr<LikePattern> compiled;
        if (!pattern) {
            compiled = std::make_unique<LikePattern>(textOf(arguments[0]));
            pattern = compiled.get();
        }
        sqlite3_result_int(context, pattern->matches(textOf(arguments[1])) ? -1 : 0);
        if (compiled) {
            sqlite3_set_auxdata(context, 0, compiled.release(),
                                [](void* data) { delete static_cast<LikePattern*>(data); });
        }
    } catch (const DaoError&) {
        sqlite3_result_error(context, "Invalid pattern string", -1);
    } catch (...) {
        sqlite3_result_error_nomem(context);
    }
}

void length(sqlite3_context* context, int, sqlite3_value** arguments) noexcept {
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return;
    sqlite3_result_int64(context, static_cast<sqlite3_int64>(textOf(arguments[0]).size()));
}

int sorted(void*, int leftBytes, const void* left, int rightBytes, const void* right) noexcept {
    return compareSorted(CollatedText(left, leftBytes).view(), CollatedText(right, rightBytes).view());
}

int folded(void*, int leftBytes, const void* left, int rightBytes, const void* right) noexcept {
    return compareFolded(CollatedText(left, leftBytes).view(), CollatedText(right, rightBytes).view());
}

}  // namespace

void addJetFunctions(sqlite3* connection) {
    constexpr int kPure = SQLITE_UTF16LE | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    sqlite3_create_function_v2(connection, "jet_like", 2, kPure, nullptr, &like, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(connection, "jet_length", 1, kPure, nullptr, &length, nullptr, nullptr,
                               nullptr);
    sqlite3_create_collation_v2(connection, "JET", SQLITE_UTF16LE, nullptr, &sorted, nullptr);
    sqlite3_create_collation_v2(connection, "JET_PREFIX", SQLITE_UTF16LE, nullptr, &folded, nullptr);
}

}  // namespace standin::dao
