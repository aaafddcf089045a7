#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <regex>
#include <string>

namespace corvane::testing {

// A cell of a written workbook as its sheet's XML holds it: a number (its value and the number
// format of its style), or text.
struct SheetXmlCell {
    bool number = false;
    std::string value;  // the number as written, or the text
    std::string format; // the number format's code; empty for the general one
};

// One file of an .xlsx (a zip), read with unzip as any reader would take it apart.
inline std::string ZipMember(const std::string& xlsx, const std::string& member) {
    std::string bytes;
    std::FILE* pipe = popen(("unzip -p '" + xlsx + "' '" + member + "' 2>/dev/null").c_str(), "r");
    if (!pipe) return bytes;
    char buffer[4096];
    std::size_t read = 0;
    while ((read = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
        bytes.append(buffer, read);
    pclose(pipe);
    return bytes;
}

inline std::string XmlUnescape(std::string text) {
    const std::pair<const char*, const char*> entities[] = {
        {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&apos;", "'"}, {"&amp;", "&"}};
    for (const auto& [entity, plain] : entities)
        for (auto at = text.find(entity); at != std::string::npos; at = text.find(entity, at + 1))
            text.replace(at, std::string(entity).size(), plain);
    return text;
}

// The cells of the first sheet by reference ("B3"), with the number formats from the styles.
inline std::map<std::string, SheetXmlCell> SheetCells(const std::string& xlsx) {
    const std::string sheet = ZipMember(xlsx, "xl/worksheets/sheet1.xml");
    const std::string styles = ZipMember(xlsx, "xl/styles.xml");
    EXPECT_FALSE(sheet.empty()) << "no sheet in " << xlsx;
    // Custom number formats by id, then the format id of each cell style in order.
    std::map<std::string, std::string> formats{{"0", ""}, {"14", "m/d/yyyy"}};
    const std::regex numFmt("<numFmt numFmtId=\"([0-9]+)\" formatCode=\"([^\"]*)\"");
    for (std::sregex_iterator it(styles.begin(), styles.end(), numFmt), end; it != end; ++it)
        formats[(*it)[1]] = XmlUnescape((*it)[2]);
    std::vector<std::string> styleFormats;
    const auto xfs = styles.find("<cellXfs");
    const std::regex xf("<xf numFmtId=\"([0-9]+)\"");
    if (xfs != std::string::npos) {
        const std::string list = styles.substr(xfs, styles.find("</cellXfs>", xfs) - xfs);
        for (std::sregex_iterator it(list.begin(), list.end(), xf), end; it != end; ++it)
            styleFormats.push_back(formats.count((*it)[1]) ? formats[(*it)[1]] : "?");
    }
    std::map<std::string, SheetXmlCell> cells;
    const std::regex cell("<c r=\"([A-Z]+[0-9]+)\"([^>]*?)(/>|>(.*?)</c>)");
    const std::regex styleOf("s=\"([0-9]+)\"");
    const std::regex valueOf("<v>([^<]*)</v>");
    const std::regex textOf("<t[^>]*>([^<]*)</t>");
    for (std::sregex_iterator it(sheet.begin(), sheet.end(), cell), end; it != end; ++it) {
        const std::string attributes = (*it)[2];
        const std::string body = (*it)[4];
        SheetXmlCell c;
        std::smatch m;
        if (attributes.find("t=\"inlineStr\"") != std::string::npos ||
            attributes.find("t=\"str\"") != std::string::npos) {
            if (std::regex_search(body, m, textOf)) c.value = XmlUnescape(m[1]);
        } else if (std::regex_search(body, m, valueOf)) {
            c.number = attributes.find("t=\"") == std::string::npos;
            c.value = m[1];
        }
        if (std::regex_search(attributes, m, styleOf)) {
            const auto index = static_cast<std::size_t>(std::stoul(m[1]));
            if (index < styleFormats.size()) c.format = styleFormats[index];
        }
        cells[(*it)[1]] = c;
    }
    return cells;
}

} // namespace corvane::testing
