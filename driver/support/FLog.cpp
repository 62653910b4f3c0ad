#include "support/FLog.h"

#include <utility>

#include "support/Clock.h"
#include "support/Settings.h"

namespace zelbar {

FLog::FLog(Module module, LogWindow* window) : module_(std::move(module)), window_(window) {}

FLog::~FLog() {
    CloseLog();
}

void FLog::load() noexcept {
    if (loaded_) return;
    loaded_ = true;
    try {
        ReadLogMode();
        OpenLog();
    } catch (...) {
        // Out of memory: the driver runs without its log.
    }
}

void FLog::ReadLogMode() {
    const std::wstring mode = readSetting(settings::kDevelopper);
    if (mode == L"1") {
        logEnabled_ = true;
        logToFile_ = false;
        if (window_) window_->show();
    } else if (mode == L"2") {
        logEnabled_ = true;
        logToFile_ = true;
    }
}

void FLog::OpenLog() {
    logStart_ = currentDate();
    if (!logEnabled_) return;
    if (!logToFile_) {
        if (window_) window_->clear();
        return;
    }
    const std::wstring stem = module_.folder + L"\\" + module_.stem;
    const std::wstring current = stem + L".log";
    const std::wstring previous = stem + L"_o.log";
    // A second program that loads the driver adds its lines to those that the first is writing.
    if (!LineFile::isBeingWritten(current)) {
        DeleteFileW(previous.c_str());
        CopyFileW(current.c_str(), previous.c_str(), TRUE);
        LineFile::empty(current);
    }
    file_.open(current);
}

void FLog::CloseLog() noexcept {
    file_.close();
}

void FLog::Addlog(std::wstring_view text) noexcept {
    try {
        write(dateText(currentDate()).append(L": ").append(text), LogWindow::Follow::Refresh);
    } catch (...) {
        // Out of memory: the line is lost.
    }
}

void FLog::AddSimpleLog(std::wstring_view text) noexcept {
    write(text, LogWindow::Follow::Scroll);
}

void FLog::write(std::wstring_view line, LogWindow::Follow follow) noexcept {
    if (logToFile_) {
        file_.write(line);
    } else if (window_) {
        window_->add(line, follow);
    }
}

}  // namespace zelbar
