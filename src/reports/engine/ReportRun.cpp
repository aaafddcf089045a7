#include "reports/engine/ReportRun.h"

#include "reports/engine/TQRExpr.h"
#include "reports/page/ReportDocument.h"
#include "store/DataSet.h"
#include "store/Table.h"

#include <algorithm>
#include <cctype>
#include <optional>

namespace corvane::reports {

namespace {

constexpr double kSlack = 0.01; // points: rounding in band heights never breaks a page

// What a spreadsheet of the report makes of a band's texts.
RowKind RowKindOf(BandKind kind) {
    switch (kind) {
    case BandKind::ColumnHeader:
        return RowKind::Heading;
    case BandKind::Detail:
    case BandKind::SubDetail:
        return RowKind::Detail;
    case BandKind::GroupHeader:
    case BandKind::GroupFooter:
        return RowKind::Group;
    case BandKind::Summary:
        return RowKind::Summary;
    default:
        return RowKind::None;
    }
}

bool SameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

bool Names(const store::DataSet& dataSet, std::string_view qualifier) {
    if (SameName(dataSet.Name, qualifier)) return true;
    const auto* table = dynamic_cast<const store::Table*>(&dataSet);
    return table && SameName(table->TableName(), qualifier);
}

double BandChainHeight(const TQRBand* band) {
    double height = 0;
    for (; band; band = band->Child())
        if (band->Enabled) height += band->Height;
    return height;
}

} // namespace

ReportRun::ReportRun(TQuickRep& report, ReportDocument& document)
    : report_(report), document_(document) {}

void ReportRun::Run() {
    document_.StartProduction();
    document_.title = report_.ReportTitle;
    report_.timestamp_ = report_.PrintedAt.value_or(ReportTimestamp::Now());
    report_.pageNumber_ = 0;
    // Production ends however the run does, so a preview never waits on a run that failed.
    struct Finish {
        ReportDocument& document;
        ~Finish() { document.FinishProduction(); }
    } finish{document_};

    store::DataSet* data = report_.DataSet;
    if (data && !data->Active()) data->Open();
    if (data) data->First();
    Bind();
    const bool empty = data && data->Eof();
    if (empty && !report_.PrintIfEmpty) return;

    left_ = TenthsMmToPoints(report_.Page.LeftMargin);
    top_ = TenthsMmToPoints(report_.Page.TopMargin);
    footerReserve_ = BandChainHeight(report_.FindBand(BandKind::PageFooter));
    try {
        StartPage();
        if (!data) {
            ProcessRow(true);
        } else {
            for (bool first = true; !data->Eof(); first = false) {
                CheckCancel();
                ProcessRow(first);
                data->Next();
            }
        }
        if (!empty)
            for (auto group = report_.groups_.rbegin(); group != report_.groups_.rend(); ++group)
                PrintBand((*group)->Footer());
        PrintBand(report_.FindBand(BandKind::Summary));
        FinishPage(report_.Options.LastPageFooter);
    } catch (const Cancelled&) {
        // The pages finished so far stay; the one under way is dropped.
    }
}

// ----- binding

store::Field* ReportRun::Resolve(store::DataSet* dataSet, std::string_view qualifier,
                                 std::string_view name) const {
    if (qualifier.empty()) {
        if (dataSet)
            if (store::Field* field = dataSet->FindField(name)) return field;
        return report_.DataSet ? report_.DataSet->FindField(name) : nullptr;
    }
    std::vector<store::DataSet*> candidates{report_.DataSet};
    for (const auto& sub : report_.subDetails_)
        candidates.push_back(sub->DataSet);
    candidates.insert(candidates.end(), report_.ExtraDataSets.begin(), report_.ExtraDataSets.end());
    for (store::DataSet* candidate : candidates)
        if (candidate && Names(*candidate, qualifier)) return candidate->FindField(name);
    return nullptr;
}

FieldResolver ReportRun::ResolverFor(store::DataSet* dataSet) const {
    return [this, dataSet](std::string_view qualifier, std::string_view name) {
        return Resolve(dataSet, qualifier, name);
    };
}

void ReportRun::BindBand(TQRBand& band, store::DataSet* dataSet, TQRBand* defaultMaster) {
    for (TQRBand* b = &band; b; b = b->Child()) {
        BindContext context{
            report_,
            *b,
            dataSet,
            defaultMaster,
            ResolverFor(dataSet),
            [this](TQRBand& master, TQRExpr& expr) { totals_[&master].push_back(&expr); }};
        for (const auto& object : b->Objects())
            object->Bind(context);
    }
}

void ReportRun::Bind() {
    totals_.clear();
    for (const auto& sub : report_.subDetails_)
        if (sub->DataSet && !sub->DataSet->Active()) sub->DataSet->Open();
    store::DataSet* data = report_.DataSet;
    TQRBand* detail = report_.FindBand(BandKind::Detail);
    for (const auto& band : report_.bands_)
        BindBand(*band, data, detail);
    groupKeys_.clear();
    for (const auto& group : report_.groups_) {
        BindBand(*group, data, detail);
        if (group->Footer()) BindBand(*group->Footer(), data, detail);
        groupKeys_.emplace_back(group->Expression, ResolverFor(data));
    }
    for (const auto& sub : report_.subDetails_)
        BindBand(*sub, sub->DataSet, sub.get());
}

// ----- rows

std::vector<store::Value> ReportRun::GroupKeys() const {
    std::vector<store::Value> keys;
    keys.reserve(groupKeys_.size());
    for (const Expression& key : groupKeys_)
        keys.push_back(key.Evaluate());
    return keys;
}

void ReportRun::ProcessRow(bool first) {
    const auto& groups = report_.groups_;
    store::DataSet* data = report_.DataSet;
    const bool grouped = data && !groups.empty();
    if (grouped) {
        if (first) {
            currentKeys_ = GroupKeys();
            openFrom_ = 0;
        }
        for (std::size_t j = openFrom_; j < groups.size(); ++j) {
            if (groups[j]->ForceNewPage && !AtPageTop()) NewPage();
            PrintBand(groups[j].get());
        }
    }
    TQRBand* detail = report_.FindBand(BandKind::Detail);
    if (!detail || PrintBand(detail)) PrintSubDetails();
    if (!grouped) return;

    // A group closes while the cursor still stands on its last row, so that its footer shows
    // that group's fields: the next row is read ahead without moving to it.
    std::optional<std::vector<store::Value>> next;
    data->VisitRowsAround(0, 1, [&](int offset) {
        if (offset == 1) next = GroupKeys();
    });
    openFrom_ = groups.size();
    if (!next) return; // the last row: the run closes every group
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (!((*next)[i] == currentKeys_[i])) {
            openFrom_ = i;
            break;
        }
    }
    // Inner groups close before outer ones; the next row opens them again outer first.
    for (std::size_t j = groups.size(); j > openFrom_; --j)
        PrintBand(groups[j - 1]->Footer());
    currentKeys_ = std::move(*next);
}

