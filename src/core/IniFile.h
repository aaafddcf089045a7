#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

// A settings file of sections and "key=value" lines, as Corvane.ini is kept. Section and key
// names are compared without regard to letter case; the file keeps the order and spelling in
// which they were first written. Every write goes to disk at once (through a temporary file that
// replaces the old one), so a crash never leaves half a file. Booleans are written 1 and 0; on
// reading, anything other than an integer counts as the default.
class IniFile {
public:
    // Reads the file if it exists; a missing file is an empty one, made at the first write.
    explicit IniFile(std::filesystem::path path);

    const std::filesystem::path& Path() const { return path_; }

    bool SectionExists(std::string_view section) const;
    bool ValueExists(std::string_view section, std::string_view key) const;
    std::string ReadString(std::string_view section, std::string_view key,
                           std::string_view defaultValue) const;
    int ReadInteger(std::string_view section, std::string_view key, int defaultValue) const;
    bool ReadBool(std::string_view section, std::string_view key, bool defaultValue) const;
    // The key names of a section, in file order.
    std::vector<std::string> ReadSection(std::string_view section) const;

    void WriteString(std::string_view section, std::string_view key, std::string_view value);
    void WriteInteger(std::string_view section, std::string_view key, int value);
    void WriteBool(std::string_view section, std::string_view key, bool value);
    void DeleteKey(std::string_view section, std::string_view key);
    void EraseSection(std::string_view section);

    // Reads the file again, for changes another program made.
    void Reload();

private:
    struct Entry {
        std::string Key;
        std::string Value;
    };
    struct Section {
        std::string Name;
        std::vector<Entry> Entries;
    };
    const Section* FindSection(std::string_view name) const;
    Section* FindSection(std::string_view name);
    Section& SectionFor(std::string_view name);
    void Save() const;

    std::filesystem::path path_;
    std::vector<Section> sections_;
};

} // namespace corvane
