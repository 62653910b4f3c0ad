#include "standin/outlook/objects/Application.h"

#include "standin/outlook/mailbox/Text.h"
#include "standin/outlook/objects/Errors.h"
#include "standin/outlook/objects/Item.h"
#include "standin/outlook/objects/NameSpace.h"
#include "standin/outlook/objects/Windows.h"

namespace standin::outlook {

Application::Application(std::shared_ptr<Session> session, Role role)
    : OutlookObject(std::move(session), ObjectClass::Application,
                    role == Role::Client ? Accounting::Counted : Accounting::CallsOnly) {
    if (role == Role::Client) Application::session().application = this;
}

Application::~Application() {
    if (session().application == this) session().application = nullptr;
}

Ref<Object> Application::shared(const std::shared_ptr<Session>& session) {
    if (session->application) return Ref<Object>(session->application);
    return makeObject<Application>(session);
}

const MemberTable& Application::members() const {
    using Self = Application;
    static const MemberTable table(L"Application",
                                   {
                                       readOnly<&Self::name>(L"Name", 0x3001),
                                       readOnly<&Self::version>(L"Version", 0x116),
                                       method<&Self::activeExplorer>(L"ActiveExplorer", 0x111),
                                       method<&Self::activeInspector>(L"ActiveInspector", 0x112),
                                       method<&Self::getNamespace>(L"GetNamespace", 0x110, 1),
                                       method<&Self::createItem>(L"CreateItem", 0x10A, 1),
                                       readOnly<&Self::inspectors>(L"Inspectors", 0x11A),
                                       method<&Self::quit>(L"Quit", 0x113),
                                       controlMember<&Self::standIn>(),
                                   },
                                   L"Name", &commonMembers());
    return table;
}

std::wstring Application::version() const {
    return session().versionText();
}

Ref<Object> Application::activeExplorer() {
    const auto& windows = session().explorers();
    return windows.empty() ? Ref<Object>() : makeOf<Explorer>(*this, windows.back());
}

Ref<Object> Application::activeInspector() {
    const auto& windows = session().inspectors();
    return windows.empty() ? Ref<Object>() : makeOf<Inspector>(*this, windows.back());
}

Ref<Object> Application::getNamespace(const Arguments& arguments) {
    if (!sameText(arguments.text(0), L"MAPI")) throw badParameter(server());
    return makeOf<NameSpace>(*this);
}

Ref<Object> Application::createItem(const Arguments& arguments) {
    return newItem(sharedSession(), static_cast<ItemType>(arguments.number(0)), 0);
}

Ref<Object> Application::inspectors() {
    return makeOf<Inspectors>(*this);
}

}  // namespace standin::outlook
