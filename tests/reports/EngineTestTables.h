#pragma once

#include "reports/page/Page.h"
#include "store/Table.h"
#include "store/TableDef.h"
#include "support/CompanyFixture.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::testing {

// Sales lines made for report tests: Region groups them, Amount is money, Qty a count, Price a
// float, Notes a memo. Index "Region" orders by region, then by entry.
const store::TableDef& SalesTable();
// Items of a sale, linked by SaleID (index "SaleID").
const store::TableDef& SaleItemsTable();

class SalesReportTest : public CompanyTest {
protected:
    void SetUp() override;

    // Row i (from 0): Region "R<i / perRegion>", Customer "Customer <i>", Qty i % 5 + 1,
    // Price 1.25, Amount i dollars and i cents, SaleDate 2017-03-(1 + i % 28).
    void AddSales(int count, int perRegion = 1000,
                  const std::function<void(store::Table&, int)>& extra = {});
    void AddSaleItem(int saleId, const std::string& item, Money amount);
};

// The text operations of a page, in drawing order.
std::vector<const reports::TextOp*> Texts(const reports::Page& page);
std::vector<std::string> TextStrings(const reports::Page& page);
int CountTexts(const reports::Page& page, std::string_view prefix);
const reports::TextOp* FindText(const reports::Page& page, std::string_view text);

} // namespace corvane::testing
