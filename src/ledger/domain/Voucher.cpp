#include "ledger/domain/Voucher.h"

#include "core/Text.h"
#include "ledger/domain/VoucherTexts.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Query.h"
#include "store/Table.h"

namespace corvane::ledger {

namespace text = voucher_text;

bool VoucherVerdict::InLines() const {
    switch (Fault) {
    case VoucherFault::NoLines:
    case VoucherFault::NoDebits:
    case VoucherFault::NoCredits:
    case VoucherFault::OutOfBalance:
    case VoucherFault::NoAmounts:
        return true;
    default:
        return false;
    }
}

bool VoucherVerdict::WantsNewLine() const {
    return Fault == VoucherFault::NoDebits || Fault == VoucherFault::NoCredits;
}

VoucherVerdict ValidateVoucher(const CompanyPeriods& company, const VoucherFacts& facts,
                               bool periodWarningConfirmed) {
    PeriodVerdict period = JudgePeriod(company, facts.VoucherPeriod);
    if (period.Verdict == PeriodVerdict::Kind::Refused)
        return {VoucherFault::PeriodRefused, period.Message};
    if (period.Verdict == PeriodVerdict::Kind::Warning && !periodWarningConfirmed)
        return {VoucherFault::PeriodWarning, period.Message};
    if (TrimBlanks(facts.Description).empty())
        return {VoucherFault::NoDescription, text::NoDescription};
    if (!facts.HasLines) return {VoucherFault::NoLines, text::NoLines};
    if (facts.Debits.IsZero()) return {VoucherFault::NoDebits, text::NoDebits};
    if (facts.Credits.IsZero()) return {VoucherFault::NoCredits, text::NoCredits};
    if (!(facts.Debits + facts.Credits).IsZero())
        return {VoucherFault::OutOfBalance, text::OutOfBalance};
    // Behind the others as a last guard: a voucher whose lines cancel to nothing.
    if (facts.Amount.IsZero()) return {VoucherFault::NoAmounts, text::NoAmounts};
    return {};
}

namespace {

// What the post itself would refuse is refused before the lines are written.
void CheckRequiredFields(const store::DataSet& header) {
    for (const auto& field : header.Fields())
        if (field->Required && field->IsNull() && field->DataType() != store::FieldType::AutoInc)
            store::ThrowEngineError(store::errRequiredField,
                                    "Field '" + field->Label() + "' must have a value");
}

void DropSavedLines(store::Database& db, const store::Value& id) {
    store::Query drop(db, "DELETE FROM JVDet WHERE JVID = :JVID");
    drop.ParamByName("JVID").SetValue(id);
    drop.ExecSQL();
}

} // namespace

void SaveVoucher(store::Table& header, store::DataSet& lines) {
    store::Database& db = header.OwnerDatabase();
    CheckRequiredFields(header);
    store::Transaction save(db, {"JV", "JVDet"});
    const store::Value id = header.FieldByName("JVID").AsValue();
    DropSavedLines(db, id);
    store::Table saved(db, "JVDet");
    saved.Open();
    for (lines.First(); !lines.Eof(); lines.Next()) {
        saved.Append();
        for (const store::FieldDef& field : saved.Definition().Fields)
            if (const store::Field* typed = lines.FindField(field.Name))
                saved.FieldByName(field.Name).SetValue(typed->AsValue());
        saved.FieldByName("JVID").SetValue(id);
        saved.Post();
    }
    saved.Close();
    header.Post();
    save.Commit();
}

std::string VoucherDeleteRefusal(store::DataSet& header) {
    std::string refusal =
        "Unable to delete JV '" + header.FieldByName("JVNumber").AsString() + "'...\n";
    if (header.FieldByName("Source").AsString() != "GL") return refusal + text::NotGLSource;
    if (header.FieldByName("Posted").AsBoolean()) return refusal + text::AlreadyPosted;
    return {};
}

void DeleteVoucher(store::Table& header) {
    store::Database& db = header.OwnerDatabase();
    store::Transaction remove(db, {"JV", "JVDet"});
    // The lines go with their voucher; a line without one would never be posted or seen.
    DropSavedLines(db, header.FieldByName("JVID").AsValue());
    header.Delete();
    remove.Commit();
}

} // namespace corvane::ledger
