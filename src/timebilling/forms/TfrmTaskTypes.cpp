#include "timebilling/forms/TfrmTaskTypes.h"

#include "core/Exception.h"
#include "timebilling/domain/MasterRules.h"
#include "timebilling/domain/TimeTexts.h"
#include "timebilling/forms/TfrmTaskType.h"
#include "ui/Application.h"

namespace corvane::timebilling {

TfrmTaskTypes::TfrmTaskTypes(ui::Application& app, store::Database& db)
    : ListForm(app, "frmTaskTypes", "Task Types", db, "TaskType", "tblTaskType", "TaskTypeID"),
      mnuSortTypeName(AddSortEntry("mnuSortTypeName", "&Name", "TypeName", "TypeName1")) {
    grdList.AddColumn("TypeName", "Type Name", 200);
    grdList.AddColumn("Rate", "Rate", 90);
    grdList.AddColumn("TaxCodes", "Taxes", 50);
    mnuFilter.Visible = false;
    tblTaskType.BeforeDelete = [this](store::DataSet& ds) {
        const std::string name = ds.FieldByName("TypeName").AsString();
        if (App().MessageDlg(time_text::DeleteQuestion(name), ui::MsgType::Confirmation,
                             {ui::mbYes, ui::mbNo}) != ui::mbYes)
            Abort();
        std::string refusal =
            TaskTypeDeleteRefusal(Db(), ds.FieldByName("TaskTypeID").AsInteger(), name);
        if (!refusal.empty()) throw Exception(refusal);
    };
    mnuSortTypeName.Click();
}

shell::EntryForm& TfrmTaskTypes::Entry() {
    return App().SingleForm<TfrmTaskType>(Db());
}

} // namespace corvane::timebilling
