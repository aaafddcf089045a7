#include "cli/ScriptRunner.h"

#include "cli/QueryCsv.h"
#include "cli/ScriptParser.h"
#include "cli/ScriptWords.h"
#include "cli/ScriptWorkspace.h"
#include "cli/demo/DemoForms.h"
#include "company/sample/SampleCompany.h"
#include "core/AppFolders.h"
#include "core/IniFile.h"
#include "core/RegionalSettings.h"
#include "program/ProgramForms.h"
#include "reports/preview/RecordingReportOutput.h"
#include "reports/preview/TfrmPreview.h"
#include "shell/main/TfrmCorvane.h"
#include "store/Database.h"
#include "store/Query.h"
#include "store/Session.h"
#include "store/Table.h"
#include "store/tables/CompanyDatabase.h"
#include "ui/Application.h"
#include "ui/Caption.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Form.h"
#include "ui/FormDriver.h"
#include "ui/Grid.h"
#include "ui/HeadlessDesktop.h"
#include "ui/HeadlessDialogs.h"
#include "ui/HeadlessHost.h"
#include "ui/ScriptError.h"

#include <fstream>
#include <map>
#include <ostream>
#include <sstream>

namespace corvane::cli {

namespace {

// A script mistake found while running, with the line it happened on. It is a ScriptError so
// that it passes through the message loop of the forms (a modal block runs inside a click) to the
// top of the script, instead of being shown as the program's own error box.
class LineError : public ui::ScriptError {
public:
    LineError(int line, const std::string& message)
        : ScriptError("line " + std::to_string(line) + ": " + message) {}
};

std::string Quoted(const std::string& text) {
    std::string out = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        // Written as escapes, so that a break or tab in a text shows where it is in the line.
        if (c == '\n')
            out += "\\n";
        else if (c == '\r')
            out += "\\r";
        else if (c == '\t')
            out += "\\t";
        else
            out += c;
    }
    return out + "\"";
}

std::string RowList(const std::vector<std::string>& rows) {
    if (rows.empty()) return "no rows";
    std::string out = std::to_string(rows.size()) + (rows.size() == 1 ? " row:" : " rows:");
    for (const auto& r : rows)
        out += "\n    " + r;
    return out;
}

} // namespace

struct ScriptRunner::State {
    State(const shell::FormRegistry& r, std::ostream& o, std::filesystem::path base)
        : registry(r), out(o), baseDir(std::move(base)) {}

    const shell::FormRegistry& registry;
    std::ostream& out;
    std::filesystem::path baseDir;
    ScriptWorkspace workspace;
    ui::HeadlessHost host;
    ui::HeadlessDialogs dialogs;
    ui::HeadlessDesktop desktop;
    ui::Application app{host, dialogs, desktop};
    // The program's main form, made when the script first needs it (or by "start").
    shell::TfrmCorvane* main = nullptr;
    std::vector<ScriptLine> lines;
    std::string current; // the form the top level of the script works on
    int failures = 0;
    // Lines of the answers and modal blocks queued and not yet used, to name them at the end.
    std::vector<int> answerLines;
    std::map<int, std::string> pendingModals;
    // Every preview prints here; the lines of the print answers queued, and how many printed
    // pages an "expect printed" has already seen.
    reports::RecordingReportOutput printer;
    std::vector<int> printAnswerLines;
    std::vector<int> saveAnswerLines;
    std::size_t printedSeen = 0;

    void RunBlock(const std::vector<ScriptLine>& block, ui::Form* modal);
    void Exec(const ScriptLine& l, ui::Form* modal);
    void Expect(const ScriptLine& l, ui::Form* modal);
    void Company(const ScriptLine& l);
    shell::TfrmCorvane& Main(std::vector<std::string> commandLine = {});
    void Start(const ScriptLine& l);
    void MakeOldCompany(const std::filesystem::path& folder, const std::string& version);
    void OpenCompany(const std::filesystem::path& folder);
    void Menu(const std::string& path);
    void OpenForm(const std::string& name);
    void CheckLeftovers();
    // Corvane.ini as the program reads it: the main form's own copy once it is there.
    IniFile& Settings();
    std::unique_ptr<IniFile> settingsFile;
    void Restart();
    void UseLocale(const std::string& name);
    // The regional settings the script began with, given back at its end.
    FormatSettings savedFormat = ProcessFormatSettings();
    void SetupSql(const std::string& statement);
    reports::TfrmPreview& Preview(ui::Form* modal) const;
    void ExpectReport(const ScriptLine& l, ui::Form* modal);
    void ExpectMail(const ScriptLine& l);
    // How many mails an "expect mail" has already seen.
    std::size_t mailsSeen = 0;