void ReportRun::PrintSubDetails() {
    for (const auto& sub : report_.subDetails_) {
        store::DataSet* data = sub->DataSet;
        for (data->First(); !data->Eof(); data->Next())
            PrintBand(sub.get());
    }
}

// ----- bands

std::vector<DrawOp> ReportRun::Render(TQRBand& band, double& height) const {
    std::vector<DrawOp> ops;
    ops.reserve(band.Objects().size());
    height = band.Height;
    const PrintContext context{report_, report_.pageNumber_};
    for (const auto& object : band.Objects()) {
        if (!object->Enabled) continue;
        const std::size_t from = ops.size();
        object->Print(context, ops);
        if (object->Grows())
            for (std::size_t i = from; i < ops.size(); ++i)
                height = std::max(height, OpBottom(ops[i]));
    }
    return ops;
}

bool ReportRun::PrintBand(TQRBand* band, Placement placement, RowKind rowKind) {
    if (!band || !band->Enabled) return false;
    if (band->Kind() != BandKind::Child) rowKind = RowKindOf(band->Kind());
    CheckCancel();
    bool print = true;
    if (band->BeforePrint) band->BeforePrint(*band, print);
    if (print) {
        double height = band->Height;
        if (placement == Placement::Flow && !band->Grows() && y_ + height > bottom_ + kSlack &&
            !AtPageTop())
            NewPage();
        // Totals take the row in only now, once it is certain which page the band lands on.
        if (auto it = totals_.find(band); it != totals_.end())
            for (TQRExpr* expr : it->second)
                expr->Accumulate();
        std::vector<DrawOp> ops = Render(*band, height);
        if (rowKind != RowKind::None)
            for (DrawOp& op : ops)
                if (auto* text = std::get_if<TextOp>(&op)) text->cell.row = rowKind;
        switch (placement) {
        case Placement::Flow:
            FlowPlace(std::move(ops), height);
            break;
        case Placement::Top:
            Emit(ops, y_);
            y_ += height;
            break;
        case Placement::Bottom:
            Emit(ops, footerY_);
            footerY_ += height;
            break;
        }
        for (const auto& object : band->Objects())
            object->AfterBandPrinted();
    }
    if (band->AfterPrint) band->AfterPrint(*band, print);
    if (print && band->Child()) PrintBand(band->Child(), placement, rowKind);
    return print;
}

