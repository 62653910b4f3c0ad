#include "standin/common/Server.h"

#include <algorithm>
#include <cwctype>

namespace standin {
namespace {

std::wstring lowered(std::wstring text) {
    std::ranges::transform(text, text.begin(),
                           [](wchar_t c) { return static_cast<wchar_t>(std::towlower(c)); });
    return text;
}

}  // namespace

std::wstring Server::option(const std::wstring& name) const {
    const auto found = options_.find(lowered(name));
    return found == options_.end() ? L"" : found->second;
}

void Server::setOption(const std::wstring& name, std::wstring value) {
    options_[lowered(name)] = std::move(value);
}

Server::~Server() {
    ++life_->generation;
    life_->ended = true;
    life_->onLastRelease = nullptr;
}

void Server::quit() {
    ++life_->generation;
    if (onQuit_) onQuit_();
}

LiveToken::LiveToken(const Server& server) : life_(server.life()) {
    ++life_->objects;
}

LiveToken::~LiveToken() {
    if (--life_->objects == 0 && life_->onLastRelease) life_->onLastRelease();
}

}  // namespace standin
