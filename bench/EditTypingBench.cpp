// Typing one very long word into an edit, a key at a time, as a person or a scenario script
// would: the time per key must not grow with the length of the text.
#include "ui/Application.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessDesktop.h"
#include "ui/HeadlessDialogs.h"
#include "ui/HeadlessHost.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using namespace corvane;

class NoteForm : public ui::Form {
public:
    explicit NoteForm(ui::Application& app) : Form(app, "frmNote") {}
    ui::Edit editNote{*this, "editNote"};
};

void BM_TypeOneLongWord(benchmark::State& state) {
    const std::string word(static_cast<std::size_t>(state.range(0)), 'x');
    for (auto _ : state) {
        ui::HeadlessHost host;
        ui::HeadlessDialogs dialogs;
        ui::HeadlessDesktop desktop;
        ui::Application app{host, dialogs, desktop};
        auto& form = app.CreateForm<NoteForm>();
        form.Show();
        ui::FormDriver d(form);
        d.Focus("editNote");
        d.Type(word);
        if (form.editNote.Text().size() != word.size()) state.SkipWithError("the word was cut");
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_TypeOneLongWord)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

} // namespace
