#pragma once

#include "store/DataSet.h"

namespace corvane::shell {

// The one handler for a refused edit or delete (record locked, changed by another) that the main
// form installs for the whole program. List and entry forms attach it to the tables they edit when
// they are made; until it is installed the store's own message stands.
class EditErrorHook {
public:
    static void Install(store::DataSet::ErrorHandler handler);
    static void Attach(store::DataSet& dataSet);
};

} // namespace corvane::shell