    void Fail(const ScriptLine& l, const std::string& what) {
        ++failures;
        out << "line " << l.Number << ": " << what << "\n";
    }
    void Compare(const ScriptLine& l, const std::string& what, const std::string& expected,
                 const std::string& found) {
        if (expected != found)
            Fail(l, "expected " + what + " " + Quoted(expected) + ", found " + Quoted(found));
    }
    void CompareFlag(const ScriptLine& l, const std::string& name, const std::string& wanted,
                     bool holds, const std::string& otherwise) {
        if (!holds) Fail(l, "expected '" + name + "' " + wanted + ", found " + otherwise);
    }
    store::Database& Db();
    ui::Form& Current(ui::Form* modal) const {
        if (modal) return *modal;
        if (current.empty()) throw ui::ScriptError("No form is open; start with 'open' or 'menu'");
        return app.GetForm(current);
    }
};

ScriptRunner::ScriptRunner(const shell::FormRegistry& registry, std::ostream& out,
                           std::filesystem::path baseDir)
    : state_(std::make_unique<State>(registry, out, std::move(baseDir))) {
    reports::ReportOutput::Install(&state_->printer);
    state_->desktop.Country = ProcessCountryName();
}

ScriptRunner::~ScriptRunner() {
    reports::ReportOutput::Install(nullptr);
    ProcessFormatSettings() = state_->savedFormat;
}

int ScriptRunner::Failures() const {
    return state_->failures;
}

namespace {

// The lines with "$WORK" in their words replaced by the script's temporary folder, so that a
// script can name folders there.
std::vector<ScriptLine> WithWorkFolder(std::vector<ScriptLine> lines, const std::string& root) {
    for (auto& line : lines) {
        for (auto& word : line.Args)
            for (auto at = word.find("$WORK"); at != std::string::npos;
                 at = word.find("$WORK", at + root.size()))
                word.replace(at, 5, root);
        line.Body = WithWorkFolder(std::move(line.Body), root);
    }
    return lines;
}

} // namespace

ScriptResult ScriptRunner::Run(const std::vector<ScriptLine>& lines) {
    // Kept by the runner: queued modal blocks refer to their lines until the end.
    state_->lines = WithWorkFolder(lines, state_->workspace.Root().string());
    try {
        state_->RunBlock(state_->lines, nullptr);
    } catch (const std::exception& e) {
        state_->out << e.what() << "\n";
        return ScriptMalformed;
    }
    state_->CheckLeftovers();
    return state_->failures ? ScriptFailed : ScriptPassed;
}

void ScriptRunner::State::RunBlock(const std::vector<ScriptLine>& block, ui::Form* modal) {
    for (const auto& l : block) {
        try {
            Exec(l, modal);
        } catch (const LineError&) {
            throw;
        } catch (const std::exception& e) {
            throw LineError(l.Number, e.what());
        }
    }
}

shell::TfrmCorvane& ScriptRunner::State::Main(std::vector<std::string> commandLine) {
    if (!main) main = &app.CreateForm<shell::TfrmCorvane>(registry, std::move(commandLine));
    return *main;
}

void ScriptRunner::State::Start(const ScriptLine& l) {
    if (main) throw ui::ScriptError("The program has started already; 'start' comes first");
    std::vector<std::string> commandLine;
    for (const auto& arg : l.Args)
        commandLine.push_back((baseDir / arg).string());
    Main(commandLine);
    app.Run([&] { main->Show(); });
    current = "frmCorvane";
}

void ScriptRunner::State::OpenCompany(const std::filesystem::path& folder) {
    shell::TfrmCorvane& m = Main();
    bool opened = false;
    app.Run([&] { opened = m.OpenCompany("", folder.string()) && m.CheckLogin(); });
    if (!opened)
        throw ui::ScriptError("The company in '" + folder.string() +
                              "' did not open: " + dialogs.LastText());
    m.EnableMainMenus(true);
}

store::Database& ScriptRunner::State::Db() {
    if (!Main().SessionActive()) {
        auto folder = workspace.Root() / "company";
        store::tables::CreateCompanyDatabase(folder.string());
        OpenCompany(folder);
    }
    return main->Database;
}

