#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace corvane::testing {

struct ToolOutput {
    int status = -1;
    std::string text;
};

// Runs a command (one of the poppler tools, which read a PDF as any viewer would) and gives its
// exit status and what it printed, standard error included.
inline ToolOutput RunTool(const std::string& command) {
    ToolOutput output;
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (!pipe) return output;
    char buffer[4096];
    std::size_t read = 0;
    while ((read = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
        output.text.append(buffer, read);
    const int status = pclose(pipe);
    output.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return output;
}

inline std::string Quoted(const std::string& path) {
    return "'" + path + "'";
}

// The text of one page as pdftotext lays it out.
inline std::string PdfPageText(const std::string& pdf, int page) {
    const ToolOutput output = RunTool("pdftotext -layout -enc UTF-8 -f " + std::to_string(page) +
                                      " -l " + std::to_string(page) + " " + Quoted(pdf) + " -");
    EXPECT_EQ(output.status, 0) << output.text;
    return output.text;
}

} // namespace corvane::testing
