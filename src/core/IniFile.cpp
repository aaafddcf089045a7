#include "core/IniFile.h"

#include "core/Exception.h"
#include "core/Text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <sstream>

#include <unistd.h>

namespace corvane {

namespace {

bool SameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

} // namespace

IniFile::IniFile(std::filesystem::path path) : path_(std::move(path)) {
    Reload();
}

void IniFile::Reload() {
    sections_.clear();
    std::ifstream in(path_, std::ios::binary);
    if (!in) return;
    Section* current = nullptr;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        std::string_view text = TrimBlanks(line);
        if (text.empty() || text.front() == ';') continue;
        if (text.front() == '[') {
            std::size_t close = text.find(']');
            std::string_view name =
                TrimBlanks(text.substr(1, close == std::string_view::npos ? text.npos : close - 1));
            current = &SectionFor(name);
            continue;
        }
        std::size_t eq = text.find('=');
        // Lines before the first section or without a key are not settings; the file is still
        // usable when somebody edited it by hand.
        if (!current || eq == std::string_view::npos) continue;
        std::string_view key = TrimBlanks(text.substr(0, eq));
        if (key.empty()) continue;
        auto same = [&](const Entry& e) { return SameName(e.Key, key); };
        // As with the system's own settings files, the first of two equal keys is the one read.
        if (std::any_of(current->Entries.begin(), current->Entries.end(), same)) continue;
        current->Entries.push_back(
            {std::string(key), std::string(TrimBlanks(text.substr(eq + 1)))});
    }
}

const IniFile::Section* IniFile::FindSection(std::string_view name) const {
    auto it = std::find_if(sections_.begin(), sections_.end(),
                           [&](const Section& s) { return SameName(s.Name, name); });
    return it == sections_.end() ? nullptr : &*it;
}

IniFile::Section* IniFile::FindSection(std::string_view name) {
    auto it = std::find_if(sections_.begin(), sections_.end(),
                           [&](const Section& s) { return SameName(s.Name, name); });
    return it == sections_.end() ? nullptr : &*it;
}

IniFile::Section& IniFile::SectionFor(std::string_view name) {
    if (Section* found = FindSection(name)) return *found;
    sections_.push_back({std::string(name), {}});
    return sections_.back();
}

bool IniFile::SectionExists(std::string_view section) const {
    return FindSection(section) != nullptr;
}

bool IniFile::ValueExists(std::string_view section, std::string_view key) const {
    const Section* s = FindSection(section);
    return s && std::any_of(s->Entries.begin(), s->Entries.end(),
                            [&](const Entry& e) { return SameName(e.Key, key); });
}

std::string IniFile::ReadString(std::string_view section, std::string_view key,
                                std::string_view defaultValue) const {
    if (const Section* s = FindSection(section))
        for (const Entry& e : s->Entries)
            if (SameName(e.Key, key)) return e.Value;
    return std::string(defaultValue);
}

int IniFile::ReadInteger(std::string_view section, std::string_view key, int defaultValue) const {
    if (!ValueExists(section, key)) return defaultValue;
    std::string text = ReadString(section, key, {});
    const char* first = text.data();
    const char* last = first + text.size();
    if (first != last && *first == '+') ++first;
    int value = 0;
    auto [end, error] = std::from_chars(first, last, value);
    if (error != std::errc() || end != last || first == last) return defaultValue;
    return value;
}

bool IniFile::ReadBool(std::string_view section, std::string_view key, bool defaultValue) const {
    return ReadInteger(section, key, defaultValue ? 1 : 0) != 0;
}

std::vector<std::string> IniFile::ReadSection(std::string_view section) const {
    std::vector<std::string> keys;
    if (const Section* s = FindSection(section))
        for (const Entry& e : s->Entries)
            keys.push_back(e.Key);
    return keys;
}

void IniFile::WriteString(std::string_view section, std::string_view key, std::string_view value) {
    Section& s = SectionFor(section);
    auto it = std::find_if(s.Entries.begin(), s.Entries.end(),
                           [&](const Entry& e) { return SameName(e.Key, key); });
    if (it == s.Entries.end())
        s.Entries.push_back({std::string(key), std::string(value)});
    else
        it->Value = std::string(value);
    Save();
}

void IniFile::WriteInteger(std::string_view section, std::string_view key, int value) {
    WriteString(section, key, std::to_string(value));
}

void IniFile::WriteBool(std::string_view section, std::string_view key, bool value) {
    WriteString(section, key, value ? "1" : "0");
}

void IniFile::DeleteKey(std::string_view section, std::string_view key) {
    Section* found = FindSection(section);
    if (!found) return;
    auto& entries = found->Entries;
    auto end = std::remove_if(entries.begin(), entries.end(),
                              [&](const Entry& e) { return SameName(e.Key, key); });
    if (end == entries.end()) return;
    entries.erase(end, entries.end());
    Save();
}

void IniFile::EraseSection(std::string_view section) {
    auto end = std::remove_if(sections_.begin(), sections_.end(),
                              [&](const Section& s) { return SameName(s.Name, section); });
    if (end == sections_.end()) return;
    sections_.erase(end, sections_.end());
    Save();
}

void IniFile::Save() const {
    std::ostringstream out;
    for (std::size_t i = 0; i < sections_.size(); ++i) {
        if (i > 0) out << '\n';
        out << '[' << sections_[i].Name << "]\n";
        for (const Entry& e : sections_[i].Entries)
            out << e.Key << '=' << e.Value << '\n';
    }
    std::string text = out.str();

    // The new text goes to a file beside the old one, reaches the disk, and only then takes the
    // old one's place: a crash leaves either the old settings or the new, never a torn file.
    // The process id keeps two copies of the program from writing into one temporary file.
    std::filesystem::path temp = path_;
    temp += "." + std::to_string(::getpid()) + ".tmp";
    auto fail = [&] { throw Exception("Could not write the settings file " + path_.string()); };
    std::FILE* file = std::fopen(temp.c_str(), "wb");
    if (!file) fail();
    bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size() &&
                   std::fflush(file) == 0 && ::fsync(::fileno(file)) == 0;
    if (std::fclose(file) != 0) written = false;
    std::error_code error;
    if (written) std::filesystem::rename(temp, path_, error);
    if (!written || error) {
        std::filesystem::remove(temp, error);
        fail();
    }
}

} // namespace corvane
