#include "HeadlessApp.h"
#include "core/Exception.h"
#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/FormDriver.h"
#include "ui/ScriptError.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UiTest;

namespace {

class FindForm : public Form {
public:
    explicit FindForm(Application& app) : Form(app, "frmJVsFind") {
        btnOK.ModalResult = mrOK;
        btnOK.Default = true;
        btnCancel.ModalResult = mrCancel;
        btnCancel.Cancel = true;
        SetLayout(Column{FormRow{"JV Number", editJVNumber}, ButtonRow{btnOK, btnCancel}});
        btnOK.OnClick = [this] {
            if (editJVNumber.Text().empty()) {
                editJVNumber.SetFocus();
                throw Exception("Field 'JV Number' must have a value");
            }
        };
    }
    Edit editJVNumber{*this, "editJVNumber"};
    Button btnOK{*this, "btnOK", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};
};

using ModalForms = UiTest;

TEST_F(ModalForms, AScriptPlaysTheUserAndShowModalReturnsTheResult) {
    FindForm form(app);
    host.ScriptModal("frmJVsFind", [this](Form& f) {
        FormDriver d(f);
        int refreshes = host.EventsDone();
        d.Click("btnOK"); // refused: the form stays open and says why
        EXPECT_TRUE(f.Visible());
        EXPECT_EQ(host.EventsDone(), refreshes + 1)
            << "the dialog is redrawn after each event in it";
        d.EnterText("editJVNumber", "1042");
        d.PressKey(Key::Enter);
    });
    app.Run([&] { EXPECT_EQ(form.ShowModal(), mrOK); });
    EXPECT_EQ(form.editJVNumber.Text(), "1042");
    EXPECT_EQ(dialogs.LastText(), "Field 'JV Number' must have a value");
    EXPECT_EQ(host.Log(), (std::vector<std::string>{"modal frmJVsFind", "hide frmJVsFind"}));

    // Kept, not destroyed: the next showing starts with the last criteria.
    host.ScriptModal("frmJVsFind", [](Form& f) {
        EXPECT_EQ(FormDriver(f).Text("editJVNumber"), "1042");
        FormDriver(f).Click("btnCancel");
    });
    EXPECT_EQ(form.ShowModal(), mrCancel);
}

TEST_F(ModalForms, CloseQueryAsksAndCanKeepTheFormOpen) {
    FindForm form(app);
    form.OnCloseQuery = [&](bool& canClose) {
        MsgButton answer = app.MessageDlg("Do you want to save changes?", MsgType::Confirmation,
                                          {mbYes, mbNo, mbCancel});
        canClose = answer != mbCancel;
    };
    dialogs.Answer("Do you want to save changes?", mbCancel);
    dialogs.Answer("Do you want to save changes?", mbNo);
    host.ScriptModal("frmJVsFind", [](Form& f) {
        FormDriver d(f);
        d.Close();
        EXPECT_TRUE(f.Visible());
        EXPECT_EQ(f.ModalResult(), mrNone);
        d.Close();
    });
    EXPECT_EQ(form.ShowModal(), mrCancel);
    EXPECT_EQ(dialogs.PendingAnswers(), 0u);
    ASSERT_EQ(dialogs.Shown().size(), 2u);
    EXPECT_EQ(dialogs.Shown()[0].Buttons, MsgButtons({mbYes, mbNo, mbCancel}));
    EXPECT_EQ(dialogs.Shown()[0].DefaultButton, mbYes);
}

TEST_F(ModalForms, AMissingScriptOrAFormLeftOpenIsAScriptError) {
    FindForm form(app);
    try {
        form.ShowModal();
        FAIL() << "a modal form without a script ran";
    } catch (const ScriptError& e) {
        EXPECT_STREQ(e.what(), "No script for the modal form 'frmJVsFind'");
    }
    EXPECT_FALSE(form.Visible());
    EXPECT_FALSE(form.IsModal());

    host.ScriptModal("frmJVsFind", [](Form& f) { FormDriver(f).EnterText("editJVNumber", "1"); });
    EXPECT_THROW(form.ShowModal(), ScriptError);
    EXPECT_FALSE(form.Visible());
}

TEST_F(ModalForms, QuestionsNeedScriptedAnswersThatTheBoxOffers) {
    try {
        app.MessageDlg("Delete 'Acme'?", MsgType::Confirmation, {mbYes, mbNo});
        FAIL() << "an unscripted question was answered";
    } catch (const ScriptError& e) {
        EXPECT_STREQ(e.what(), "No answer scripted for message: Delete 'Acme'?");
    }

    dialogs.Answer(mbRetry);
    EXPECT_THROW(app.MessageDlg("Delete 'Acme'?", MsgType::Confirmation, {mbYes, mbNo}),
                 ScriptError);

    dialogs.Answer("Close application?", mbYes);
    EXPECT_THROW(app.MessageDlg("Delete 'Acme'?", MsgType::Confirmation, {mbYes, mbNo}),
                 ScriptError);

    dialogs.Answer(mbNo);
    EXPECT_EQ(app.MessageDlg("Delete 'Acme'?", MsgType::Confirmation, {mbYes, mbNo}, mbNo), mbNo);
    EXPECT_EQ(dialogs.Shown().back().DefaultButton, mbNo);

    // A box with one button asks nothing.
    app.ShowMessage("Backup complete");
    EXPECT_EQ(dialogs.Shown().back().Type, MsgType::Plain);
    EXPECT_EQ(dialogs.Shown().back().Title, app.Title);
}

TEST_F(ModalForms, AShowingFormCannotBeMadeModal) {
    FindForm form(app);
    form.Show();
    EXPECT_THROW(form.ShowModal(), Exception);
    EXPECT_TRUE(form.Visible());
}

} // namespace
