#include "reports/page/PageText.h"

#include "reports/page/FontMetrics.h"

namespace corvane::reports {

TextOp ResolvePageTotal(const TextOp& op, int pageCount) {
    auto at = op.text.find(kPageTotalToken);
    if (at == std::string::npos) return op;
    TextOp resolved = op;
    const std::string total = std::to_string(pageCount);
    while (at != std::string::npos) {
        resolved.text.replace(at, kPageTotalToken.size(), total);
        at = resolved.text.find(kPageTotalToken, at + total.size());
    }
    const double width = TextWidth(op.font, resolved.text);
    if (op.align == Align::Right) resolved.x = op.box.Right() - width;
    if (op.align == Align::Center) resolved.x = op.box.left + (op.box.width - width) / 2;
    return resolved;
}

} // namespace corvane::reports
