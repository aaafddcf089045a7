#include "HeadlessApp.h"
#include "core/Exception.h"
#include "store/Table.h"
#include "ui/Form.h"
#include "ui/FormDriver.h"
#include "ui/Grid.h"
#include "ui/ScriptError.h"

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UiCompanyTest;

namespace {

// Voucher lines typed straight into a grid: sequence and amount, with a name worked out.
class LinesForm : public Form {
public:
    LinesForm(Application& app, store::Database& db)
        : Form(app, "frmLines"), tblLines(db, "JVDet") {
        tblLines.AddCalculatedField("Shown", store::FieldType::String, 20);
        tblLines.OnCalcFields = [](store::DataSet& ds) {
            ds.FieldByName("Shown").SetAsString("line " + ds.FieldByName("Seq").AsString());
        };
        tblLines.OnNewRecord = [](store::DataSet& ds) { ds.FieldByName("JVID").SetAsInteger(1); };
        tblLines.BeforePost = [](store::DataSet& ds) {
            if (ds.FieldByName("GLAmount").IsNull()) throw Exception("An amount is needed");
        };
        tblLines.Open();
        grdLines.ReadOnly = false;
        grdLines.AddColumn("Seq").AddColumn("GLAmount").AddColumn("Shown");
        SetLayout(Column{grdLines});
    }
    store::Table tblLines;
    Grid grdLines{*this, "grdLines", tblLines};
};

class GridEditing : public UiCompanyTest {
protected:
    LinesForm& Open() {
        auto& form = app.CreateForm<LinesForm>(db_);
        form.Show();
        form.grdLines.SetFocus();
        return form;
    }
    std::string Stored() {
        store::Table t(db_, "JVDet");
        t.Open();
        std::string rows;
        for (t.First(); !t.Eof(); t.Next())
            rows +=
                t.FieldByName("Seq").AsString() + ":" + t.FieldByName("GLAmount").AsString() + " ";
        return rows;
    }
};

TEST_F(GridEditing, TypingFillsACellAndEnterGoesOnToTheNextCellThenToANewRow) {
    LinesForm& form = Open();
    FormDriver d(form);
    d.Type("7");
    EXPECT_TRUE(form.grdLines.EditorMode());
    EXPECT_EQ(form.grdLines.EditorText(), "7");
    EXPECT_EQ(form.tblLines.State(), store::DataSetState::Insert) << "an empty grid starts a row";
    d.Type("\n");
    EXPECT_EQ(form.grdLines.SelectedIndex(), 1);
    d.Type("12.5\n");
    // The calculated column takes no typing: the row is written and a new one started.
    EXPECT_EQ(Stored(), "7:12.5 ");
    EXPECT_EQ(form.tblLines.State(), store::DataSetState::Insert);
    EXPECT_EQ(form.grdLines.SelectedIndex(), 0);
    // The new row shows below the written one, and counts as a row.
    RowWindow rows = form.grdLines.Rows(5, 5);
    ASSERT_EQ(rows.Rows.size(), 2u);
    EXPECT_EQ(rows.Rows[0][2], "line 7");
    EXPECT_EQ(rows.Current, 1);
    EXPECT_EQ(form.grdLines.RowCount(), 2);
    EXPECT_EQ(form.grdLines.RowIndex(), 1);
}

// In a grid typed into, Tab is a move between cells, as Enter is; it does not leave the grid.
TEST_F(GridEditing, TabMovesFromCellToCellAndStaysInTheGrid) {
    LinesForm& form = Open();
    FormDriver d(form);
    d.Type("3");
    d.PressKey(KeyStroke(Key::Tab));
    EXPECT_EQ(form.grdLines.SelectedIndex(), 1);
    EXPECT_TRUE(form.grdLines.Focused());
    d.Type("40");
    KeyStroke back(Key::Tab);
    back.Mods.Shift = true;
    d.PressKey(back);
    EXPECT_EQ(form.grdLines.SelectedIndex(), 0);
    EXPECT_TRUE(form.grdLines.Focused());
    d.PressKey(KeyStroke(Key::Tab));
    d.PressKey(KeyStroke(Key::Tab));
    EXPECT_EQ(Stored(), "3:40 ");
    EXPECT_TRUE(form.grdLines.Focused());
}

TEST_F(GridEditing, EscapeDropsTheCellsTypingThenTheRow) {
    LinesForm& form = Open();
    FormDriver d(form);
    d.Type("3\n4");
    d.PressKey(Key::Escape);
    EXPECT_FALSE(form.grdLines.EditorMode());
    EXPECT_EQ(form.tblLines.FieldByName("Seq").AsInteger(), 3) << "the written cell stays";
    EXPECT_TRUE(form.tblLines.FieldByName("GLAmount").IsNull());
    d.PressKey(Key::Escape);
    EXPECT_EQ(form.tblLines.State(), store::DataSetState::Browse);
    EXPECT_EQ(Stored(), "");
    // Backspace takes back a character, F2 opens the cell on what it holds.
    d.Type("45");
    d.PressKey(Key::Backspace);
    EXPECT_EQ(form.grdLines.EditorText(), "4");
    d.Type("\n"); // the row is written and a new one started
    EXPECT_EQ(Stored(), ":4 ");
    d.PressKey(Key::Escape); // the untouched new row goes; back on the written one
    d.PressKey(Key::Right);
    d.PressKey(Key::F2);
    EXPECT_EQ(form.grdLines.EditorText(), "4");
}

TEST_F(GridEditing, ARefusedCellOrRowKeepsWhatWasTyped) {
    LinesForm& form = Open();
    FormDriver d(form);
    d.Type("x\n");
    EXPECT_FALSE(dialogs.Shown().empty()) << "a number field refuses letters";
    EXPECT_TRUE(form.grdLines.EditorMode());
    EXPECT_EQ(form.grdLines.EditorText(), "x");
    d.PressKey(Key::Backspace);
    d.Type("2\n");
    // No amount: the row's own check refuses it on the way down, and it stays in insert.
    dialogs.ClearShown();
    d.PressKey(Key::Down);
    ASSERT_FALSE(dialogs.Shown().empty());
    EXPECT_EQ(dialogs.Shown().back().Text, "An amount is needed");
    EXPECT_EQ(form.tblLines.State(), store::DataSetState::Insert);
    EXPECT_EQ(Stored(), "");
    d.Type("9");
    d.PressKey(Key::Down); // writes the cell, then the row, then starts the next
    EXPECT_EQ(Stored(), "2:9 ");
    EXPECT_EQ(form.tblLines.State(), store::DataSetState::Insert);
    d.PressKey(Key::Down); // an untouched new row does not make another
    EXPECT_EQ(form.grdLines.RowCount(), 2);
    d.PressKey(Key::Escape);
    d.PressKey(Key::Up);
    EXPECT_EQ(form.tblLines.FieldByName("Seq").AsInteger(), 2);
}

TEST_F(GridEditing, EditCellWritesThroughTheFieldAndMovingOffTheRowWritesIt) {
    InsertRow("JVDet", {{"JVID", 1}, {"Seq", 1}, {"GLAmount", Money::FromWhole(10)}});
    InsertRow("JVDet", {{"JVID", 1}, {"Seq", 2}, {"GLAmount", Money::FromWhole(20)}});
    LinesForm& form = Open();
    FormDriver d(form);
    form.tblLines.First();
    d.EnterCell("grdLines", "GLAmount", "15");
    EXPECT_EQ(form.tblLines.State(), store::DataSetState::Edit);
    EXPECT_EQ(Stored(), "1:10 2:20 ") << "nothing written while the row is in edit";
    // The other rows still show around the row in edit.
    EXPECT_EQ(form.grdLines.Rows(5, 5).Rows.size(), 2u);
    d.PressKey(Key::Down);
    EXPECT_EQ(Stored(), "1:15 2:20 ");
    EXPECT_EQ(form.tblLines.FieldByName("Seq").AsInteger(), 2);
    EXPECT_THROW(d.EnterCell("grdLines", "Shown", "x"), ScriptError);
    form.grdLines.ReadOnly = true;
    EXPECT_THROW(d.EnterCell("grdLines", "GLAmount", "1"), ScriptError);
}

} // namespace