void ReportRun::Emit(std::vector<DrawOp>& ops, double top) {
    for (DrawOp& op : ops) {
        MoveOp(op, left_, top);
        page_.ops.push_back(std::move(op));
    }
}

// A band that does not fit goes on over the next pages: what fits stays, the rest moves up to the
// top of the next page. Only bands that grow get here without a whole-band page break first.
void ReportRun::FlowPlace(std::vector<DrawOp> ops, double height) {
    for (;;) {
        const double room = bottom_ - y_;
        if (height <= room + kSlack) {
            Emit(ops, y_);
            y_ += height;
            return;
        }
        std::vector<DrawOp> keep, rest;
        for (DrawOp& op : ops)
            (OpBottom(op) <= room + kSlack ? keep : rest).push_back(std::move(op));
        if (keep.empty() && !AtPageTop()) {
            ops = std::move(rest);
            NewPage();
            continue;
        }
        double cut = height;
        for (const DrawOp& op : rest)
            cut = std::min(cut, OpTop(op));
        if (keep.empty() || cut <= kSlack) {
            // Taller than a whole page and not to be divided: it runs off the bottom.
            for (DrawOp& op : rest)
                keep.push_back(std::move(op));
            Emit(keep, y_);
            y_ += height;
            return;
        }
        Emit(keep, y_);
        if (rest.empty()) {
            y_ = bottom_;
            return;
        }
        for (DrawOp& op : rest)
            MoveOp(op, 0, -cut);
        ops = std::move(rest);
        height -= cut;
        NewPage();
    }
}

// ----- pages

void ReportRun::StartPage() {
    const int number = ++report_.pageNumber_;
    page_ = Page{report_.PageWidthPoints(), report_.PageHeightPoints(), {}};
    y_ = top_;
    bodyTop_ = y_;
    bottom_ = page_.height - TenthsMmToPoints(report_.Page.BottomMargin) - footerReserve_;
    if (number > 1 || report_.Options.FirstPageHeader)
        PrintBand(report_.FindBand(BandKind::PageHeader), Placement::Top);
    if (number == 1) PrintBand(report_.FindBand(BandKind::Title), Placement::Top);
    PrintBand(report_.FindBand(BandKind::ColumnHeader), Placement::Top);
    bodyTop_ = y_;
}

void ReportRun::FinishPage(bool withFooter) {
    if (withFooter) {
        footerY_ = page_.height - TenthsMmToPoints(report_.Page.BottomMargin) - footerReserve_;
        PrintBand(report_.FindBand(BandKind::PageFooter), Placement::Bottom);
    }
    document_.AddPage(std::move(page_));
    page_ = Page{};
}

void ReportRun::NewPage() {
    FinishPage(true);
    StartPage();
}

bool ReportRun::AtPageTop() const {
    return y_ <= bodyTop_ + kSlack;
}

void ReportRun::CheckCancel() const {
    if (document_.CancelRequested()) throw Cancelled{};
}

} // namespace corvane::reports
