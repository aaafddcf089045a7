#pragma once

#include "reports/engine/Expression.h"
#include "reports/engine/TQuickRep.h"
#include "reports/page/Page.h"

#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvane::store {
class DataSet;
class Field;
} // namespace corvane::store

namespace corvane::reports {

class ReportDocument;
class TQRExpr;

// One run of a report: walks the rows once, prints the bands in their order and cuts pages.
// A page goes to the document as soon as its footer is on it.
class ReportRun {
public:
    ReportRun(TQuickRep& report, ReportDocument& document);
    void Run();

private:
    enum class Placement { Flow, Top, Bottom };
    struct Cancelled {};

    void Bind();
    void BindBand(TQRBand& band, store::DataSet* dataSet, TQRBand* defaultMaster);
    store::Field* Resolve(store::DataSet* dataSet, std::string_view qualifier,
                          std::string_view name) const;
    FieldResolver ResolverFor(store::DataSet* dataSet) const;

    std::vector<store::Value> GroupKeys() const;
    void ProcessRow(bool first);
    void PrintSubDetails();
    // A child band's texts count as its parent's: rowKind is the parent's.
    bool PrintBand(TQRBand* band, Placement placement = Placement::Flow,
                   RowKind rowKind = RowKind::None);
    std::vector<DrawOp> Render(TQRBand& band, double& height) const;
    void Emit(std::vector<DrawOp>& ops, double top);
    void FlowPlace(std::vector<DrawOp> ops, double height);

    void StartPage();
    void FinishPage(bool withFooter);
    void NewPage();
    bool AtPageTop() const;
    void CheckCancel() const;

    TQuickRep& report_;
    ReportDocument& document_;
    std::unordered_map<const TQRBand*, std::vector<TQRExpr*>> totals_;
    std::vector<Expression> groupKeys_;
    std::vector<store::Value> currentKeys_;
    std::size_t openFrom_ = 0; // the outermost group whose header the next row prints

    Page page_;
    double left_ = 0, top_ = 0;
    double y_ = 0;       // where the next band goes
    double bodyTop_ = 0; // below the page's headers
    double bottom_ = 0;  // above the page footer
    double footerY_ = 0;
    double footerReserve_ = 0;
};

} // namespace corvane::reports
