#include <string>

#include "client/ContactCard.h"
#include "client/ContactJson.h"
#include "client/ContactText.h"
#include "client/Json.h"
#include "client/PlaceOptions.h"
#include "client/commands/Commands.h"

namespace pimcall {
namespace {

/// Hands out the hits of a search one by one. A first contact that the PIM does not know stands for no hit,
/// but entries behind it may still be good.
class Hits {
  public:
    Hits(Cursor cursor, SearchKind kind, const std::wstring& text) : cursor_(std::move(cursor)) {
        next_ = cursor_.findFirst(kind, text);
        if (isUnknown(*next_.Get())) next_.Reset();
    }

    ComPtr<Contact> first() const { return next_; }
    bool noMatch() const { return cursor_.noMatch(); }

    /// Calls `visit` with every hit in turn.
    template <class Visit>
    void walk(Visit&& visit) {
        if (!next_) next_ = cursor_.findNext();
        for (; next_; next_ = cursor_.findNext()) visit(readCard(*next_.Get()));
    }

  private:
    Cursor cursor_;
    ComPtr<Contact> next_;
};

ExitCode nothingFound(const Context& context, bool noMatch) {
    context.out.line(L"No contact matches.");
    if (!noMatch) context.out.line(kNotAPlainMiss);
    return ExitCode::NotFound;
}

ExitCode showFirst(const Context& context, const Hits& hits) {
    const ComPtr<Contact> contact = hits.first();
    if (context.json())
        context.out.line(contact ? contactJson(readCard(*contact.Get())) : L"null");
    else if (!contact)
        return nothingFound(context, hits.noMatch());
    else
        context.out.write(contactText(readCard(*contact.Get()), context.verbose()));
    return contact ? ExitCode::Found : ExitCode::NotFound;
}

ExitCode listAllAsJson(const Context& context, Hits& hits) {
    // Written only when complete, so that a failure on the way leaves no half of an array behind.
    json::Array array;
    bool found = false;
    hits.walk([&](const ContactCard& card) {
        array.add(contactJson(card));
        found = true;
    });
    context.out.line(array.str());
    return found ? ExitCode::Found : ExitCode::NotFound;
}

ExitCode listAll(const Context& context, Hits& hits) {
    const bool noMatch = hits.noMatch();
    long count = 0;
    hits.walk([&](const ContactCard& card) {
        if (count++ > 0) context.out.line(L"");
        context.out.write(contactText(card, context.verbose()));
    });
    if (count == 0) return nothingFound(context, noMatch);
    context.out.line(L"\n" + std::to_wstring(count) + (count == 1 ? L" contact" : L" contacts"));
    return ExitCode::Found;
}

ExitCode run(const Context& context) {
    const std::wstring_view what = context.arguments.oneOf(L"--number", L"--name");
    context.arguments.refuseOperands();
    const bool byNumber = what == L"--number";
    const Driver driver = context.driver();
    if (byNumber) noteRemark(context.notes, context.arguments.value(what));
    Hits hits(driver.openCursor(), byNumber ? SearchKind::Number : SearchKind::Name,
              context.arguments.value(what));
    if (!context.arguments.has(L"--all")) return showFirst(context, hits);
    return context.json() ? listAllAsJson(context, hits) : listAll(context, hits);
}

constexpr Option kOptions[] = {{L"--number", L"PATTERN"}, {L"--name", L"PATTERN"}, {L"--all", nullptr}};

}  // namespace

const Command kFind = {
    .name = L"find",
    .synopsis = L"find --number PATTERN | --name PATTERN [--all]",
    .brief = L"a search by number or name",
    .details =
        L"Searches by number or by name (\"last first\"); \"*\" stands for any characters. --all shows every\n"
        L"hit, not only the first.",
    .examples =
        L"pimcall find --number *123456\n"
        L"pimcall find --name \"Example*\" --all\n",
    .options = kOptions,
    .run = run};

}  // namespace pimcall