void ScriptRunner::State::Company(const ScriptLine& l) {
    if (main && main->SessionActive())
        throw ui::ScriptError("The company is already open; 'company' comes first");
    std::filesystem::path folder;
    if (l.Args[0] == "old") {
        MakeOldCompany(baseDir / l.Args[1], l.Args[2]);
        return;
    }
    if (l.Args[0] == "new") {
        folder = l.Args.size() == 2 ? baseDir / l.Args[1] : workspace.Root() / "company";
        store::tables::CreateCompanyDatabase(folder.string());
    } else if (l.Args[0] == "sample") {
        folder = workspace.Root() / "company";
        store::tables::CreateCompanyDatabase(folder.string());
        store::Session session;
        store::Database db(session);
        db.SetDirectory(folder.string());
        db.Open();
        company::GenerateSampleCompany(db);
    } else {
        folder = baseDir / l.Args[1];
    }
    OpenCompany(folder);
}

// A company made by another version of the program: its Company row carries that version mark.
// It is made, not opened.
void ScriptRunner::State::MakeOldCompany(const std::filesystem::path& folder,
                                         const std::string& version) {
    store::tables::CreateCompanyDatabase(folder.string());
    store::Session session;
    store::Database db(session);
    db.SetDirectory(folder.string());
    db.Open();
    store::Table company(db, "Company");
    company.Open();
    company.Append();
    company.FieldByName("CompanyNo").SetAsInteger(1);
    company.FieldByName("CompanyName").SetAsString("Company of version " + version);
    company.FieldByName("FiscalYear").SetAsInteger(2016);
    company.FieldByName("ApplicationVersion").SetAsString(version);
    company.Post();
}

void ScriptRunner::State::Menu(const std::string& path) {
    shell::TfrmCorvane& m = Main();
    ui::MenuItem* item = m.FindMenuItem(path);
    if (!item) throw ui::ScriptError("No menu entry '" + path + "'");
    // The system menus need a company; the scratch one serves a script that named none.
    std::string form = m.FormOfMenu(path);
    if (!form.empty() && !m.SessionActive()) Db();
    ui::FormDriver(m).Click(item->Name());
    ui::Form* opened = form.empty() ? nullptr : app.FindForm(form);
    if (opened && opened->Visible()) current = form;
}

void ScriptRunner::State::OpenForm(const std::string& name) {
    const shell::FormFactory* factory = registry.Find(name);
    if (!factory) throw ui::ScriptError("No form '" + name + "' is registered");
    shell::FormContext ctx{app, Db(), main};
    // As a menu command would: a failure to open is the program's error box.
    app.Run([&] { (*factory)(ctx).Show(); });
    current = name;
}

void ScriptRunner::State::Exec(const ScriptLine& l, ui::Form* modal) {
    const std::string& c = l.Command;
    const auto& a = l.Args;
    if (c == "company") return Company(l);
    if (c == "open") return OpenForm(a[0]);
    if (c == "start") return Start(l);
    if (c == "menu") return Menu(a[0]);
    if (c == "form") {
        app.GetForm(a[0]);
        current = a[0];
        return;
    }
    if (c == "answer" && a[0] == "print") {
        if (a[1] == "cancel") {
            printer.CancelPrint();
        } else {
            reports::RecordingReportOutput::PrintChoice choice;
            choice.copies = ParsePrintCount(a[1]);
            printer.AnswerPrint(choice);
        }
        printAnswerLines.push_back(l.Number);
        return;
    }
    if (c == "answer" && a[0] == "save") {
        if (a[1] == "cancel")
            printer.AnswerSaveFile(std::nullopt);
        else
            printer.AnswerSaveFile((baseDir / a[1]).string());
        saveAnswerLines.push_back(l.Number);
        return;
    }
    if (c == "answer") {
        ui::MsgButton button = *ParseButtonName(a[0]);
        a.size() == 2 ? dialogs.Answer(a[1], button) : dialogs.Answer(button);
        answerLines.push_back(l.Number);
        return;
    }
    if (c == "modal") {
        pendingModals[l.Number] = a[0];
        host.ScriptModal(a[0], [this, &l](ui::Form& form) {
            pendingModals.erase(l.Number);
            RunBlock(l.Body, &form);
        });
        return;
    }
    if (c == "expect") return Expect(l, modal);
    if (c == "settings") return Settings().WriteString(a[1], a[2], a[3]);
    if (c == "restart") return Restart();
    if (c == "setup") return SetupSql(a[1]);
    if (c == "locale") return UseLocale(a[0]);

    ui::FormDriver driver(Current(modal));
    if (c == "set") return driver.EnterText(a[0], a[1]);
    if (c == "cell") return driver.EnterCell(a[0], a[1], a[2]);
    if (c == "type") return driver.Type(a[0]);
    if (c == "key") {
        ui::KeyStroke stroke = ui::ParseShortCut(a.back());
        return a.size() == 2 ? driver.PressKey(a[0], stroke) : driver.PressKey(stroke);
    }
    if (c == "click") return driver.Click(a[0]);
    if (c == "dblclick") return driver.DblClick(a[0]);
    if (c == "focus") return driver.Focus(a[0]);
    if (c == "select") return driver.SelectRow(a[0], *ParseRowIndex(a[1]));
    if (c == "check") return driver.SetChecked(a[0], a[1] == "on");
    if (c == "choose") return driver.Choose(a[0], a[1]);
    if (c == "close") return driver.Close();
    if (c == "wheel") {
        // The wheel is one Up or Down key where the pointer is, whatever the turn.
        driver.Focus(a[0]);
        return driver.PressKey(ui::KeyStroke(a[1] == "down" ? ui::Key::Down : ui::Key::Up));
    }
    throw ui::ScriptError("Unknown command '" + c + "'");
}

