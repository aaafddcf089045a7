#include "shell/main/FormRegistry.h"

#include "ui/Caption.h"

#include <cctype>

namespace corvane::shell {

void FormRegistry::Register(std::string componentName, FormFactory factory) {
    factories_[std::move(componentName)] = std::move(factory);
}

const FormFactory* FormRegistry::Find(std::string_view componentName) const {
    auto it = factories_.find(componentName);
    return it == factories_.end() ? nullptr : &it->second;
}

void FormRegistry::RegisterListPrinter(std::string listName, ListPrinter printer) {
    listPrinters_[std::move(listName)] = std::move(printer);
}

const ListPrinter* FormRegistry::FindListPrinter(std::string_view listName) const {
    auto it = listPrinters_.find(listName);
    return it == listPrinters_.end() ? nullptr : &it->second;
}

std::vector<std::string> FormRegistry::FormNames() const {
    std::vector<std::string> names;
    for (const auto& [name, factory] : factories_)
        names.push_back(name);
    return names;
}

std::string FormRegistry::NormalMenuPath(std::string_view menuPath) {
    std::string out;
    std::size_t pos = 0;
    while (pos <= menuPath.size()) {
        std::size_t comma = menuPath.find(',', pos);
        if (comma == std::string_view::npos) comma = menuPath.size();
        std::string caption = ui::PlainCaption(menuPath.substr(pos, comma - pos));
        // An entry that opens a dialog shows "..."; a path names it with or without.
        while (caption.ends_with("...") || caption.ends_with(' ') || caption.ends_with('\t'))
            caption.erase(caption.size() - (caption.ends_with("...") ? 3 : 1));
        std::size_t lead = caption.find_first_not_of(" \t");
        caption.erase(0, lead == std::string::npos ? caption.size() : lead);
        for (char& c : caption)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        out += (out.empty() && pos == 0 ? "" : ", ") + caption;
        pos = comma + 1;
    }
    return out;
}

} // namespace corvane::shell
