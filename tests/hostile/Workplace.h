#pragma once

#include <initializer_list>

#include "tests/hostile/World.h"

namespace hostile {

/// Where the registered driver is used by a client whose user answers all dialogs, now with OK, now with
/// Cancel, as people do who have other things to do.
class Workplace : public World {
  public:
    Workplace();
    ~Workplace();

    static Com<::DataConnector> createDriver() {
        return createServer(L"zelbar00.cDataConnector").as<::DataConnector>();
    }
    /// One object of each kind that a client can get hold of.
    static std::vector<Com<IUnknown>> objectsOf(const Com<::DataConnector>& driver);

    /// What a client does in a day, from the driver's creation to its end: searches both ways, reads, acts,
    /// has the folders chosen, exports. Nothing may be left of it. True when it found Ada.
    bool day(Proof& proof);
    /// One that is a run of its own, in which it must find her.
    void goodDay(Proof& proof, const std::string& name);
    /// Nobody holds anything of the driver, of Outlook or of DAO any more.
    void expectNothingHeld(Proof& proof);

  private:
    UINT_PTR timer_;
};

/// Ends every dialog of this thread, as its user would.
void closeDialogs();

}  // namespace hostile
