#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::ui {
class Application;
}

namespace corvane::shell {

// The page of the user's guide that tells of the form named; "index" (the contents) for a form
// the guide has no page of yet.
std::string HelpTopicOf(std::string_view formName);

// The folder of the guide's HTML pages, built with the program: beside the program, or in the
// build folder above it. Nothing when it is not there.
std::optional<std::filesystem::path> GuideFolder();

// Opens the topic's page in the browser; says so when the guide is not installed.
void ShowHelpTopic(ui::Application& app, const std::string& topic);

} // namespace corvane::shell
