#pragma once

#include <cstddef>
#include <vector>

namespace corvane::store {

class DataSet;

// The data sets of one owner, such as a form. The owner closes them all while everything their
// handlers reach is still there, before it is taken apart: a record left in edit is cancelled,
// and its handlers run, on a whole owner rather than on one whose derived parts are gone.
//
// A data set made while a Collecting scope is open joins that scope's group; one destroyed
// first leaves its group by itself.
class DataSetGroup {
public:
    DataSetGroup() = default;
    ~DataSetGroup();
    DataSetGroup(const DataSetGroup&) = delete;
    DataSetGroup& operator=(const DataSetGroup&) = delete;

    // Gathers the data sets made while it is open into group; the innermost scope gathers.
    class Collecting {
    public:
        explicit Collecting(DataSetGroup& group);
        ~Collecting();
        Collecting(const Collecting&) = delete;
        Collecting& operator=(const Collecting&) = delete;

    private:
        DataSetGroup* outer_;
    };

    // Takes over the data sets of other that lie inside the object of size bytes at begin (its
    // members); the rest stay with other. Data sets that a constructor makes elsewhere, such as
    // shared look-up cursors, are not the object's to close.
    void AdoptWithin(DataSetGroup& other, const void* begin, std::size_t size);

    // Cancels every record in edit or insert, then closes every data set, the last made first,
    // then drops their handlers. One that fails does not keep the others open.
    void CloseAll() noexcept;

    std::size_t Size() const { return members_.size(); }

private:
    friend class DataSet;
    static DataSetGroup*& Current();
    void Add(DataSet& dataSet);
    void Remove(DataSet& dataSet);

    std::vector<DataSet*> members_;
};

} // namespace corvane::store
