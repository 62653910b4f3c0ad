#include "support/LineFile.h"

#include "support/Encoding.h"

namespace zelbar {

bool LineFile::open(const std::wstring& path, Mode mode) noexcept {
    constexpr DWORD kOthersMayDoAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const bool append = mode == Mode::kAppend;
    file_ = FileHandle(CreateFileW(path.c_str(), append ? FILE_APPEND_DATA : GENERIC_WRITE, kOthersMayDoAll,
                                   nullptr, append ? OPEN_ALWAYS : CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                                   nullptr));
    return isOpen();
}

void LineFile::write(std::wstring_view line) noexcept {
    if (!isOpen()) return;
    try {
        const std::string bytes = utf8(line) + "\r\n";
        DWORD written = 0;
        WriteFile(file_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    } catch (...) {
        // Out of memory: the line is lost.
    }
}

}  // namespace zelbar
