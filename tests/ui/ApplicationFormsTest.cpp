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
    ~ScratchForm() override { ++Destroyed; }
    Button btnDone{*this, "btnDone", "Done"};
    static inline int Destroyed = 0;
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

// Its handler is still running, so the object stays; its name is free at once, so that the same
// event can make the next one (a dialog shown, freed and shown again from one click).
TEST_F(Forms, AFormThatFreesItselfLivesUntilItsEventIsOverButItsNameIsFreeAtOnce) {
    ScratchForm::Destroyed = 0;
    auto& scratch = app.CreateForm<ScratchForm>();
    scratch.Show();
    int destroyedInEvent = -1;
    bool foundInEvent = true;
    app.Run([&] {
        FormDriver(scratch).Click("btnDone");
        destroyedInEvent = ScratchForm::Destroyed;
        foundInEvent = app.FindForm("frmScratch") != nullptr;
        app.CreateForm<ScratchForm>().Show();
    });
    EXPECT_EQ(destroyedInEvent, 0);
    EXPECT_FALSE(foundInEvent);
    EXPECT_EQ(ScratchForm::Destroyed, 1);
    EXPECT_NE(app.FindForm("frmScratch"), nullptr); // the second one
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
