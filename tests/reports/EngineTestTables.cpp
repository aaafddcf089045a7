#include "EngineTestTables.h"

#include "store/Database.h"

namespace corvane::testing {

using store::FieldType;

const store::TableDef& SalesTable() {
    static const store::TableDef def{
        "Sales",
        {
            {"SaleID", FieldType::AutoInc},
            {"Region", FieldType::String, 10},
            {"Customer", FieldType::String, 30},
            {"Qty", FieldType::Integer},
            {"Price", FieldType::Float},
            {"Amount", FieldType::Currency},
            {"SaleDate", FieldType::Date},
            {"Notes", FieldType::Memo},
        },
        {
            {"", {"SaleID"}, store::ixPrimary | store::ixUnique},
            {"Region", {"Region", "SaleID"}, 0},
        },
    };
    return def;
}

const store::TableDef& SaleItemsTable() {
    static const store::TableDef def{
        "SaleItem",
        {
            {"SaleItemID", FieldType::AutoInc},
            {"SaleID", FieldType::Integer},
            {"Item", FieldType::String, 20},
            {"Amount", FieldType::Currency},
        },
        {
            {"", {"SaleItemID"}, store::ixPrimary | store::ixUnique},
            {"SaleID", {"SaleID", "SaleItemID"}, 0},
        },
    };
    return def;
}

void SalesReportTest::SetUp() {
    CompanyTest::SetUp();
    CreateTable(SalesTable());
    CreateTable(SaleItemsTable());
}

void SalesReportTest::AddSales(int count, int perRegion,
                               const std::function<void(store::Table&, int)>& extra) {
    store::Table t(db_, "Sales");
    t.Open();
    store::Transaction tx(db_, {"Sales"});
    for (int i = 0; i < count; ++i) {
        t.Append();
        t.FieldByName("Region").SetAsString("R" + std::to_string(i / perRegion));
        t.FieldByName("Customer").SetAsString("Customer " + std::to_string(i));
        t.FieldByName("Qty").SetAsInteger(i % 5 + 1);
        t.FieldByName("Price").SetAsFloat(1.25);
        t.FieldByName("Amount").SetAsMoney(Money::FromCents(i * 101));
        t.FieldByName("SaleDate").SetAsDate(Date::FromYmd(2017, 3, 1 + i % 28));
        if (extra) extra(t, i);
        t.Post();
    }
    tx.Commit();
}

void SalesReportTest::AddSaleItem(int saleId, const std::string& item, Money amount) {
    InsertRow("SaleItem", {{"SaleID", saleId}, {"Item", item}, {"Amount", amount}});
}

std::vector<const reports::TextOp*> Texts(const reports::Page& page) {
    std::vector<const reports::TextOp*> texts;
    for (const auto& op : page.ops)
        if (const auto* text = std::get_if<reports::TextOp>(&op)) texts.push_back(text);
    return texts;
}

std::vector<std::string> TextStrings(const reports::Page& page) {
    std::vector<std::string> strings;
    for (const auto* text : Texts(page))
        strings.push_back(text->text);
    return strings;
}

int CountTexts(const reports::Page& page, std::string_view prefix) {
    int count = 0;
    for (const auto* text : Texts(page))
        if (text->text.starts_with(prefix)) ++count;
    return count;
}

const reports::TextOp* FindText(const reports::Page& page, std::string_view text) {
    for (const auto* op : Texts(page))
        if (op->text == text) return op;
    return nullptr;
}

} // namespace corvane::testing
