#include "automation/DaoEngine.h"

#include "automation/Attempts.h"
#include "automation/DaoNames.h"

namespace zelbar::dao {

Object createEngine(Gateway& gateway) {
    Attempts attempt;
    Object engine;
    for (const wchar_t* progId : kEngineProgIds)
        if (attempt.into(engine, [&] { return gateway.create(Server::Dao, progId, kEngine); })) return engine;
    throw attempt.last();
}

}  // namespace zelbar::dao
