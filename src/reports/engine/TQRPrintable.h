#pragma once

#include "reports/engine/Expression.h"
#include "reports/page/Page.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane::store {
class DataSet;
class Value;
} // namespace corvane::store

namespace corvane::reports {

class TQuickRep;
class TQRBand;
class TQRExpr;

// What a print object may ask while the report binds it, before the first row: the dataset its
// plain field names belong to, and the band whose printing feeds its totals.
struct BindContext {
    TQuickRep& report;
    TQRBand& band;
    store::DataSet* dataSet = nullptr;
    TQRBand* defaultMaster = nullptr;
    FieldResolver resolver;
    std::function<void(TQRBand& master, TQRExpr& expr)> registerTotal;
};

// What a print object may ask while its band prints.
struct PrintContext {
    const TQuickRep& report;
    int pageNumber = 0;
};

// An object placed on a band: its box is in points from the band's top left corner. Objects draw
// themselves as page operations relative to the band; the engine moves them to where the band
// lands on the page.
class TQRPrintable {
public:
    virtual ~TQRPrintable() = default;

    std::string Name;
    double Left = 0, Top = 0, Width = 72, Height = 12;
    reports::Font Font;
    Align Alignment = Align::Left;
    reports::Color Color;
    // The box takes the width of the text it shows, keeping its left edge, right edge or centre
    // as the alignment says; otherwise text wider than the box is cut at the box's edge.
    bool AutoSize = false;
    bool Enabled = true;

    void SetBounds(double left, double top, double width, double height);

    // Finds fields and compiles expressions; a bad name throws before any page is made.
    virtual void Bind(BindContext&) {}
    virtual void Print(const PrintContext& context, std::vector<DrawOp>& ops) = 0;
    // An object whose height depends on its content (a memo): its band grows to hold it and may
    // go on over the next page.
    virtual bool Grows() const { return false; }
    // Called once the band that holds the object has printed.
    virtual void AfterBandPrinted() {}

protected:
    // One line of text in the object's box, fitted and aligned.
    TextOp MakeText(const Rect& box, std::string text) const;
    void AddText(std::vector<DrawOp>& ops, std::string text) const;
    // A text that shows a value: a spreadsheet of the report gets the number or date behind it,
    // shown through the spreadsheet's form of pattern (the mask or display format it printed
    // through; for amounts without one, two decimals with thousands).
    void AddValueText(std::vector<DrawOp>& ops, std::string text, const store::Value& value,
                      const std::string& pattern) const;

private:
    // The spreadsheet formats of the last pattern, made once for all the rows.
    mutable std::string sheetPattern_;
    mutable std::shared_ptr<const std::string> sheetNumber_, sheetDate_;
};

// The band-relative top and bottom of a drawing operation, and the operation moved.
double OpTop(const DrawOp& op);
double OpBottom(const DrawOp& op);
void MoveOp(DrawOp& op, double dx, double dy);

} // namespace corvane::reports
