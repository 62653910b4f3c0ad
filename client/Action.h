#pragma once

#include <windows.h>

#include <PIMDriverAbstract.h>

#include <string>
#include <vector>

#include "client/Automation.h"

namespace pimcall {

/// What a setting holds; the numbers are the driver's.
enum class SettingType : short { Text = VT_BSTR, YesNo = VT_BOOL, List = VT_ARRAY | VT_BSTR };

/// One setting of an action, as the driver describes it.
struct Setting {
    std::wstring key;
    /// What the user reads.
    std::wstring label;
    SettingType type = SettingType::Text;
    /// The value of a text, and the choice that stands in a list.
    std::wstring text;
    /// The value of a yes or no.
    bool on = false;
    /// The entries of a list, and the index of the chosen one.
    std::vector<std::wstring> choices;
    long choice = 0;
};

/// One of the actions that the driver offers for a call.
struct Action {
    long id = 0;
    std::wstring name;
    /// Whether it leaves an unknown caller alone.
    bool passive = true;
    std::vector<Setting> settings;
};

/// Reads an action of the driver; throws `Failure` when the object is none or one of its members fails.
Action readAction(const Value& object);

/// An action that belongs to the client: a copy, so that its settings do not change the driver's own. Every
/// call throws `Failure` when the driver fails.
class OwnAction {
  public:
    explicit OwnAction(ComPtr<PIMAction> action) : action_(std::move(action)) {}

    void set(const wchar_t* key, const std::wstring& text) { put(key, Value(text)); }
    void set(const wchar_t* key, bool on) { put(key, Value(on)); }
    void choose(const wchar_t* key, short index);

    std::wstring name() const;
    /// Carries the action out. The driver may put another contact into the variable, or take it away.
    void run(ComPtr<Contact>& contact);

  private:
    ComPtr<ActionProperty> setting(const wchar_t* key) const;
    void put(const wchar_t* key, const Value& value);

    ComPtr<PIMAction> action_;
};

}  // namespace pimcall
