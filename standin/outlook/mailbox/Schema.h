#pragma once

#include "standin/outlook/mailbox/Database.h"

namespace standin::outlook {

// Makes the tables in a new file. Throws DatabaseError for a file that is something else.
void prepareSchema(Database& database);

}  // namespace standin::outlook
