#include "timebilling/domain/MasterRules.h"

#include "store/DataSet.h"
#include "store/Database.h"
#include "store/Query.h"
#include "timebilling/domain/RecordValues.h"
#include "timebilling/domain/TimeTexts.h"

#include <cctype>

namespace corvane::timebilling {

namespace text = time_text;

Verdict CheckEmployee(store::Database&, store::DataSet& employee) {
    if (Blank(employee.FieldByName("EmployeeName")))
        return Verdict::Refuse(text::MustHaveValue("Employee Name"), "EmployeeName");
    return Verdict::Accept();
}

std::string NormalTaxCodes(std::string typed) {
    std::string codes;
    for (char c : typed)
        if (c != ' ' && codes.size() < 3)
            codes += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return codes;
}

Verdict CheckTaskType(store::Database& db, store::DataSet& taskType) {
    if (Blank(taskType.FieldByName("TypeName")))
        return Verdict::Refuse(text::MustHaveValue("Type Name"), "TypeName");
    const store::Field& account = taskType.FieldByName("SalesGLAccountID");
    if (account.IsNull())
        return Verdict::Refuse(text::MustHaveValue("Sales GL Account"), "SalesGLAccountID");
    if (!RowExists(db, "GLAccnt", "GLAccountID", account.AsValue()))
        return Verdict::Refuse(text::AccountGone, "SalesGLAccountID");
    const std::string codes = NormalTaxCodes(taskType.FieldByName("TaxCodes").AsString());
    for (char code : codes)
        if (!RowExists(db, "Tax", "TaxCode", store::Value(std::string(1, code))))
            return Verdict::Refuse(text::TaxCodeMissing(code), "TaxCodes");
    for (std::size_t i = 0; i < codes.size(); ++i)
        if (codes.find(codes[i], i + 1) != std::string::npos)
            return Verdict::Refuse(text::TaxCodeTwice(codes[i]), "TaxCodes");
    return Verdict::Accept();
}

std::string TaskTypeDeleteRefusal(store::Database& db, std::int64_t taskTypeId,
                                  const std::string& name) {
    if (RowExists(db, "Task", "TaskTypeID", store::Value(taskTypeId)))
        return text::UnableToDelete(name, text::TasksExistForType);
    return {};
}

} // namespace corvane::timebilling