namespace {

// The index among the cells of a grid row of the column that shows field or reads title.
std::size_t CellIndex(ui::Grid& grid, std::string_view column) {
    std::size_t index = 0;
    for (const auto& col : grid.Columns) {
        if (!col.Visible) continue;
        if (SameWord(col.FieldName, column) || SameWord(ui::PlainCaption(col.Title), column))
            return index;
        ++index;
    }
    throw ui::ScriptError("No column '" + std::string(column) + "' in grid '" + grid.Name() + "'");
}

constexpr std::int64_t GridRowLimit = 1000;

int CheckedRowCount(const ui::Control& control, std::int64_t count) {
    if (count > GridRowLimit)
        throw ui::ScriptError("'" + control.Name() + "' has " + std::to_string(count) +
                              " rows; 'expect grid' compares at most " +
                              std::to_string(GridRowLimit));
    return static_cast<int>(count);
}

// Every row of the grid as CSV text, read around the current one without moving it. A look-up
// combo gives the rows its drop-down list offers, each its list fields.
std::vector<std::string> GridCsvRows(ui::Control& control) {
    ui::RowWindow window;
    if (auto* combo = dynamic_cast<ui::DBLookupComboBox*>(&control)) {
        store::DataSet* list = combo->ListSource();
        const int n = list && list->Active() ? CheckedRowCount(control, list->RecordCount()) : 0;
        window = combo->ListRows(n, n);
    } else if (auto* grid = dynamic_cast<ui::Grid*>(&control)) {
        const int n = CheckedRowCount(control, grid->DataSet().RecordCount());
        window = grid->Rows(n, n);
    } else {
        throw ui::ScriptError("'" + control.Name() + "' is neither a grid nor a look-up combo");
    }
    std::vector<std::string> rows;
    for (const auto& cells : window.Rows)
        rows.push_back(CsvLine(cells));
    return rows;
}

} // namespace

