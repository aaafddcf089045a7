#include "store/DataSetGroup.h"

#include "store/DataSet.h"

#include <algorithm>
#include <functional>

namespace corvane::store {

DataSetGroup*& DataSetGroup::Current() {
    thread_local DataSetGroup* current = nullptr;
    return current;
}

DataSetGroup::Collecting::Collecting(DataSetGroup& group) : outer_(Current()) {
    Current() = &group;
}

DataSetGroup::Collecting::~Collecting() {
    Current() = outer_;
}

DataSetGroup::~DataSetGroup() {
    for (DataSet* dataSet : members_)
        dataSet->group_ = nullptr;
}

void DataSetGroup::Add(DataSet& dataSet) {
    members_.push_back(&dataSet);
    dataSet.group_ = this;
}

void DataSetGroup::Remove(DataSet& dataSet) {
    members_.erase(std::remove(members_.begin(), members_.end(), &dataSet), members_.end());
    dataSet.group_ = nullptr;
}

void DataSetGroup::AdoptWithin(DataSetGroup& other, const void* begin, std::size_t size) {
    const auto* first = static_cast<const char*>(begin);
    std::less<const char*> before;
    std::vector<DataSet*> candidates = other.members_;
    for (DataSet* dataSet : candidates) {
        const auto* at = reinterpret_cast<const char*>(dataSet);
        if (before(at, first) || !before(at, first + size)) continue;
        other.Remove(*dataSet);
        Add(*dataSet);
    }
}

void DataSetGroup::CloseAll() noexcept {
    // Handlers may close or destroy others of the group: walk copies, and skip what has left.
    auto each = [this](const auto& step) {
        std::vector<DataSet*> order = members_;
        for (auto it = order.rbegin(); it != order.rend(); ++it) {
            if (std::find(members_.begin(), members_.end(), *it) == members_.end()) continue;
            try {
                step(**it);
            } catch (...) {
                // A cancel whose handler fails still leaves the record unsaved, as the user
                // left it; the owner is going away either way.
            }
        }
    };
    // Records in edit are cancelled while every cursor is still open, for the handlers that
    // look at the others (a voucher's lines at the accounts they name).
    each([](DataSet& dataSet) {
        if (dataSet.Editing()) dataSet.Cancel();
    });
    each([](DataSet& dataSet) { dataSet.Close(); });
    // Whatever still happens to them (a close from their destructors) calls nothing back.
    for (DataSet* dataSet : members_)
        dataSet->DropHandlers();
}

} // namespace corvane::store
