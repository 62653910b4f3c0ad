#include <chrono>
#include <functional>
#include <future>
#include <optional>

#include "tests/dialogs/Windows.h"
#include "tests/hostile/Caller.h"
#include "tests/hostile/Measures.h"
#include "tests/hostile/Workplace.h"

/// The registered driver among clients who mean no good, from both kinds of apartment.
namespace hostile {
namespace {

/// Objects on their way to another thread.
class Parcel {
  public:
    explicit Parcel(const Objects& objects) {
        for (const auto& object : objects)
            if (FAILED(CoMarshalInterThreadInterfaceInStream(IID_IUnknown, object.get(),
                                                             streams_.emplace_back().put())))
                throw std::runtime_error("an object cannot be sent");
    }
    Objects open() {
        Objects objects;
        for (auto& stream : streams_)
            if (FAILED(CoGetInterfaceAndReleaseStream(
                    stream.detach(), IID_IUnknown, reinterpret_cast<void**>(objects.emplace_back().put()))))
                throw std::runtime_error("an object does not arrive");
        return objects;
    }

  private:
    std::vector<Com<IStream>> streams_;
};

/// Does something on a thread of the multi-threaded apartment, while this one serves its messages.
void onAnotherThread(const std::function<void()>& work) {
    auto done = std::async(std::launch::async, [&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        work();
        CoUninitialize();
    });
    while (done.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        zelbar::serveMessages();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
    done.get();
}

/// The driver in a world of its own, led through everything by a client, which may be far, on another thread;
/// nothing may be left of it.
void lead(Proof& proof, size_t stride, bool isFar = false, bool serversRefuse = false) {
    Workplace world;
    const long rows = world.rows(), contacts = world.contacts();
    {
        Objects objects = Workplace::objectsOf(Workplace::createDriver());
        Objects servers{World::createServer(L"Outlook.Application"),
                        World::createServer(standin::dao::kEngineProgId)};
        if (serversRefuse)
            for (auto* server : {&world.outlook.server(), &world.dao.server()})
                server->faults().failAll({static_cast<HRESULT>(0x80010001)});
        std::optional<Caller> caller;
        const auto call = [&](Objects called, Objects more) {
            caller.emplace(proof,
                           Called{std::move(called), std::move(more), world.directoryFile(), isFar, stride});
            caller->callAll();
        };
        if (!isFar) {
            call(std::move(objects), std::move(servers));
        } else {
            Parcel first(objects), second(servers);
            onAnotherThread([&] { call(first.open(), second.open()); });
        }
        caller->expectNothingHeld();
    }
    for (auto* server : {&world.outlook.server(), &world.dao.server()}) server->faults().clear();
    world.expectNothingHeld(proof);
    proof.expect(world.rows() == rows, &Tally::lost, "rows of the cache");
    proof.expectNoMore(world.contacts(), contacts, &Tally::lost, "contacts");
}

size_t strideOf(const Proof& proof) {
    return proof.isShort() ? 101 : 1;
}

/// What is kept for later has been kept by then.
void leadOnceMore(Proof& proof) {
    if (proof.isShort()) return;
    const long long before = measures().front().number;
    lead(proof, 101);
    proof.expectNoMore(before + 100'000, measures().front().number, &Tally::leaks, "bytes on the heaps");
}

}  // namespace
}  // namespace hostile

int main(int count, char** arguments) {
    using namespace hostile;
    return playAll(count, arguments,
                   {{"everything works", [](Proof& p) { lead(p, strideOf(p)); }},
                    {"every server refuses", [](Proof& p) { lead(p, strideOf(p), false, true); }},
                    {"from another apartment", [](Proof& p) { lead(p, strideOf(p) * 7, true); }},
                    {"everything works, once more", leadOnceMore}});
}
