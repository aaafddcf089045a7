#include "reports/export/ListExport.h"

#include "core/Exception.h"
#include "reports/export/SheetFormat.h"
#include "reports/export/SheetWriter.h"
#include "reports/preview/ReportOutput.h"
#include "shell/patterns/ListForm.h"
#include "store/DataSet.h"
#include "store/Field.h"
#include "ui/Grid.h"
#include "ui/WaitCursor.h"

#include <fstream>

namespace corvane::reports {

namespace {

constexpr const char* kExportFilter = "Excel files (*.xlsx)|*.xlsx|Text files (*.txt)|*.txt";

// The cell of a field as the list shows it: numbers and dates keep their kind and the field's
// display format; a field that makes its own text (a code shown as a word) is that text.
SheetCell CellOf(const store::Field& field) {
    if (field.IsNull()) return {};
    if (field.OnGetText) return SheetCell::Text(field.DisplayText());
    const store::Value value = field.AsValue();
    const std::string& pattern = field.DisplayFormat;
    switch (value.kind()) {
    case store::Value::Kind::Money:
        return SheetCell::Number(value.Money().ToDouble(),
                                 SheetNumberFormat(pattern.empty() ? "#,##0.00" : pattern));
    case store::Value::Kind::Integer:
        return SheetCell::Number(static_cast<double>(value.Int()), SheetNumberFormat(pattern));
    case store::Value::Kind::Float:
        return SheetCell::Number(value.Float(), SheetNumberFormat(pattern));
    case store::Value::Kind::Date:
        return SheetCell::Date(SheetDateSerial(value.Date()), SheetDateFormat(pattern));
    default:
        return SheetCell::Text(field.DisplayText());
    }
}

std::string TextValue(const std::string& text, bool quote) {
    if (!quote || text.empty()) return text;
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '"') quoted.push_back('"');
        quoted.push_back(c);
    }
    return quoted + '"';
}

// The walk over every row shows nothing in the list's grid until it is over.
class ControlsHeld {
public:
    explicit ControlsHeld(store::DataSet& data) : data_(data) { data_.DisableControls(); }
    ~ControlsHeld() { data_.EnableControls(); }
    ControlsHeld(const ControlsHeld&) = delete;
    ControlsHeld& operator=(const ControlsHeld&) = delete;

private:
    store::DataSet& data_;
};

std::vector<store::Field*> Fields(store::DataSet& data, const ListExport& spec) {
    std::vector<store::Field*> fields;
    for (const ExportColumn& column : spec.columns) {
        store::Field* field = data.FindField(column.field);
        if (!field) throw Exception("The list has no field '" + column.field + "' to export.");
        fields.push_back(field);
    }
    return fields;
}

int WriteText(store::DataSet& data, const ListExport& spec,
              const std::vector<store::Field*>& fields, const std::string& path) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) throw Exception("Could not create the text file " + path + ".");
    auto line = [&](auto&& valueAt) {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (i > 0) out << spec.textSeparator;
            out << TextValue(valueAt(i), spec.quoteText);
        }
        out << "\r\n";
    };
    line([&](std::size_t i) { return spec.columns[i].heading; });
    int rows = 0;
    for (data.First(); !data.Eof(); data.Next(), ++rows)
        line([&](std::size_t i) { return fields[i]->DisplayText(); });
    if (!out.flush()) {
        out.close();
        std::remove(path.c_str());
        throw Exception("Could not write the text file " + path + ".");
    }
    return rows;
}

int WriteSheet(store::DataSet& data, const ListExport& spec,
               const std::vector<store::Field*>& fields, const std::string& path) {
    SheetWriter sheet(path, spec.defaultName.empty() ? "Export" : spec.defaultName);
    std::vector<std::string> headings;
    for (const ExportColumn& column : spec.columns)
        headings.push_back(column.heading);
    sheet.AddHeader(headings);
    std::vector<SheetCell> cells(fields.size());
    int rows = 0;
    for (data.First(); !data.Eof(); data.Next(), ++rows) {
        for (std::size_t i = 0; i < fields.size(); ++i)
            cells[i] = CellOf(*fields[i]);
        sheet.AddRow(cells);
    }
    sheet.Finish();
    return rows;
}

} // namespace

std::vector<ExportColumn> GridColumns(const ui::Grid& grid) {
    std::vector<ExportColumn> columns;
    for (const ui::GridColumn& column : grid.Columns)
        if (column.Visible)
            columns.push_back(
                {column.Title.empty() ? column.FieldName : column.Title, column.FieldName});
    return columns;
}

int ExportRows(store::DataSet& data, const ListExport& spec, const std::string& path) {
    const std::vector<store::Field*> fields = Fields(data, spec);
    ControlsHeld held(data);
    return FileExtension(path) == "txt" ? WriteText(data, spec, fields, path)
                                        : WriteSheet(data, spec, fields, path);
}

bool ExportList(shell::ListForm& list, const ListExport& spec) {
    const std::optional<std::string> path = ReportOutput::Current().SaveFileName(
        "Export", (spec.defaultName.empty() ? "Export" : spec.defaultName) + ".xlsx",
        kExportFilter);
    if (!path) return false;
    ui::WaitCursor wait(list.App());
    store::DataSet& data = list.MainDataSet();
    const std::vector<store::Value> key =
        data.IsEmpty() ? std::vector<store::Value>{} : list.CurrentKey();
    try {
        ExportRows(data, spec, *path);
    } catch (...) {
        if (!key.empty()) data.Locate(list.KeyFields(), key);
        throw;
    }
    if (!key.empty()) data.Locate(list.KeyFields(), key);
    return true;
}

} // namespace corvane::reports
