#pragma once

#include "banking/domain/RowImport.h"

namespace corvane::inventory {

// Items from a data file, each saved as the item form saves one: its number and id drawn from
// ItemCtl (a number in the file replaces the drawn one), the new item's defaults, every check in
// order.
banking::ImportTarget ItemImport(store::Database& db);

} // namespace corvane::inventory
