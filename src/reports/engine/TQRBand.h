#pragma once

#include "reports/engine/TQRPrintable.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane::store {
class DataSet;
}

namespace corvane::reports {

enum class BandKind {
    Title,
    PageHeader,
    ColumnHeader,
    Detail,
    GroupHeader,
    GroupFooter,
    SubDetail,
    Summary,
    PageFooter,
    Child,
};

// A horizontal strip of a page holding print objects; its height is in points. BeforePrint may
// refuse the band for this time (and is where running totals of the program's own are kept);
// AfterPrint is told whether it printed. A child band prints right after its parent whenever the
// parent prints.
class TQRBand {
public:
    TQRBand(BandKind kind, double height) : Height(height), kind_(kind) {}
    virtual ~TQRBand() = default;
    TQRBand(const TQRBand&) = delete;
    TQRBand& operator=(const TQRBand&) = delete;

    BandKind Kind() const { return kind_; }

    std::string Name;
    double Height;
    bool Enabled = true;
    std::function<void(TQRBand& band, bool& printBand)> BeforePrint;
    std::function<void(TQRBand& band, bool printed)> AfterPrint;

    template <class T, class... Args> T& Add(Args&&... args) {
        auto object = std::make_unique<T>(std::forward<Args>(args)...);
        T& ref = *object;
        objects_.push_back(std::move(object));
        return ref;
    }
    const std::vector<std::unique_ptr<TQRPrintable>>& Objects() const { return objects_; }
    bool Grows() const;

    // The child band, made on first call.
    TQRBand& ChildBand(double height);
    TQRBand* Child() const { return child_.get(); }

private:
    BandKind kind_;
    std::vector<std::unique_ptr<TQRPrintable>> objects_;
    std::unique_ptr<TQRBand> child_;
};

// A group header: when the value of Expression changes from one row to the next, the footer of
// the group that ends prints, then this header for the group that starts (on a new page with
// ForceNewPage).
class TQRGroup : public TQRBand {
public:
    TQRGroup(std::string expression, double height)
        : TQRBand(BandKind::GroupHeader, height), Expression(std::move(expression)) {}

    std::string Expression;
    bool ForceNewPage = false;

    TQRBand& FooterBand(double height);
    TQRBand* Footer() const { return footer_.get(); }

private:
    std::unique_ptr<TQRBand> footer_;
};

// Rows of a dataset of its own, printed after each row of the report's detail: the dataset
// follows the master row (a detail cursor linked to it, or one the BeforePrint of the detail
// moves), and this band prints once for each of its rows.
class TQRSubDetail : public TQRBand {
public:
    TQRSubDetail(store::DataSet& dataSet, double height)
        : TQRBand(BandKind::SubDetail, height), DataSet(&dataSet) {}

    store::DataSet* DataSet;
};

} // namespace corvane::reports