void ScriptRunner::State::Expect(const ScriptLine& l, ui::Form* modal) {
    const std::string& kind = l.Args[0];
    const auto& a = l.Args;
    if (kind == "message") {
        // The last box since the previous check, so that one check cannot pass on an old box.
        Compare(l, "the message", a[1], dialogs.LastText());
        dialogs.ClearShown();
        return;
    }
    if (kind == "mail") return ExpectMail(l);
    if (kind == "sql") {
        auto found = QueryCsvLines(Db(), a[1]);
        found.erase(found.begin());
        std::vector<std::string> expected(a.begin() + 2, a.end());
        if (found != expected)
            Fail(l,
                 "expected the query to give " + RowList(expected) + "\n  found " + RowList(found));
        return;
    }
    if (kind == "open") {
        ui::Form* form = app.FindForm(a[1]);
        CompareFlag(l, a[1], "open", form && form->Visible(), form ? "hidden" : "no such form");
        return;
    }
    if (kind == "closed") {
        ui::Form* form = app.FindForm(a[1]);
        CompareFlag(l, a[1], "closed", !form || !form->Visible(), "open");
        return;
    }
    if (kind == "setting")
        return Compare(l, "the setting " + a[1] + ", " + a[2], a[3],
                       Settings().ReadString(a[1], a[2], ""));
    if (kind == "preview" || kind == "page" || kind == "printed") return ExpectReport(l, modal);
    ui::Form& form = Current(modal);
    ui::FormDriver driver(form);
    if (kind == "caption") return Compare(l, "the caption", a[1], form.Caption);
    if (kind == "text") return Compare(l, "the text of '" + a[1] + "'", a[2], driver.Text(a[1]));
    if (kind == "enabled" || kind == "disabled") {
        bool enabled = driver.Enabled(a[1]);
        return CompareFlag(l, a[1], kind, enabled == (kind == "enabled"),
                           enabled ? "enabled" : "disabled");
    }
    if (kind == "visible" || kind == "hidden") {
        bool visible = driver.Visible(a[1]);
        return CompareFlag(l, a[1], kind, visible == (kind == "visible"),
                           visible ? "visible" : "hidden");
    }
    if (kind == "checked" || kind == "unchecked") {
        bool checked = driver.Checked(a[1]);
        return CompareFlag(l, a[1], kind, checked == (kind == "checked"),
                           checked ? "checked" : "unchecked");
    }
    if (kind == "focus") {
        form.Get(a[1]);
        return Compare(l, "the focus on", a[1], driver.FocusedName());
    }
    if (kind == "row") {
        auto& grid = form.Get<ui::Grid>(a[1]);
        auto cells = grid.CurrentRow();
        for (std::size_t i = 2; i < a.size(); ++i) {
            auto eq = a[i].find('=');
            std::string column = a[i].substr(0, eq);
            std::size_t index = CellIndex(grid, column);
            if (cells.empty()) {
                Fail(l, "expected a current row in '" + a[1] + "', found none");
                return;
            }
            Compare(l, "'" + column + "' of the current row of '" + a[1] + "'", a[i].substr(eq + 1),
                    index < cells.size() ? cells[index] : "");
        }
        return;
    }
    if (kind == "grid") {
        auto found = GridCsvRows(form.Get<ui::Control>(a[1]));
        std::vector<std::string> expected(a.begin() + 2, a.end());
        if (found != expected)
            Fail(l, "expected grid '" + a[1] + "' to show " + RowList(expected) + "\n  found " +
                        RowList(found));
        return;
    }
    throw ui::ScriptError("Unknown expectation 'expect " + kind + "'");
}

IniFile& ScriptRunner::State::Settings() {
    if (main) return main->Settings();
    // Before the program starts the file is read afresh, as the program will read it.
    settingsFile = std::make_unique<IniFile>(AppFolders().UserSettingsFolder() / "Corvane.ini");
    return *settingsFile;
}

// The program ends as a person ends it (its close, with the questions queued for it) and starts
// again on the same settings, with no company named on its command line.
// The regional settings of a locale, as if the user's computer were set to it.
void ScriptRunner::State::UseLocale(const std::string& name) {
    auto settings = RegionalSettingsOf(name);
    if (!settings) throw ui::ScriptError("Unknown locale '" + name + "'");
    ApplyRegionalSettings(*settings);
    desktop.Country = settings->CountryName;
    if (main) main->CountryName = settings->CountryName.empty() ? "unknown" : settings->CountryName;
}

void ScriptRunner::State::Restart() {
    if (!main) throw ui::ScriptError("The program has not started; 'restart' follows 'start'");
    app.Run([&] { main->Close(); });
    if (main->Visible() || !main->Terminated())
        throw ui::ScriptError("The program did not end: " + dialogs.LastText());
    auto forms = app.Forms();
    for (auto it = forms.rbegin(); it != forms.rend(); ++it)
        app.FreeForm(**it);
    main = nullptr;
    current.clear();
    Main();
    app.Run([&] { main->Show(); });
    current = "frmCorvane";
}

// A fixture a person could not type, written before any form reads the company.
void ScriptRunner::State::SetupSql(const std::string& statement) {
    for (ui::Form* form : app.Forms())
        if (form != main && form->Visible())
            throw ui::ScriptError("'setup sql' comes before the first form opens");
    store::Query query(Db(), statement);
    query.ExecSQL();
}

// The current form when it is a preview, else the one named frmPreview.
reports::TfrmPreview& ScriptRunner::State::Preview(ui::Form* modal) const {
    ui::Form* form = modal ? modal : current.empty() ? nullptr : app.FindForm(current);
    if (auto* preview = dynamic_cast<reports::TfrmPreview*>(form)) return *preview;
    if (auto* preview = dynamic_cast<reports::TfrmPreview*>(app.FindForm("frmPreview")))
        return *preview;
    throw ui::ScriptError("No preview is open");
}

