#include <CLI/CLI.hpp>

#include <charconv>
#include <cstdio>
#include <string>
#include <vector>

#include "Command.h"
#include "OvikL10n/L10n.h"

namespace ovik::cli {
namespace {

// An argument that reads whole as an integer or a number is passed as one, so that `%1$lld`
// and `%1$.1f` placeholders get what they expect.
L10nArgument argument(const std::string& text) {
    const char* end = text.data() + text.size();
    std::int64_t integer = 0;
    if (auto [ptr, ec] = std::from_chars(text.data(), end, integer); ec == std::errc() && ptr == end && !text.empty())
        return integer;
    double number = 0;
    if (auto [ptr, ec] = std::from_chars(text.data(), end, number); ec == std::errc() && ptr == end && !text.empty())
        return number;
    return text;
}

} // namespace

void addTextCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("text", "Print a text of the table in the language in force");
    auto key = std::make_shared<std::string>();
    auto arguments = std::make_shared<std::vector<std::string>>();
    command->add_option("KEY", *key, "The text's key, e.g. results.file.missing")->required();
    command->add_option("ARG", *arguments, "Values for the text's placeholders, in order");
    command->callback([key, arguments] {
        std::vector<L10nArgument> values;
        for (const std::string& text : *arguments) values.push_back(argument(text));
        std::printf("%s\n", L10n::format(*key, values).c_str());
    });
}

} // namespace ovik::cli
