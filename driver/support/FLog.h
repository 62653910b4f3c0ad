#pragma once

#include <windows.h>

#include <concepts>
#include <string>
#include <string_view>

#include "automation/Fault.h"
#include "support/LineFile.h"
#include "support/Module.h"
#include "support/Text.h"

namespace zelbar {

/// What shows trace lines on the screen. Called on the driver's thread only.
class LogWindow {
  public:
    /// How the window follows a new line: by painting itself at once, or by scrolling to the line.
    enum class Follow { Refresh, Scroll };

    virtual ~LogWindow() = default;
    virtual void show() noexcept = 0;
    virtual void clear() noexcept = 0;
    virtual void add(std::wstring_view line, Follow follow) noexcept = 0;
};

/// The trace log: what the driver does, line by line, in a file beside the driver or in a window. Off unless
/// the user's settings ask for it. Nothing here ever fails visibly: a line that cannot be written is lost.
class FLog {
  public:
    /// `window` receives the lines in window mode; without one they are dropped. It must outlive the log.
    explicit FLog(Module module, LogWindow* window = nullptr);
    ~FLog();
    FLog(const FLog&) = delete;
    FLog& operator=(const FLog&) = delete;

    /// Where window mode shows its lines; to be set before the log is loaded, and to outlive it.
    void window(LogWindow* window) noexcept { window_ = window; }

    /// Reads the mode and opens the log; only the first call does anything.
    void load() noexcept;

    /// Callers ask this before they build a text.
    bool LogEnabled() const noexcept { return logEnabled_; }
    bool LogToFile() const noexcept { return logToFile_; }
    /// When the log was opened, in local time; set even while logging is off.
    DATE LogStart() const noexcept { return logStart_; }

    /// Writes a line behind the present date and time.
    void Addlog(std::wstring_view text) noexcept;
    /// Writes a line as it is.
    void AddSimpleLog(std::wstring_view text) noexcept;

    /// `Addlog` of all parts joined, built only while logging is on. Parts are texts, whole numbers, Booleans
    /// ("True", "False"), and callables that give one of them: what has to be asked of Outlook for a line
    /// alone is asked by a callable, so that it is not asked while logging is off. A part that fails costs
    /// the line and nothing else. The driver's own words come as literals and stay as they are; any other
    /// text is a value, which has no say in where a line ends.
    template <class... Parts>
    void trace(const Parts&... parts) noexcept {
        if (!logEnabled_) return;
        try {
            std::wstring line;
            (append(line, parts), ...);
            Addlog(line);
        } catch (...) {
            // The line is lost, the driver's work is not.
        }
    }

    /// `trace` of an operation's error prefix, the description, " in " and the source.
    void fault(const wchar_t* prefix, const Fault& fault) noexcept {
        trace(prefix, fault.description, L" in ", fault.source);
    }

  private:
    void ReadLogMode();
    void OpenLog();
    void CloseLog() noexcept;
    void write(std::wstring_view line, LogWindow::Follow follow) noexcept;

    static void append(std::wstring& line, const wchar_t* ownWords) { line += ownWords; }
    static void append(std::wstring& line, std::wstring_view value) { line += onOneLine(value); }
    template <std::invocable Read>
    static void append(std::wstring& line, const Read& read) {
        append(line, read());
    }
    template <std::integral Number>
    static void append(std::wstring& line, Number part) {
        if constexpr (std::same_as<Number, bool>) {
            line += part ? L"True" : L"False";
        } else {
            line += std::to_wstring(part);
        }
    }

    Module module_;
    LogWindow* window_;
    bool loaded_ = false;
    bool logEnabled_ = false;
    bool logToFile_ = false;
    DATE logStart_ = 0;
    LineFile file_;
};

}  // namespace zelbar