void ScriptRunner::State::ExpectReport(const ScriptLine& l, ui::Form* modal) {
    const std::string& kind = l.Args[0];
    const auto& a = l.Args;
    if (kind == "printed") {
        const std::vector<int>& all = printer.PrintedPages();
        std::vector<int> pages(all.begin() + static_cast<std::ptrdiff_t>(printedSeen), all.end());
        printedSeen = all.size();
        return Compare(l, "the printed pages", PageListText(*ParsePageList(a[1])),
                       PageListText(pages));
    }
    reports::TfrmPreview& preview = Preview(modal);
    if (kind == "preview")
        return Compare(l, "the preview's page count", std::to_string(*ParseRowIndex(a[1])),
                       std::to_string(preview.Document().PageCount()));
    const int page = ParsePrintCount(a[1]);
    if (preview.PageNumber() != page) {
        Fail(l, "expected the preview on page " + a[1] + ", found page " +
                    std::to_string(preview.PageNumber()));
        return;
    }
    const std::string text = preview.pageView.Text();
    if (text.find(a[2]) == std::string::npos)
        Fail(l, "expected page " + a[1] + " to hold " + Quoted(a[2]) + ", found " + Quoted(text));
}

// The last message handed to the mail program since the previous check: its address, its subject
// and the name of the file it carries; "" for none.
void ScriptRunner::State::ExpectMail(const ScriptLine& l) {
    const auto& a = l.Args;
    const auto& mails = desktop.Mails();
    const bool fresh = mails.size() > mailsSeen;
    mailsSeen = mails.size();
    if (a.size() == 2 && a[1].empty()) {
        if (fresh)
            Fail(l, "expected no mail, found one to " + Quoted(mails.back().To) + " about " +
                        Quoted(mails.back().Subject));
        return;
    }
    if (!fresh) {
        Fail(l, "expected a mail to " + Quoted(a[1]) + ", found none sent");
        return;
    }
    const ui::HeadlessDesktop::Mail& mail = mails.back();
    Compare(l, "the mail's address", a[1], mail.To);
    if (a.size() > 2) Compare(l, "the mail's subject", a[2], mail.Subject);
    if (a.size() > 3) {
        const std::filesystem::path file(mail.File);
        Compare(l, "the mail's attachment", a[3], file.filename().string());
        if (!std::filesystem::is_regular_file(file))
            Fail(l, "expected the mail's attachment " + Quoted(mail.File) + " to exist");
    }
}

void ScriptRunner::State::CheckLeftovers() {
    std::size_t unused = dialogs.PendingAnswers();
    for (std::size_t i = answerLines.size() - unused; i < answerLines.size(); ++i) {
        ++failures;
        out << "line " << answerLines[i] << ": expected a message box to answer, found none\n";
    }
    const std::size_t unusedSaves = printer.PendingSaveAnswers();
    for (std::size_t i = saveAnswerLines.size() - unusedSaves; i < saveAnswerLines.size(); ++i) {
        ++failures;
        out << "line " << saveAnswerLines[i] << ": expected the save dialog to answer, found "
            << "none opened\n";
    }
    const std::size_t unusedPrints = printer.PendingAnswers() - unusedSaves;
    for (std::size_t i = printAnswerLines.size() - unusedPrints; i < printAnswerLines.size(); ++i) {
        ++failures;
        out << "line " << printAnswerLines[i] << ": expected the print dialog to answer, found "
            << "none opened\n";
    }
    for (const auto& [line, name] : pendingModals) {
        ++failures;
        out << "line " << line << ": expected the modal form '" << name
            << "' to be shown, found it never was\n";
    }
}

ScriptResult RunScriptText(std::string_view text, const shell::FormRegistry& registry,
                           std::ostream& out, const std::filesystem::path& baseDir) {
    std::vector<ScriptLine> lines;
    try {
        lines = ParseScript(text);
    } catch (const ScriptSyntaxError& e) {
        out << e.what() << "\n";
        return ScriptMalformed;
    }
    ScriptRunner runner(registry, out, baseDir);
    return runner.Run(lines);
}

int RunScriptFile(const std::string& path, std::ostream& out) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        out << path << ": cannot read the script\n";
        return ScriptMalformed;
    }
    std::stringstream text;
    text << in.rdbuf();
    shell::FormRegistry registry;
    program::RegisterProgramForms(registry);
    demo::RegisterDemoForms(registry);
    auto base = std::filesystem::absolute(path).parent_path();
    return RunScriptText(text.str(), registry, out, base);
}

} // namespace corvane::cli
