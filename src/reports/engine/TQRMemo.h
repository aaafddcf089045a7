#pragma once

#include "reports/engine/TQRPrintable.h"

namespace corvane::store {
class Field;
}

namespace corvane::reports {

// Text of several lines, from Lines or from a memo field, wrapped at word boundaries within the
// object's width. Its band grows to hold every line and, when the page is full, goes on over the
// next.
class TQRMemo : public TQRPrintable {
public:
    std::string Lines; // "\n" between paragraphs
    store::DataSet* DataSet = nullptr;
    std::string DataField; // when set, the text comes from this field of DataSet or the band's
    bool WordWrap = true;

    void Bind(BindContext& context) override;
    void Print(const PrintContext&, std::vector<DrawOp>& ops) override;
    bool Grows() const override { return true; }

    // The text as lines that fit the width.
    std::vector<std::string> WrappedLines(const std::string& text) const;

private:
    store::Field* field_ = nullptr;
};

} // namespace corvane::reports
