#include "HeadlessApp.h"
#include "core/Exception.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/FormDriver.h"
#include "ui/ScriptError.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UiTest;

namespace {

class VendorsForm : public Form {
public:
    explicit VendorsForm(Application& app) : Form(app, "frmVendors") {
        ++Made;
        OnCreate = [this] { ++Created; };
        OnShow = [this] { ++Shown; };
    }
    ~VendorsForm() override { ++Destroyed; }
    int Created = 0, Shown = 0;
    static inline int Made = 0, Destroyed = 0;
};

class ScratchForm : public Form {
public:
    explicit ScratchForm(Application& app) : Form(app, "frmScratch") {
        btnDone.OnClick = [this] { Close(); };
        OnClose = [](CloseAction& action) { action = CloseAction::Free; };
    }
    Button btnDone{*this, "btnDone", "Done"};
};

class Forms : public UiTest {
protected:
    void SetUp() override { VendorsForm::Made = VendorsForm::Destroyed = 0; }
};

TEST_F(Forms, AFormIsMadeOnceAndFoundByItsComponentName) {
    auto& first = app.SingleForm<VendorsForm>();
    auto& second = app.SingleForm<VendorsForm>();
    EXPECT_EQ(&first, &second);
    EXPECT_EQ(VendorsForm::Made, 1);
    EXPECT_EQ(app.FindForm("frmVendors"), &first);
    EXPECT_EQ(app.FindForm("frmCustomers"), nullptr);
    EXPECT_EQ(app.Forms(), (std::vector<Form*>{&first}));
    // Made under the hourglass, created once, shown each time it comes up.
    EXPECT_EQ(host.WaitCursorChanges(), (std::vector<bool>{true, false}));
    first.Show();
    first.Show();
    first.Hide();
    first.Show();
    EXPECT_EQ(first.Created, 1);
    EXPECT_EQ(first.Shown, 2);

    // A second form of the same name is a mistake in the program.
    EXPECT_THROW(app.CreateForm<VendorsForm>(), Exception);
    EXPECT_EQ(app.Forms().size(), 1u);
    EXPECT_THROW(app.GetForm("frmCustomers"), ScriptError);
}

TEST_F(Forms, AFormThatFreesItselfLivesUntilItsEventIsOver) {
    auto& scratch = app.CreateForm<ScratchForm>();
    scratch.Show();
    bool stillThere = false;
    app.Run([&] {
        FormDriver(scratch).Click("btnDone");
        stillThere = app.FindForm("frmScratch") != nullptr;
    });
    EXPECT_TRUE(stillThere);
    EXPECT_EQ(app.FindForm("frmScratch"), nullptr);
}

TEST_F(Forms, TheApplicationDestroysTheFormsItMadeAndOnlyThose) {
    {
        HeadlessApp other;
        other.app.CreateForm<VendorsForm>();
        Form local(other.app, "frmLocal");
        other.app.FreeForm(local); // made by the test, so the test's to destroy
        EXPECT_EQ(other.app.FindForm("frmLocal"), &local);
    }
    EXPECT_EQ(VendorsForm::Destroyed, 1);
}

} // namespace
