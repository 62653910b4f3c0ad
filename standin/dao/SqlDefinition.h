#pragma once

#include "standin/dao/SqlCommand.h"
#include "standin/dao/SqlReader.h"

namespace standin::dao {

/// Create Table, Create [Unique] Index, Drop Table, Drop Index. The first word has been read.
Command translateCreate(SqlReader& reader);
Command translateDrop(SqlReader& reader);

}  // namespace standin::dao
