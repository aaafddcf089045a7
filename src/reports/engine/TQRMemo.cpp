#include "reports/engine/TQRMemo.h"

#include "core/Exception.h"
#include "reports/page/FontMetrics.h"
#include "store/DataSet.h"

namespace corvane::reports {

void TQRMemo::Bind(BindContext& context) {
    if (DataField.empty()) return;
    store::DataSet* source = DataSet ? DataSet : context.dataSet;
    field_ = source ? source->FindField(DataField) : nullptr;
    if (!field_)
        throw Exception("Report field '" + DataField + "' of " + (Name.empty() ? "a memo" : Name) +
                        " does not exist");
}

std::vector<std::string> TQRMemo::WrappedLines(const std::string& text) const {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find('\n', start);
        std::string paragraph = text.substr(start, end == std::string::npos ? end : end - start);
        if (!paragraph.empty() && paragraph.back() == '\r') paragraph.pop_back();
        if (!WordWrap || TextWidth(Font, paragraph) <= Width) {
            lines.push_back(std::move(paragraph));
        } else {
            // Greedy: as many words as fit; a word wider than the box is broken by characters.
            std::string line;
            std::size_t i = 0;
            while (i < paragraph.size()) {
                std::size_t wordEnd = paragraph.find(' ', i);
                if (wordEnd == std::string::npos) wordEnd = paragraph.size();
                const std::string word = paragraph.substr(i, wordEnd - i);
                const std::string candidate = line.empty() ? word : line + " " + word;
                if (TextWidth(Font, candidate) <= Width) {
                    line = candidate;
                } else if (!line.empty()) {
                    lines.push_back(std::move(line));
                    line.clear();
                    continue; // the word starts the next line
                } else {
                    std::size_t cut = 1;
                    while (cut < word.size() && TextWidth(Font, word.substr(0, cut + 1)) <= Width)
                        ++cut;
                    while (cut < word.size() &&
                           (static_cast<unsigned char>(word[cut]) & 0xC0) == 0x80)
                        ++cut;
                    lines.push_back(word.substr(0, cut));
                    i += cut;
                    continue;
                }
                i = wordEnd < paragraph.size() ? wordEnd + 1 : wordEnd;
            }
            if (!line.empty()) lines.push_back(std::move(line));
        }
        if (end == std::string::npos) break;
        start = end + 1;
    }
    return lines;
}

void TQRMemo::Print(const PrintContext&, std::vector<DrawOp>& ops) {
    const std::string text = field_ ? field_->AsString() : Lines;
    const double lineHeight = LineHeight(Font);
    double y = Top;
    for (std::string& line : WrappedLines(text)) {
        ops.emplace_back(MakeText(Rect{Left, y, Width, lineHeight}, std::move(line)));
        y += lineHeight;
    }
}

} // namespace corvane::reports
